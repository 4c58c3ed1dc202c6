#include "editor/face/FacePainter.h"

#include "parameters/NoteDivision.h"
#include "parameters/ParameterCatalogue.h"
#include "parameters/ValueLaws.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace pedl::skin {

using namespace VSTGUI;

namespace {

constexpr int kKnobFrames = 101;
constexpr double kDigitCell = 27;
enum Glyph { kBlank = 10, kPoint, kSlash };

const CColor kOnIvory(50, 50, 50, 255);
const CColor kOnPetrol(194, 194, 193, 255);
const CColor kOnCream(36, 36, 32, 255);
const CColor kUnavailable(163, 163, 145, 255);
const CColor kHint(255, 255, 255, 180);

CRect rectOf(const Place& place) {
    return {place.left, place.top, place.right, place.bottom};
}

CRect rectAt(double left, double top, const CBitmap& bitmap) {
    return {CPoint(left, top), CPoint(bitmap.getWidth(), bitmap.getHeight())};
}

/// The four switches that the lock's label covers.
bool isModulationSwitch(std::int32_t tag) {
    return tag == kFilterFreqByLFODefeat || tag == kGainByLFODefeat ||
           tag == kFilterFreqByENVDefeat || tag == kGainByENVDefeat;
}

} // namespace

FacePainter::FacePainter(CDrawContext& context, const FaceState& state)
    : context_(context), state_(state) {}

void FacePainter::drawFace() {
    CBitmap& face = bitmap(kFaceBitmap);
    face.draw(&context_, rectAt(0, 0, face));
    for (const ControlRow& row : kPanelRows)
        if (isShown(row) && row.kind != ControlKind::WaveSelector)
            drawPanelRow(row);
    for (const ControlRow& row : kBarRows)
        drawBarRow(row);
    // The open list lies over whatever is below it.
    for (const ControlRow& row : kPanelRows)
        if (row.kind == ControlKind::WaveSelector)
            drawWaves(row);
}

bool FacePainter::isShown(const ControlRow& row) const {
    const bool isLocked = state_.values[kModulationOnOff] >= 0.5F;
    switch (row.kind) {
    case ControlKind::Counter:
    case ControlKind::DotCounter:
    case ControlKind::SyncDisplay:
        return row.tag == state_.display;
    case ControlKind::Overlay:
        return isLocked;
    default:
        return !(isLocked && isModulationSwitch(row.tag));
    }
}

void FacePainter::drawPanelRow(const ControlRow& row) {
    switch (row.kind) {
    case ControlKind::CutoffSlider:
        return drawSlider(row);
    case ControlKind::OnOffButton:
        return drawStep(row, valueOf(row), 2);
    case ControlKind::HoldButton:
    case ControlKind::Overlay:
        return drawFrame(row, 0, row.tag == kFreez && valueOf(row) >= 0.5F ? 1 : 0);
    case ControlKind::CyclingSwitch:
        return drawStep(row, valueOf(row), 3);
    case ControlKind::LabelledSwitch:
        drawStep(row, valueOf(row), 3);
        return drawSwitchLabel(row);
    case ControlKind::LabelledKnob:
        drawKnob(row, valueOf(row));
        return drawKnobLabel(row);
    case ControlKind::Knob:
        return drawKnob(row, valueOf(row));
    case ControlKind::Encoder:
        return drawKnob(row, row.tag == kLFOEncoder ? state_.lfoEncoder : state_.cutoffEncoder);
    case ControlKind::ValueDisplay:
        return drawText(labelOf(row), rectOf(row.place).offset(1, 1), kOnIvory);
    case ControlKind::MeterLamp:
        return drawMeter(row);
    case ControlKind::IndicatorLamp:
        return drawLamp(row);
    case ControlKind::Counter:
    case ControlKind::DotCounter:
    case ControlKind::SyncDisplay:
        return drawDigits(row);
    case ControlKind::RelativeMix:
        return drawFrame(row, 0, 0);
    default: // what only listens
        return;
    }
}

