// How the controls of the panel are made, a function for each kind.

#include "controls/CAbout.h"
#include "controls/CAnimKnob3.h"
#include "controls/CAnimKnobWithLabel.h"
#include "controls/CEcncoderKnob03.h"
#include "controls/CHorizontalSwitchSeq.h"
#include "controls/CHorizontalSwitchWithDynamicLabel.h"
#include "controls/CInvisibleDoNothingControl.h"
#include "controls/CLFOWaveSelector2.h"
#include "controls/CPedlInvisible2Mix.h"
#include "controls/CPedlInvisibleMix2.h"
#include "controls/CZMTParamDisplay.h"
#include "controls/CpedlFilterRadioSlider.h"
#include "controls/CpedlLFOsyncDisplay.h"
#include "controls/ZMTIndicatorLED.h"
#include "controls/ZMTMeterLED2Colors.h"
#include "controls/ZMTMonoAndBistableButtonModulator.h"
#include "controls/ZMTOnOffButton.h"
#include "controls/ZMTPedlNotDotCounter.h"
#include "editor/ControlBuilder.h"
#include "parameters/ValueLaws.h"
#include "presets/HintText.h"
#include "resources/SkinTable.h"
#include "vstgui/lib/controls/cmoviebitmap.h"

#include <cmath>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr float kDigitSpacing = 27.0F;
constexpr std::int32_t kDigitCells = 5;
constexpr std::int32_t kWaves = 7;
const CPoint kCorner(0, 0);

/// Frames and their size, as the strip of a row has them.
const skin::SkinBitmap& stripOf(const ControlRow& row) {
    return *skin::findSkinBitmap(row.bitmaps[0]);
}

/// What a full sweep, a fine one and a notch of the wheel are, for every knob.
void tune(DragKnob& knob) {
    knob.dragScale = 0.25F; // 250 pixels
    knob.fineFactor = 10.0F;
    knob.wheelStep = 0.05F;
    knob.wheelFineScale = 0.25F;
}

CControl* makeSlider(const ControlRow& row, const ControlMakings& with, const RowBitmaps& images) {
    constexpr std::int32_t kFirstPlace = 7, kLastPlace = 430;
    auto* const slider =
        new CpedlFilterRadioSlider(rectOf(row.place), with.listener, row.tag, kFirstPlace,
                                   kLastPlace, images[0], images[1], kCorner);
    slider->setOverlay(images[2]);
    slider->setSecondOverlay(images[3]);
    slider->setOverlaySelector(with.effect->getParameter(kFreqNoteScaleSwitch) == 0.0F ? 0 : 1);
    slider->setFreeClick(false);
    slider->setValueScale(1.0F);
    slider->setWheelInc(0.1F);
    slider->setOffsetHandle(kCorner);
    return slider;
}

/// Its mode is set before it has a listener: opening a window changes nothing.
CControl* makeHoldButton(const ControlRow& row, const ControlMakings& with,
                         const RowBitmaps& images) {
    auto* const button =
        new ZMTMonoAndBistableButtonModulator(rectOf(row.place), nullptr, row.tag, images[0]);
    button->setMode(laws::threeWayState(with.effect->getParameter(kFreezMode)));
    button->setListener(with.listener);
    return button;
}

void setDigits(ZMTPedlOneDotCounter& counter, const DigitSettings& digits) {
    counter.setRange(digits.lowest, digits.highest);
    counter.scaleMode =
        digits.isFrequency ? ZMTPedlOneDotCounter::kFrequency : ZMTPedlOneDotCounter::kLinear;
    counter.editable = digits.isEditable;
}

CControl* makeCounter(const ControlRow& row, const ControlMakings& with, const RowBitmaps& images) {
    auto* const counter = new ZMTPedlNotDotCounter(rectOf(row.place), with.listener, row.tag,
                                                   kDigitSpacing, images[0], kDigitCells,
                                                   row.extras.digits.litCells, images[1], nullptr);
    setDigits(*counter, row.extras.digits);
    return counter;
}

