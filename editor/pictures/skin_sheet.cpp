// Draws every picture of the skin with its number on one sheet, at scale 2.
// Usage: skin-sheet FILE

#include "editor/pictures/ContactSheet.h"
#include "resources/SkinResources.h"
#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include <cstdio>

int main(int count, char** arguments) {
    pedl::skin::useEmbeddedSkin();
    if (count == 2 && VSTGUI::writePng(*pedl::skin::drawContactSheet(2), arguments[1]))
        return 0;
    std::fprintf(stderr, "usage: skin-sheet FILE, which can be written to\n");
    return 1;
}