void FacePainter::drawBarRow(const ControlRow& row) {
    switch (row.kind) {
    case ControlKind::NameEdit:
        return drawText(state_.programName, rectOf(row.place), kOnCream);
    case ControlKind::TextDisplay:
        return drawText(state_.controller, rectOf(row.place),
                        state_.hasController ? kOnCream : kUnavailable);
    case ControlKind::StepDisplay:
        return drawText(state_.channel, rectOf(row.place), kOnCream);
    case ControlKind::HintLine:
        return drawText(state_.hint, rectOf(row.place), kHint);
    case ControlKind::ActivityLamp:
        return drawFrame(row, 0, state_.isMidiActive ? 1 : 0);
    case ControlKind::Menu: // its arrow is printed
        return;
    default:
        const auto frame = state_.barFrames.find(row.tag);
        return drawFrame(row, 0, frame == state_.barFrames.end() ? 0 : frame->second);
    }
}

/// Frame `frame` of the strip, whose frames are as high as the control, or as a part of its height
/// makes whole ones (two pictures of a button that is larger than its place).
void FacePainter::drawFrame(const ControlRow& row, std::size_t index, int frame, float alpha) {
    CBitmap& strip = bitmap(row.bitmaps[index]);
    const double frames = std::max(1.0, std::round(strip.getHeight() / row.place.height()));
    const double frameHeight = std::floor(strip.getHeight() / frames);
    strip.draw(&context_, rectOf(row.place), CPoint(0, frame * frameHeight), alpha);
}

void FacePainter::drawStep(const ControlRow& row, float value, int frames) {
    drawFrame(row, 0, static_cast<int>(value * static_cast<float>(frames - 1) + 0.5F));
}

void FacePainter::drawKnob(const ControlRow& row, float value) {
    drawStep(row, value, kKnobFrames);
}

void FacePainter::drawSlider(const ControlRow& row) {
    enum { kHandle, kGroove, kScaleHz, kScaleNotes };
    constexpr double kTravelBegin = 7;
    constexpr double kTravel = 423;
    drawFrame(row, kGroove, 0);
    CBitmap& handle = bitmap(row.bitmaps[kHandle]);
    const double travelled = std::floor(state_.values[kFilterCutoffFreq] * kTravel);
    handle.draw(&context_,
                rectAt(row.place.left + kTravelBegin + travelled, row.place.top, handle));
    drawFrame(row, state_.values[kFreqNoteScaleSwitch] >= 0.5F ? kScaleNotes : kScaleHz, 0);
}

void FacePainter::drawLamp(const ControlRow& row) {
    enum { kOn, kOff };
    drawFrame(row, kOff, 0);
    drawFrame(row, kOn, 0, lampOf(row));
}

void FacePainter::drawMeter(const ControlRow& row) {
    enum { kFirst, kSecond, kOff };
    const float value = lampOf(row);
    drawFrame(row, kOff, 0);
    drawFrame(row, kFirst, 0, std::min(1.0F, value * 1.41243F));
    if (value > 0.708F)
        drawFrame(row, kSecond, 0, std::min(1.0F, value * 3.42468F - 2.42468F));
}

void FacePainter::drawDigits(const ControlRow& row) {
    const float value = valueOf(row);
    std::array<int, 5> glyphs{kBlank, kBlank, kBlank, kBlank, kBlank};
    int pointCell = -1;
    if (row.kind == ControlKind::SyncDisplay) {
        const NoteDivision note = kNoteDivisions[noteDivisionIndex(value)];
        glyphs = {kBlank, note.numerator, kSlash,
                  note.denominator >= 10 ? note.denominator / 10 : kBlank, note.denominator % 10};
    } else {
        const bool hasPoint = row.kind == ControlKind::DotCounter;
        const bool isRate = row.tag == kLFOFreq;
        const double lowest = isRate ? 0.1 : 15, highest = isRate ? 150 : 600;
        const double number =
            hasPoint ? 10 * (lowest + (highest - lowest) * value) : 20 * std::pow(1000.0, value);
        int rest = static_cast<int>(number + 0.5);
        for (auto glyph = glyphs.rbegin(); glyph != glyphs.rend(); ++glyph, rest /= 10)
            *glyph = rest % 10;
        if (hasPoint) {
            glyphs.front() = kBlank;
            pointCell = isRate ? 2 : 1; // from the right
        }
    }
    CBitmap& strip = bitmap(row.bitmaps[0]);
    const double height = row.place.height();
    const auto drawGlyph = [&](std::size_t cell, int glyph) {
        const CPoint corner(row.place.left + kDigitCell * static_cast<double>(cell), row.place.top);
        strip.draw(&context_, CRect(corner, CPoint(kDigitCell, height)), CPoint(0, glyph * height));
    };
    if (row.kind == ControlKind::DotCounter) // its digits stand on blank cells, but for the last
        for (std::size_t cell = 0; cell + 1 < glyphs.size(); ++cell)
            drawGlyph(cell, kBlank);
    for (std::size_t cell = 0; cell < glyphs.size(); ++cell)
        if (glyphs[cell] != kBlank)
            drawGlyph(cell, glyphs[cell]);
    if (pointCell >= 0)
        drawGlyph(glyphs.size() - 1 - static_cast<std::size_t>(pointCell), kPoint);
    drawFrame(row, 1, 0);
}

