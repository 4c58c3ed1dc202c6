#include "resources/painter/Drawings.h"

#include "resources/painter/FaceParts.h"
#include "resources/painter/Materials.h"
#include "resources/painter/Palette.h"
#include "resources/painter/Type.h"

namespace pedl::skin {

Picture paintBackground(const SkinBitmap& size, int, int scale) {
    Canvas canvas(size.width, size.frameHeight, scale);
    drawHousing(canvas);
    drawShadows(canvas);
    drawScales(canvas);
    drawScrews(canvas);
    drawBar(canvas);
    drawEmblem(canvas, {217.5, 443}, 1);
    drawWays(canvas);
    drawLegends(canvas);
    return canvas.picture();
}

/// A petrol plate with a brass inlay. The box 228,46 120 x 15 stays free: the version stands there.
Picture paintAbout(const SkinBitmap& size, int, int scale) {
    constexpr PowderCoat kCoat{palette::kPetrol, 0.0050F, kPetrolPeel, 1.12F, 0.30F, 21};
    Canvas canvas(size.width, size.frameHeight, scale);
    const Rectangle whole{0, 0, kFaceWidth, kFaceHeight};
    canvas.put(powderCoat(kFaceWidth, kFaceHeight, scale, kCoat), 0, 0);
    canvas.softInside(rectangle(whole), {palette::kBlack, 0.8, 5});
    const auto inlay = [&](double inset, double width) {
        canvas.stroke(roundRect(whole.inset(inset), 6), width,
                      linear({0, 0}, {whole.width, whole.height},
                             {{0, palette::kBrassBright},
                              {0.5, palette::kBrassInlay},
                              {1, palette::kBrassEdge}}));
    };
    inlay(22, 1.2);
    inlay(26, 0.6);
    drawEmblem(canvas, {260.5, 200}, 4);
    drawName(canvas, {260.5, 325}, 40, solid(palette::kBrassLetters));
    write(canvas, "STEREO MULTIMODE FILTER", {260.5, 350}, kTypeXL.tracked(3), palette::kPrint);
    write(canvas, "ZMT-sonics", {260.5, 392}, kTypeXL.tracked(4), palette::kBrassLetters);
    write(canvas, "CLICK TO CLOSE", {260.5, 500}, kTypeL.tracked(1.5), palette::kPrintDim);
    return canvas.picture();
}

} // namespace pedl::skin
