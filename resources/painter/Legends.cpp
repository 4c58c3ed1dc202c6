#include "resources/painter/FaceParts.h"

#include "resources/painter/Palette.h"
#include "resources/painter/Type.h"

#include <array>
#include <string_view>

namespace pedl::skin {

namespace {

/// A text of the face: where it is anchored, its baseline, how it looks.
struct Legend {
    std::string_view text;
    Point anchor;
    const TypeStyle& style;
    Align align;
    Colour ink;
};

constexpr auto kL = Align::Left;
constexpr auto kC = Align::Centre;
constexpr auto kR = Align::Right;
constexpr TypeStyle kTight = kTypeS.tracked(0.2);
constexpr TypeStyle kHint = kTypeS.tracked(0.3);
constexpr TypeStyle kTitle = kTypeT.tracked(0.8);

constexpr std::array kLegends{
    // Head
    Legend{"LFO RATE", {132, 35}, kTypeXL, kR, palette::kInk},
    Legend{"CUT-OFF", {388, 35}, kTypeXL, kL, palette::kInk},
    Legend{"LFO", {24, 106}, kTypeT, kL, palette::kInk},
    Legend{"FILTER", {497, 106}, kTitle, kR, palette::kInk},
    Legend{"ALT: TEMPO", {157, 104}, kHint, kC, palette::kInkDim},
    Legend{"SHIFT: FINE", {363, 104}, kHint, kC, palette::kInkDim},
    // Upper panels
    Legend{"SMOOTH", {52, 124}, kTypeL, kC, palette::kPrint},
    Legend{"WAVE", {92, 124}, kTypeL, kC, palette::kPrint},
    Legend{"WIDTH", {131, 124}, kTypeL, kC, palette::kPrint},
    Legend{"TYPE", {355, 124}, kTypeL, kC, palette::kPrint},
    Legend{"RESO", {388, 124}, kTypeL, kC, palette::kPrint},
    Legend{"SLOPE", {428.5, 124}, kTypeL, kC, palette::kPrint},
    Legend{"SAT", {467, 124}, kTypeL, kC, palette::kPrint},
    // LFO and follower
    Legend{"LFO", {24, 236}, kTypeT, kL, palette::kInkLfo},
    Legend{"ENVELOPE FOLLOWER", {497, 236}, kTypeT, kR, palette::kInkFollower},
    Legend{"EXTEND", {356, 265}, kTypeS, kC, palette::kInk},
    Legend{"L", {40, 292}, kTypeS, kC, palette::kInk},
    Legend{"R", {83, 292}, kTypeS, kC, palette::kInk},
    Legend{"EF", {233.5, 292}, kTight, kR, palette::kInk},
    // Levels
    Legend{"LINK", {85.5, 411}, kTypeS, kC, palette::kInk},
    Legend{"INPUT", {36, 411}, kTypeT, kL, palette::kInk},
    Legend{"OUTPUT", {372, 411}, kTypeT, kL, palette::kInk},
    Legend{"PRESET/BANK", {463, 410}, kTight, kR, palette::kInk},
    // Foot
    Legend{"FREEZE", {113, 429}, kTypeT, kL, palette::kPrint},
    Legend{"BYPASS", {440, 429}, kTypeT, kL, palette::kPrint},
    Legend{"ROUTING", {292.5, 429}, kTypeL, kC, palette::kPrint},
    // Preset bar
    Legend{"LEARN", {339, 516}, kHint, kC, palette::kPrint},
    Legend{"FORGET", {373, 516}, kHint, kC, palette::kPrint},
    Legend{"RESET", {407, 516}, kHint, kC, palette::kPrint},
    Legend{"A", {386, 538}, kTypeLB, kC, palette::kPrint},
    Legend{"B", {430, 538}, kTypeLB, kC, palette::kPrint},
    Legend{"CH", {78, 520}, kTight, kC, palette::kPrintDim},
    Legend{"CC", {168, 520}, kTight, kC, palette::kPrintDim},
    Legend{"MIDI IN", {451, 520}, kTypeS, kL, palette::kPrint},
    Legend{"MANUAL", {494, 538}, kTypeS, kR, palette::kPrint},
};

/// A legend with the unit of its value, the two centred together.
struct UnitLegend {
    std::string_view text, unit;
    Point anchor;
    const TypeStyle& style = kTypeU;
};
constexpr TypeStyle kPercent{kTypeU.capHeight, Weight::Bold, 0}; // a sign of thin lines
constexpr std::array kUnitLegends{
    UnitLegend{"SPREAD", "deg", {62.5, 253}}, UnitLegend{"ATTACK", "ms", {306, 253}},
    UnitLegend{"RELEASE", "ms", {405, 253}}, UnitLegend{"RANGE", "%", {459, 253}, kPercent},
    UnitLegend{"GAIN", "dB", {62, 330}}};

void drawUnitLegend(Canvas& canvas, const UnitLegend& legend) {
    constexpr double kGap = 3;
    const double text = textWidth(legend.text, kTypeL) + kGap;
    const double left = legend.anchor.x - (text + textWidth(legend.unit, legend.style)) / 2;
    const double baseline = legend.anchor.y;
    write(canvas, legend.text, {left, baseline}, kTypeL, palette::kInk, kL);
    write(canvas, legend.unit, {left + text, baseline}, legend.style, palette::kInkDim, kL);
}

/// Engraved: at scale 2 there is room for the edge that catches the light.
void drawNamePlateText(Canvas& canvas) {
    const TypeStyle maker = kTypeS.tracked(2.4);
    if (canvas.scale() > 1) {
        const Paint light = solid(palette::kLitEdge, 0.55);
        drawName(canvas, {260.9, 30.5}, 15.5, light);
        write(canvas, "ZMT-sonics", {260.9, 41.5}, maker, light);
    }
    drawName(canvas, {260.5, 30}, 15.5, solid(palette::kInkName));
    write(canvas, "ZMT-sonics", {260.5, 41}, maker, palette::kInkMaker);
}

} // namespace

void drawLegends(Canvas& canvas) {
    for (const Legend& legend : kLegends)
        write(canvas, legend.text, legend.anchor, legend.style, legend.ink, legend.align);
    for (const UnitLegend& legend : kUnitLegends)
        drawUnitLegend(canvas, legend);
    drawNamePlateText(canvas);
    write(canvas, "STEREO", {217.5, 470}, kTypeS.tracked(1.2), palette::kBrassPrint);
    write(canvas, "MULTIMODE FILTER", {217.5, 479}, kTypeS.tracked(0.5), palette::kBrassPrint);
}

} // namespace pedl::skin