void FacePainter::drawWaves(const ControlRow& row) {
    enum { kStrip, kHover, kSelection };
    constexpr int kWaves = 7;
    const int wave = static_cast<int>(valueOf(row) * (kWaves - 1) + 0.5F);
    if (!state_.isWaveListOpen)
        return drawFrame(row, kStrip, wave);
    CRect list = rectOf(row.place);
    list.setHeight(kWaves * row.place.height());
    bitmap(row.bitmaps[kStrip]).draw(&context_, list);
    const auto drawOver = [&](std::size_t index, int place) {
        CRect rect = rectOf(row.place);
        rect.offset(0, place * row.place.height());
        bitmap(row.bitmaps[index]).draw(&context_, rect);
    };
    drawOver(kHover, state_.hoveredWave);
    drawOver(kSelection, wave);
}

void FacePainter::drawKnobLabel(const ControlRow& row) {
    // As the control does it: its view grows with the label's settings, the picture does not move.
    CRect rect = rectOf(row.place);
    rect.offset(row.label.shift + 1, 0);
    rect.inset(-row.label.widen, 0);
    rect.top += row.label.top + 1;
    rect.bottom = rect.top + kNormalFontSmall->getSize() + 2;
    drawText(labelOf(row), rect, row.label.ink == LabelInk::OnIvory ? kOnIvory : kOnPetrol);
}

void FacePainter::drawSwitchLabel(const ControlRow& row) {
    CRect rect = rectOf(row.place);
    rect.top += row.label.top + 1;
    rect.bottom = rect.top + kNormalFontSmall->getSize() + 2;
    drawText(labelOf(row), rect, kOnPetrol);
}

void FacePainter::drawText(const std::string& text, const CRect& rect, const CColor& colour) {
    context_.setFont(kNormalFontSmall);
    context_.setFontColor(colour);
    context_.drawString(text.c_str(), rect, kCenterText);
}

std::string FacePainter::labelOf(const ControlRow& row) const {
    return std::string(parameterText(row.tag, valueOf(row)).view());
}

float FacePainter::valueOf(const ControlRow& row) const {
    if (row.tag == kSynchroTempoFromHost)
        return state_.hostTempo;
    return isParameter(row.tag) ? state_.values[static_cast<std::size_t>(row.tag)] : 0.0F;
}

float FacePainter::lampOf(const ControlRow& row) const {
    const auto lamp = state_.lamps.find(row.tag);
    return lamp == state_.lamps.end() ? 0.0F : lamp->second;
}

CBitmap& FacePainter::bitmap(std::int32_t id) {
    std::unique_ptr<CBitmap>& loaded = bitmaps_[id];
    if (!loaded)
        loaded = std::make_unique<CBitmap>(CResourceDescription(id));
    return *loaded;
}

std::unique_ptr<PixmanSurface> drawFace(const FaceState& state, int scale) {
    auto picture = std::make_unique<PixmanSurface>(kFaceWidth, kFaceHeight, scale);
    CDrawContext* const context = createPixmanContext(*picture);
    FacePainter(*context, state).drawFace();
    context->forget();
    return picture;
}

} // namespace pedl::skin
