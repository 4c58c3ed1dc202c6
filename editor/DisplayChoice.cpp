#include "editor/DisplayChoice.h"

#include "controls/CEcncoderKnob03.h"
#include "controls/CpedlLFOsyncDisplay.h"
#include "controls/ZMTIndicatorLED.h"
#include "controls/ZMTPedlOneDotCounter.h"
#include "parameters/ValueLaws.h"

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr TickMs kTouchMs = 2000;   // for which the other quantity stays
constexpr TickMs kRefreshMs = 1500; // between looks whether it is time
constexpr TickMs kBlinkMs = 250;

constexpr float kShowCutoff = 0.0F;
constexpr float kShowRate = 1.0F;
constexpr float kHostTempo = 1.0F; // of the sync mode

/// The click area above a lamp has the same tag.
void light(const Panel& panel, std::int32_t tag, float value) {
    if (auto* const lamp = panel.controls.find<ZMTIndicatorLED>(tag))
        lamp->setValue(value);
}

} // namespace

void DisplayChoice::choosePermanent(bool isCutoff) {
    lastTouchTime_ = 0;
    holdsCutoff_ = isCutoff;
}

void DisplayChoice::setShown(float quantity) const {
    panel_.effect->setParameter(kDisplayParameterMode, quantity);
}

bool DisplayChoice::isTouchOver() const {
    return panel_.now() - lastTouchTime_ > kTouchMs;
}

// The quantity that is shown

void DisplayChoice::refresh() {
    if (!panel_.effect)
        return;
    if (panel_.isOn(kDisplayParameterMode))
        showRate();
    else
        showCutoff();
}

void DisplayChoice::refreshWithoutTempo() {
    panel_.hide(kTempoSetup);
    panel_.hide(kSynchroTempoFromHost);
    refresh();
}

/// Its digits stay in the frame and would be seen beside a note's, which do not fill the glass.
void DisplayChoice::veilTempo() {
    panel_.veil(kTempoSetup);
    panel_.veil(kSynchroTempoFromHost);
}

void DisplayChoice::showCutoff() {
    light(panel_, kDisplayMode_LFORate, 0.0F);
    light(panel_, kDisplayMode_Cutoff, 1.0F);
    veilTempo();
    panel_.hide(kLFOFreq);
    panel_.hide(kLFOSynchroRate);
    panel_.show(kFilterCutoffFreq);
    if (!holdsCutoff_ && isTouchOver())
        setShown(kShowRate);
}

/// Whether tempo digits stand there because Alt is held over the encoder.
bool DisplayChoice::isTempoHeldShown() const {
    auto* const encoder = panel_.controls.find<CEcncoderKnob03>(kLFOEncoder);
    return encoder && panel_.frame && panel_.isOn(kLFOSyncMode) && encoder->isAltHeld() &&
           mouseIn(*panel_.frame).isIn(encoder);
}

void DisplayChoice::showRate() {
    light(panel_, kDisplayMode_LFORate, 1.0F);
    light(panel_, kDisplayMode_Cutoff, 0.0F);
    if (isTempoHeldShown())
        return;
    veilTempo();
    panel_.hide(kFilterCutoffFreq);
    const bool isSynchronised = panel_.isOn(kLFOSyncMode);
    panel_.show(isSynchronised ? kLFOSynchroRate : kLFOFreq);
    panel_.hide(isSynchronised ? kLFOFreq : kLFOSynchroRate);
    if (holdsCutoff_ && isTouchOver())
        setShown(kShowCutoff);
}

void DisplayChoice::showTempo() {
    panel_.hide(kFilterCutoffFreq);
    panel_.hide(kLFOFreq);
    panel_.hide(kLFOSynchroRate);
    const bool isHosts =
        panel_.value(kLFOSyncMode) >= kHostTempo && panel_.isOn(kDisplayParameterMode);
    constexpr std::int32_t kOwn = kTempoSetup, kHosts = kSynchroTempoFromHost;
    panel_.show(isHosts ? kHosts : kOwn);
    panel_.hide(isHosts ? kOwn : kHosts);
}

// Idle

void DisplayChoice::idleHover(const MouseState& mouse) {
    auto* const lfo = panel_.controls.find<CEcncoderKnob03>(kLFOEncoder);
    auto* const cutoff = panel_.controls.find<CEcncoderKnob03>(kCutoffEncoder);
    if (!lfo || !cutoff)
        return;
    if ((mouse.isIn(lfo) || lfo->isButtonHeld()) && !cutoff->isButtonHeld())
        hoverLfo(mouse.isAltDown() || lfo->isAltHeld());
    else if ((mouse.isIn(cutoff) || cutoff->isButtonHeld()) && !lfo->isButtonHeld())
        hoverCutoff();
}

void DisplayChoice::hoverLfo(bool hasAlt) {
    lastTouchTime_ = holdsCutoff_ ? panel_.now() : 0;
    lastDisplaySwitchTick_ = 0;
    if (panel_.isOn(kLFOSyncMode) && hasAlt) {
        showTempo();
        lastDisplaySwitchTick_ = panel_.now();
    }
    if (!panel_.isOn(kDisplayParameterMode))
        setShown(kShowRate);
}

void DisplayChoice::hoverCutoff() {
    lastTouchTime_ = holdsCutoff_ ? 0 : panel_.now();
    lastDisplaySwitchTick_ = 0;
    if (panel_.isOn(kDisplayParameterMode))
        setShown(kShowCutoff);
}

void DisplayChoice::idleBlinking() {
    const TickMs now = panel_.now();
    const bool isTick = now - lastBlinkTick_ > kBlinkMs;
    if (isTick) {
        lastBlinkTick_ = now;
        blinkPhase_ = !blinkPhase_;
    }
    const auto steadyOrBlinking = [&](bool& flag, bool isSteady, bool steady, CControl& control) {
        const bool before = flag;
        if (isSteady)
            flag = steady;
        else if (isTick)
            flag = blinkPhase_;
        if (flag != before)
            control.setDirty();
    };
    const bool hasHostTempo = panel_.effect->followsHostTempo();
    const float sync = panel_.value(kLFOSyncMode);
    auto* const notes = panel_.controls.find<CpedlLFOsyncDisplay>(kLFOSynchroRate);
    if (notes && sync != 0.0F) {
        steadyOrBlinking(notes->blanked, !panel_.isOn(kLFOFreqOverflow), false, *notes);
        steadyOrBlinking(notes->showSlash, sync < kHostTempo || hasHostTempo, true, *notes);
    }
    if (auto* const tempo = panel_.controls.find<ZMTPedlOneDotCounter>(kSynchroTempoFromHost)) {
        tempo->setValue(static_cast<float>(laws::normalisedTempo(panel_.effect->tempoBpm())));
        steadyOrBlinking(tempo->blanked, hasHostTempo, false, *tempo);
    }
}

void DisplayChoice::idleRefresh() {
    if (panel_.now() - lastDisplaySwitchTick_ > kRefreshMs)
        refresh();
}

} // namespace pedl
