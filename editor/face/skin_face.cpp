// Draws the face as the editor shows it, from the embedded skin, without an editor.
// Usage: skin-face FOLDER [COMPARED OTHER]
//   FOLDER    gets skin.png, skin-2x.png (the program Default), skin-busy-2x.png, skin-about-2x.png
//             and skin-sheet-2x.png
//   OTHER     a folder with face-1x.png, face-2x.png, face-busy-2x.png, strips-2x.png
//   COMPARED  gets beside-...png: each of those on the left of what was drawn

#include "editor/face/ContactSheet.h"
#include "editor/face/FacePainter.h"
#include "editor/face/SideBySide.h"
#include "resources/SkinResources.h"
#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include <cstdio>
#include <string>

namespace pedl::skin {

namespace {

using namespace VSTGUI;
using Picture = std::unique_ptr<PixmanSurface>;

Picture drawAbout(int scale) {
    auto picture = std::make_unique<PixmanSurface>(kFaceWidth, kFaceHeight, scale);
    CDrawContext* const context = createPixmanContext(*picture);
    CBitmap(CResourceDescription(kAboutBitmap)).draw(context, CRect(0, 0, kFaceWidth, kFaceHeight));
    context->forget();
    return picture;
}

struct Page {
    const char* name;
    const char* other; // its counterpart, if there is one
    Picture picture;
};

bool compare(const Page& page, const std::string& compared, const std::string& others) {
    const Picture beside = sideBySide(others + "/" + page.other, *page.picture);
    return beside && writePng(*beside, compared + "/beside-" + page.name);
}

} // namespace

int drawAll(const std::string& folder, const std::string& compared, const std::string& others) {
    useEmbeddedSkin();
    const Page pages[]{
        {"skin.png", "face-1x.png", drawFace(defaultState(), 1)},
        {"skin-2x.png", "face-2x.png", drawFace(defaultState(), 2)},
        {"skin-busy-2x.png", "face-busy-2x.png", drawFace(busyState(), 2)},
        {"skin-about-2x.png", nullptr, drawAbout(2)},
        {"skin-sheet-2x.png", "strips-2x.png", drawContactSheet(2)},
    };
    for (const Page& page : pages) {
        const bool isCompared = !others.empty() && page.other;
        if (!writePng(*page.picture, folder + "/" + page.name) ||
            (isCompared && !compare(page, compared, others))) {
            std::fprintf(stderr, "skin-face: cannot make %s\n", page.name);
            return 1;
        }
    }
    return 0;
}

} // namespace pedl::skin

int main(int count, char** arguments) {
    if (count != 2 && count != 4) {
        std::fprintf(stderr, "usage: skin-face FOLDER [COMPARED OTHER]\n");
        return 2;
    }
    return count == 2 ? pedl::skin::drawAll(arguments[1], "", "")
                      : pedl::skin::drawAll(arguments[1], arguments[2], arguments[3]);
}