CControl* makeDotCounter(const ControlRow& row, const ControlMakings& with,
                         const RowBitmaps& images) {
    auto* const counter = new ZMTPedlOneDotCounter(
        rectOf(row.place), with.listener, row.tag, kDigitSpacing, images[0], kDigitCells,
        row.extras.digits.dotCell, row.extras.digits.litCells, images[1], nullptr, true);
    setDigits(*counter, row.extras.digits);
    return counter;
}

template <typename Control>
void setLabel(Control& control, const ControlRow& row, const ControlMakings& with) {
    const bool isOnIvory = row.label.ink == LabelInk::OnIvory;
    control.setLabelFontColor(isOnIvory ? kInkOnIvory : kInkOnPetrol);
    if (isOnIvory)
        control.setLabelFont(with.labelFont);
    control.setLabelYOffset(row.label.top);
    control.setTaggedValueToStringProc(writeParameterText, with.effect);
}

CControl* makeLabelledKnob(const ControlRow& row, const ControlMakings& with,
                           const RowBitmaps& images) {
    const skin::SkinBitmap& strip = stripOf(row);
    auto* const knob = new CAnimKnobWithLabel(
        rectOf(row.place), with.listener, row.tag, strip.frames, strip.width, strip.frameHeight,
        images[0], static_cast<std::int32_t>(kKnobLabelHeight));
    tune(*knob);
    setLabel(*knob, row, with);
    if (row.label.widen != 0.0)
        knob->widenLabel(row.label.widen);
    if (row.extras.shiftBefore != 0.0)
        knob->setLabelXOffset(row.extras.shiftBefore);
    if (row.label.shift != 0.0)
        knob->setLabelXOffset(row.label.shift);
    return knob;
}

CControl* makeKnob(const ControlRow& row, const ControlMakings& with, const RowBitmaps& images) {
    const skin::SkinBitmap& strip = stripOf(row);
    auto* const knob = new CAnimKnob3(rectOf(row.place), with.listener, row.tag, strip.frames,
                                      strip.width, strip.frameHeight, images[0]);
    tune(*knob);
    return knob;
}

CControl* makeValueDisplay(const ControlRow& row, const ControlMakings& with,
                           const RowBitmaps& /*images*/) {
    auto* const display = new CZMTParamDisplay(rectOf(row.place), kInkOnIvory, nullptr, 0);
    display->setFont(with.labelFont);
    display->setTag(row.tag);
    display->setBackOffset(CPoint(row.place.left, row.place.top));
    display->setTransparency(true); // the plate shows through: there is no bitmap behind it
    display->setTaggedValueToStringProc(writeParameterText, with.effect);
    return display;
}

CControl* makeEncoder(const ControlRow& row, const ControlMakings& with, const RowBitmaps& images) {
    const skin::SkinBitmap& strip = stripOf(row);
    auto* const encoder =
        new CEcncoderKnob03(rectOf(row.place), with.listener, row.tag, strip.frames, strip.width,
                            strip.frameHeight, images[0]);
    encoder->setStep(row.extras.encoder.step);
    encoder->setCoarseFactor(row.extras.encoder.coarseFactor);
    encoder->setFineFactor(row.extras.encoder.fineFactor);
    return encoder;
}

CControl* makeLabelledSwitch(const ControlRow& row, const ControlMakings& with,
                             const RowBitmaps& images) {
    const skin::SkinBitmap& strip = stripOf(row);
    auto* const aSwitch = new CHorizontalSwitchWithDynamicLabel(
        rectOf(row.place), with.listener, row.tag, strip.frames, strip.frameHeight, strip.frames,
        images[0]);
    setLabel(*aSwitch, row, with);
    aSwitch->setHorizontalInset(kSwitchInset);
    return aSwitch;
}

CControl* makeCyclingSwitch(const ControlRow& row, const ControlMakings& with,
                            const RowBitmaps& images) {
    const skin::SkinBitmap& strip = stripOf(row);
    return new CHorizontalSwitchSeq(rectOf(row.place), with.listener, row.tag, strip.frames,
                                    strip.frameHeight, 0, images[0]);
}

CControl* makeWaveSelector(const ControlRow& row, const ControlMakings& with,
                           const RowBitmaps& images) {
    CRect list = rectOf(row.place);
    list.bottom = list.top + kWaves * row.place.height();
    return new CLFOWaveSelector2(rectOf(row.place), list, with.listener, row.tag, images[0],
                                 images[1], images[2], kWaves - 1, kWaves - 1);
}

