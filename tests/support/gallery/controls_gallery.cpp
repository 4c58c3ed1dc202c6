// Draws every control of the editor in its states, at scale 1 and below it at scale 2.
// Usage: controls-gallery FILE

#include "tests/support/gallery/GalleryEditor.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"
#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include <cstdio>

namespace {

using namespace VSTGUI;
using pedl::test::GalleryEditor;

/// The editor at one scale, copied into `picture` from row `top` on.
void draw(int scale, PixmanSurface& picture, int top) {
    GalleryEditor editor(nullptr);
    editor.open(&editor);
    editor.getFrame()->setScaleFactor(scale);
    for (int turns = 0; turns < 3; ++turns)
        editor.idle();
    const PixmanSurface& drawn = *OffscreenFrame::of(*editor.getFrame()).surface();
    for (int y = 0; y < drawn.heightPixels(); ++y)
        for (int x = 0; x < drawn.widthPixels(); ++x)
            picture.pixels()[(top + y) * picture.strideBytes() / 4 + x] = drawn.pixelAt(x, y);
}

} // namespace

int main(int count, char** arguments) {
    setPlatformFrameFactory(OffscreenFrame::create);
    PixmanSurface picture(2 * GalleryEditor::kWidth, 3 * GalleryEditor::kHeight, 1);
    draw(1, picture, 0);
    draw(2, picture, GalleryEditor::kHeight);
    if (count == 2 && writePng(picture, arguments[1]))
        return 0;
    std::fprintf(stderr, "usage: controls-gallery FILE, which can be written to\n");
    return 1;
}
