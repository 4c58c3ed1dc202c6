// Cuts a rectangle out of a picture of the face, drawn or photographed.
// Usage: cut-picture PICTURE CUT LEFT TOP RIGHT BOTTOM
//   PICTURE, CUT         PNG files: the whole face, at any scale, and what is written
//   LEFT ... BOTTOM      logical pixels of the face; right and bottom are outside

#include "editor/ControlLayout.h"
#include "editor/pictures/PngReader.h"
#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace pedl::skin {

namespace {

using VSTGUI::PixmanSurface;

constexpr std::uint32_t kBlack = 0xFF000000U;

bool cut(const char* picture, const char* cut, const Place& place) {
    const std::unique_ptr<PixmanSurface> face = readPng(picture, kBlack);
    const bool isInside = place.left >= 0 && place.left < place.right && place.top >= 0 &&
                          place.top < place.bottom && place.right <= kFaceWidth &&
                          place.bottom <= kFaceHeight;
    if (!face || !isInside)
        return false;
    const double scale = face->widthPixels() / kFaceWidth;
    const auto pixels = [scale](double units) {
        return static_cast<int>(std::lround(units * scale));
    };
    const int left = pixels(place.left), right = pixels(place.right);
    const int top = pixels(place.top), bottom = pixels(place.bottom);
    if (bottom > face->heightPixels())
        return false; // not a picture of the face
    std::uint32_t* const corner =
        face->pixels() + static_cast<std::ptrdiff_t>(top) * (face->strideBytes() / 4) + left;
    return writePng(PixmanSurface(corner, right - left, bottom - top, face->strideBytes(), 1.0),
                    cut);
}

} // namespace

} // namespace pedl::skin

int main(int count, char** arguments) {
    if (count != 7) {
        std::fprintf(stderr, "usage: cut-picture PICTURE CUT LEFT TOP RIGHT BOTTOM\n");
        return 2;
    }
    const auto side = [&](int number) { return std::strtod(arguments[number], nullptr); };
    if (pedl::skin::cut(arguments[1], arguments[2], {side(3), side(4), side(5), side(6)}))
        return 0;
    std::fprintf(stderr, "cut-picture: cannot make %s from %s\n", arguments[2], arguments[1]);
    return 1;
}