CControl* makeRelativeMix(const ControlRow& row, const ControlMakings& with,
                          const RowBitmaps& images) {
    if (row.tag == kInverseInputLink)
        return new CPedlInvisibleMix2(rectOf(row.place), with.listener, row.tag, images[0]);
    return new CPedlInvisible2Mix(rectOf(row.place), with.listener, row.tag, images[0]);
}

CControl* makeAbout(const ControlRow& row, const ControlMakings& with, const RowBitmaps& images) {
    const CPoint firstAnchor(187, 188), versionAnchor(228, 46);
    auto* const about = new CAbout(rectOf(row.place), with.listener, row.tag, images[0],
                                   CRect(0, 0, kFaceWidth, kFaceHeight), kCorner, firstAnchor,
                                   versionAnchor, nullptr);
    about->setLink(with.surroundings->opener, std::string(kWebAddress));
    return about;
}

CControl* make(const ControlRow& row, const ControlMakings& with, const RowBitmaps& images) {
    const CRect place = rectOf(row.place);
    switch (row.kind) {
    case ControlKind::CutoffSlider:
        return makeSlider(row, with, images);
    case ControlKind::OnOffButton:
        return new ZMTOnOffButton(place, with.listener, row.tag, images[0]);
    case ControlKind::HoldButton:
        return makeHoldButton(row, with, images);
    case ControlKind::Overlay:
        return new CMovieBitmap(place, with.listener, row.tag, images[0]);
    case ControlKind::CyclingSwitch:
        return makeCyclingSwitch(row, with, images);
    case ControlKind::Counter:
        return makeCounter(row, with, images);
    case ControlKind::DotCounter:
        return makeDotCounter(row, with, images);
    case ControlKind::SyncDisplay:
        return new CpedlLFOsyncDisplay(place, with.listener, row.tag, kDigitSpacing, images[0],
                                       images[1], nullptr);
    case ControlKind::LabelledKnob:
        return makeLabelledKnob(row, with, images);
    case ControlKind::Knob:
        return makeKnob(row, with, images);
    case ControlKind::ValueDisplay:
        return makeValueDisplay(row, with, images);
    case ControlKind::Encoder:
        return makeEncoder(row, with, images);
    case ControlKind::LabelledSwitch:
        return makeLabelledSwitch(row, with, images);
    case ControlKind::MeterLamp:
        return new ZMTMeterLED2Colors(place, with.listener, row.tag, images[0], images[1],
                                      images[2]);
    case ControlKind::IndicatorLamp:
        return new ZMTIndicatorLED(place, with.listener, row.tag, images[0], images[1]);
    case ControlKind::WaveSelector:
        return makeWaveSelector(row, with, images);
    case ControlKind::ClickArea:
        return new CInvisibleDoNothingControl(place, with.listener, row.tag);
    case ControlKind::RelativeMix:
        return makeRelativeMix(row, with, images);
    case ControlKind::About:
        return makeAbout(row, with, images);
    default:
        return nullptr;
    }
}

float shownValue(CPresetSystemEffect& effect, std::int32_t source) {
    switch (source) {
    case kSynchroTempoFromHost:
        return static_cast<float>(laws::normalisedTempo(effect.getParameter(source)));
    case kDry:
    case kWet:
        return effect.effectiveDryWetLevel(source); // as its label says, and as it sounds
    default:
        return effect.getParameter(source);
    }
}

void setFirstValue(CControl& control, const ControlRow& row, CPresetSystemEffect& effect) {
    if (row.extras.valueOf == kNoSource)
        return;
    const float value =
        shownValue(effect, row.extras.valueOf == kOwnTag ? row.tag : row.extras.valueOf);
    control.setValue(row.extras.isComplement ? 1.0F - value : value);
}

} // namespace

CControl* buildPanelControl(const ControlRow& row, const ControlMakings& makings) {
    const RowBitmaps images(row);
    CControl* const control = images.areLoaded() ? make(row, makings, images) : nullptr;
    if (!control)
        return nullptr;
    control->setDefaultValue(row.extras.defaultValue);
    setFirstValue(*control, row, *makings.effect);
    return control;
}

} // namespace pedl
