// Puts two pictures beside each other.
// Usage: beside-picture LEFT RIGHT BOTH

#include "editor/pictures/SideBySide.h"
#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include <cstdio>

int main(int count, char** arguments) {
    const auto both = count == 4 ? pedl::skin::sideBySide(arguments[1], arguments[2]) : nullptr;
    if (both && VSTGUI::writePng(*both, arguments[3]))
        return 0;
    std::fprintf(stderr, "usage: beside-picture LEFT RIGHT BOTH, PNG files\n");
    return 1;
}
