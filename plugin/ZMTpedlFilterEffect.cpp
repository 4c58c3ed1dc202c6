#include "plugin/ZMTpedlFilterEffect.h"

#include "foundation/vst24/VendorCalls.h"
#include "parameters/CopyText.h"
#include "parameters/DisplayRequest.h"
#include "parameters/ParameterCatalogue.h"
#include "presets/FactoryPrograms.h"
#include "presets/StreamFormat.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <optional>
#include <string_view>

namespace pedl {

namespace {

constexpr std::string_view kProductName = "ZMT pedlFilter";
constexpr std::string_view kVendorName = "zmt-sonics.example";
constexpr VstInt32 kVendorVersion = 1000;
constexpr VstInt32 kChannels = 2;

/// The relative controls send this instead of a step when they are to go back to unity.
constexpr float kResetMarker = -1000.0F;

constexpr float kUnity = 0.5F; // of a gain or level in normalised units

/// Decibels that the input gain covers from one end to the other.
constexpr double kInputGainSpanDb = 48.0;

bool isOneOf(std::string_view text, std::initializer_list<std::string_view> texts) {
    return std::ranges::find(texts, text) != texts.end();
}

float clamped(float value) {
    return std::clamp(value, 0.0F, 1.0F);
}

/// The relative controls deliver one step at a time: half a turn down is +1, half a turn up -1.
double stepOf(float value) {
    return -(2.0 * static_cast<double>(value) - 1.0);
}

bool isRelative(std::int32_t index) {
    return index == kDryWetMix || index == kInverseInputLink;
}

void describePin(const char* direction, VstInt32 index, VstPinProperties& properties) {
    std::snprintf(properties.label, kVstMaxLabelLen, "%s %1d %s", kProductName.data(), index + 1,
                  direction);
    properties.flags = kVstPinIsActive | kVstPinIsStereo;
}

std::optional<double> finite(bool isValid, double value) {
    return isValid && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

} // namespace

constexpr bool
ZMTpedlFilterEffect::rowsAreInIndexOrder(const std::array<ControlRow, kNumParams>& rows) {
    for (std::int32_t index = 0; index < kNumParams; ++index)
        if (rows[static_cast<std::size_t>(index)].index != index)
            return false;
    return true;
}

// clang-format off
constexpr std::array<ZMTpedlFilterEffect::ControlRow, kNumParams>
    ZMTpedlFilterEffect::kControlRows = [] {
    using E = ModFilterEngine;
    using Self = ZMTpedlFilterEffect;
    constexpr std::array<ControlRow, kNumParams> rows{{
    // identifier             engine                       what else follows
    {kPower,                  &E::setPower,                nullptr},
    {kGain,                   &E::setInputGain,            &Self::tellInverseLink},
    {kFreezMode,              nullptr,                     nullptr},
    {kFreez,                  &E::setFreeze,               nullptr},
    {kLFOType,                &E::setLfoType,              nullptr},
    {kLFOFilter,              &E::setLfoFilter,            nullptr},
    {kLFOWidth,               &E::setLfoWidth,             nullptr},
    {kLFOSyncMode,            nullptr,                     &Self::changeSyncMode},
    {kLFOFreq,                &E::setLfoRate,              nullptr},
    {kLFOSynchroRate,         nullptr,                     &Self::changeDivision},
    {kTempoSetup,             nullptr,                     &Self::changeManualTempo},
    {kLFORndmizationType,     &E::setLfoRandomType,        nullptr},
    {kLFORndmization,         &E::setLfoRandomAmount,      nullptr},
    {kLFOSpread,              &E::setLfoSpread,            nullptr},
    {kRateLFOByEnvDefeat,     &E::setEnvToLfoRateSwitch,   nullptr},
    {kRateLFOByEnv,           &E::setEnvToLfoRate,         nullptr},
    {kDepthLFOByEnvDefeat,    &E::setEnvToLfoDepthSwitch,  nullptr},
    {kDepthLFOByEnv,          &E::setEnvToLfoDepth,        nullptr},
    {kFilterType,             &E::setFilterType,           nullptr},
    {kFilterPole,             &E::setFilterSlope,          nullptr},
    {kFilterReso,             &E::setResonance,            nullptr},
    {kFilterCutoffFreq,       &E::setCutoff,               &Self::tellFrequencySlider},
    {kFilterFreqMin,          nullptr,                     nullptr},
    {kFilterFreqMax,          nullptr,                     nullptr},
    {kParam2,                 nullptr,                     nullptr},
    {kFilterSaturation,       &E::setFilterSaturation,     nullptr},
    {kEnvThresholdMode,       &E::setEnvThresholdMode,     nullptr},
    {kEnvThreshold,           &E::setEnvThreshold,         nullptr},
    {kEnvAttack,              &E::setEnvAttack,            nullptr},
    {kEnvAttackExtension,     &E::setEnvAttackExtension,   nullptr},
    {kEnvRelease,             &E::setEnvRelease,           &Self::applyAttackAgain},
    {kEnvRange,               &E::setEnvRange,             nullptr},
    {kFilterFreqByLFODefeat,  &E::setLfoToCutoffSwitch,    nullptr},
    {kFilterFreqByLFO,        &E::setLfoToCutoff,          nullptr},
    {kGainByLFODefeat,        &E::setLfoToGainSwitch,      nullptr},
    {kGainByLFO,              &E::setLfoToGain,            nullptr},
    {kFilterFreqByENVDefeat,  &E::setEnvToCutoffSwitch,    nullptr},
    {kFilterFreqByENV,        &E::setEnvToCutoff,          nullptr},
    {kGainByENVDefeat,        &E::setEnvToGainSwitch,      nullptr},
    {kGainByENV,              &E::setEnvToGain,            nullptr},
    {kFreqFollow,             nullptr,                     nullptr},
    {kLimSoftSatRouting,      &E::setRouting,              nullptr},
    {kLimiterDefeat,          &E::setLimiterSwitch,        nullptr},
    {kLimiterTreshold,        &E::setLimiterLevel,         nullptr},
    {kSoftSatDefeat,          &E::setSaturatorSwitch,      nullptr},
    {kSoftSatTreshold,        &E::setSaturatorDrive,       nullptr},
    {kDryDefeat,              &E::setDrySwitch,            nullptr},
    {kDry,                    nullptr,                     &Self::applyDrySource},
    {kDryGlobal,              nullptr,                     &Self::applyDrySource},
    {kWetDefeat,              &E::setWetSwitch,            nullptr},
    {kWet,                    nullptr,                     &Self::applyWetSource},
    {kWetGlobal,              nullptr,                     &Self::applyWetSource},
    {kDryWetGlobal,           nullptr,                     &Self::applyBothSources},
    {kModulationOnOff,        &E::setModulation,           nullptr},
    {kParam3,                 nullptr,                     nullptr},
    {kFreqNoteScaleSwitch,    nullptr,                     nullptr},
    }};
    static_assert(rowsAreInIndexOrder(rows));
    return rows;
}();
// clang-format on

// Construction and destruction

ZMTpedlFilterEffect::ZMTpedlFilterEffect(audioMasterCallback host, EffectSurroundings surroundings)
    : CPresetSystemEffect(host, surroundings.clock, surroundings.diagnostics,
                          surroundings.settings),
      engine_(surroundings.clock.calendarSeconds()) {
    AudioEffect::setNumInputs(kChannels);
    AudioEffect::setNumOutputs(kChannels);
    AudioEffect::canProcessReplacing(true);
    AudioEffect::canDoubleReplacing(true);
    AudioEffect::setUniqueID(kPluginId);
    AudioEffect::setInitialDelay(0);
    ZMTpedlFilterEffect::initialiseFactoryPrograms();
    holdStartValues();
    startPresetSystem();
    selectProgram(0); // whatever the start sequence left behind, the first program plays
    diagnostics().line("ZMT pedlFilter:start effect");
    engine_.reset();
    ZMTpedlFilterEffect::resume();
    engine_.reset();
}

ZMTpedlFilterEffect::~ZMTpedlFilterEffect() {
    setEditor(nullptr); // the base would delete it, yet a host may still be closing its window
    setView(nullptr);
    diagnostics().line("ZMT pedlFilter:stop effect");
}

void ZMTpedlFilterEffect::initialiseFactoryPrograms() {
    writeFactoryPrograms(editableBank());
}

/// What a parameter holds whose program value turns out to be unusable.
void ZMTpedlFilterEffect::holdStartValues() noexcept {
    for (const ParameterIndex index :
         {kDry, kWet, kDryGlobal, kWetGlobal, kEnvThreshold, kEnvRange})
        hold(index, kUnity);
}

// Identity and capabilities

bool ZMTpedlFilterEffect::getEffectName(char* name) {
    copyText(name, kProductName, kVstMaxEffectNameLen - 1);
    return true;
}

bool ZMTpedlFilterEffect::getProductString(char* text) {
    copyText(text, kProductName, kVstMaxProductStrLen - 1);
    return true;
}

bool ZMTpedlFilterEffect::getVendorString(char* text) {
    copyText(text, kVendorName, kVstMaxVendorStrLen - 1);
    return true;
}

VstInt32 ZMTpedlFilterEffect::getVendorVersion() {
    return kVendorVersion;
}

bool ZMTpedlFilterEffect::getInputProperties(VstInt32 index, VstPinProperties* properties) {
    if (index < 0 || index >= kChannels)
        return false;
    describePin("In", index, *properties);
    return true;
}

bool ZMTpedlFilterEffect::getOutputProperties(VstInt32 index, VstPinProperties* properties) {
    if (index < 0 || index >= kChannels)
        return false;
    describePin("Out", index, *properties);
    return true;
}

bool ZMTpedlFilterEffect::setSpeakerArrangement(VstSpeakerArrangement* pluginInput,
                                                VstSpeakerArrangement* pluginOutput) {
    const VstInt32 inputs = pluginInput->numChannels;
    const VstInt32 outputs = pluginOutput->numChannels;
    const bool isMonoIn = inputs == 1 && (outputs == 1 || outputs == 2);
    const bool isKnown = isMonoIn || (inputs == 2 && outputs == 2);
    isInputStereo_ = !isMonoIn;
    isOutputStereo_ = !(isMonoIn && outputs == 1);
    return isKnown;
}

VstInt32 ZMTpedlFilterEffect::canDo(char* text) {
    if (isOneOf(text, {"offline", "plugAsChannelInsert", "plugAsSend", "mixDryWet", "1in1out",
                       "1in2out", "2in2out"}))
        return 1;
    if (std::string_view(text) == "receiveVstMidiEvent") {
        char question[] = "sendVstMidiEvent";
        return canHostDo(question) == 1 ? 1 : 0;
    }
    return 0;
}

VstIntPtr ZMTpedlFilterEffect::vendorSpecific(VstInt32 index, VstIntPtr value, void* /*ptr*/,
                                              float opt) {
    const bool isSlot = opt >= 0.0F && opt < static_cast<float>(kNumPrograms); // NaN is none
    if (index != kVendorCallId || value != kVendorCallSelectSlot || !isSlot)
        return 0;
    selectProgram(static_cast<std::int32_t>(opt));
    return 1;
}

// Parameter texts

void ZMTpedlFilterEffect::getParameterName(VstInt32 index, char* text) {
    copyText(text, shortParameterName(index), kParameterTextLength);
}

// Hosts have stored parameters under these shortened names for years: keep the cut at 8.
void ZMTpedlFilterEffect::getLongParameterName(std::int32_t index, char* text) {
    copyText(text, longParameterName(index), kParameterTextLength);
}

void ZMTpedlFilterEffect::getParameterLabel(VstInt32 /*index*/, char* label) {
    *label = '\0'; // units are part of the display text where there are any
}

void ZMTpedlFilterEffect::getParameterDisplay(VstInt32 index, char* text) {
    const std::optional<float> requested = requestedDisplayValue(text);
    const bool isLevel = index == kDry || index == kWet;
    const float shown =
        requested.value_or(isLevel ? effectiveDryWetLevel(index) : getParameter(index));
    copyText(text, parameterText(index, shown).view(), kParameterTextLength);
}

bool ZMTpedlFilterEffect::canParameterBeAutomated(VstInt32 index) {
    return isAutomatable(index);
}

bool ZMTpedlFilterEffect::getParameterProperties(VstInt32 index,
                                                 VstParameterProperties* properties) {
    getLongParameterName(index, properties->label);
    copyText(properties->shortLabel, shortParameterName(index), kVstMaxShortLabelLen - 1);
    const std::optional<ParameterSteps> steps = parameterSteps(index);
    if (!steps)
        return false;
    properties->stepFloat = steps->step;
    properties->smallStepFloat = steps->smallStep;
    properties->largeStepFloat = steps->largeStep;
    properties->flags = kVstParameterUsesFloatStep | (steps->isSwitch ? kVstParameterIsSwitch : 0);
    return true;
}

// Parameter values

float ZMTpedlFilterEffect::held(std::int32_t index) const noexcept {
    return held_[static_cast<std::size_t>(index)].get();
}

void ZMTpedlFilterEffect::hold(std::int32_t index, float normalised) noexcept {
    held_[static_cast<std::size_t>(index)].set(normalised);
}

float ZMTpedlFilterEffect::getParameter(VstInt32 index) {
    if (isParameter(index))
        return held(index);
    switch (index) {
    case kDisplayParameterMode:
        return shownQuantity_.get();
    case kDryWetMix:
        return (mixPosition_.get() + 1.0F) * 0.5F;
    case kInverseInputLink:
        return held(kGain); // the linked levels have no value of their own: they follow the gain
    case kLFOFreqOverflow:
        return tempoSync_.isRateOutOfRange() ? 1.0F : 0.0F;
    case kSynchroTempoFromHost:
        return static_cast<float>(tempoSync_.tempoBpm()); // beats per minute, not normalised
    case kParam4:
        return spare4_.get();
    case kParam5:
        return spare5_.get();
    default:
        return CPresetSystemEffect::getParameter(index);
    }
}

void ZMTpedlFilterEffect::setParameter(VstInt32 index, float normalised) {
    if (index < 0 || index > kMidiChannel)
        return;
    const float number = std::isnan(normalised) ? 0.0F : normalised;
    const float value = isRelative(index) ? number : clamped(number);
    if (isParameter(index))
        applyParameter(index, value);
    else
        applyTag(index, value);
    CPresetSystemEffect::setParameter(index, value);
    tellParameter(index, value);
}

void ZMTpedlFilterEffect::applyParameter(std::int32_t index, float normalised) {
    if (index == kDry || index == kWet)
        applyLevel(index, normalised);
    else
        hold(index, normalised);
    const ControlRow& row = kControlRows[static_cast<std::size_t>(index)];
    if (row.toEngine != nullptr)
        (engine_.*row.toEngine)(normalised);
    if (row.consequence != nullptr)
        (this->*row.consequence)();
}

/// In bank mode the dry and wet controls move the level that all programs share. Every program
/// holds a copy of it, so that it outlives the selection of another one.
void ZMTpedlFilterEffect::applyLevel(std::int32_t index, float normalised) {
    if (!isBankMode() || isProgramLoading()) {
        hold(index, normalised);
        return;
    }
    const std::int32_t shared = index == kDry ? kDryGlobal : kWetGlobal;
    hold(shared, normalised);
    editableBank().setValueInEverySlot(shared, normalised);
}

void ZMTpedlFilterEffect::applyTag(std::int32_t index, float value) {
    switch (index) {
    case kFilterFreqSlider:
        automate(kFilterCutoffFreq, value);
        break;
    case kLFOEncoder:
        updateTempoSync();
        break;
    case kDisplayParameterMode:
        shownQuantity_.set(value < 0.5F ? 0.0F : 1.0F);
        tellParameter(kLFOSyncMode, held(kLFOSyncMode)); // its display shows the rate or makes way
        break;
    case kDryWetMix:
        turnMixKnob(value);
        break;
    case kInverseInputLink:
        turnInverseLink(value);
        break;
    case kDryWetAltVol:
        mixKnob_.setMovesBoth(value != 0.0F);
        break;
    case kParam4:
        spare4_.set(value);
        break;
    case kParam5:
        spare5_.set(value);
        break;
    default:
        break; // lamps, meters and what is derived take no values
    }
}

// Consequences

void ZMTpedlFilterEffect::tellInverseLink() {
    tellParameter(kInverseInputLink, held(kGain));
}

void ZMTpedlFilterEffect::tellFrequencySlider() {
    tellParameter(kFilterFreqSlider, held(kFilterCutoffFreq));
}

void ZMTpedlFilterEffect::changeSyncMode() {
    tempoSync_.setMode(held(kLFOSyncMode));
}

void ZMTpedlFilterEffect::changeDivision() {
    tempoSync_.setDivision(held(kLFOSynchroRate));
    updateTempoSync(); // at once, so that a view reads the new rate although no audio runs
}

void ZMTpedlFilterEffect::changeManualTempo() {
    tempoSync_.setManualTempo(held(kTempoSetup));
}

void ZMTpedlFilterEffect::applyAttackAgain() {
    engine_.setEnvAttack(held(kEnvAttack));
}

void ZMTpedlFilterEffect::applyBothSources() {
    applyDryWetSource(kDry);
    applyDryWetSource(kWet);
}

// Dry and wet levels

bool ZMTpedlFilterEffect::isBankMode() const noexcept {
    return held(kDryWetGlobal) >= 0.5F;
}

float ZMTpedlFilterEffect::effectiveDryWetLevel(std::int32_t index) const {
    switch (index) {
    case kDry:
        return held(isBankMode() ? kDryGlobal : kDry);
    case kWet:
        return held(isBankMode() ? kWetGlobal : kWet);
    default:
        return 0.0F;
    }
}

DryWetPair ZMTpedlFilterEffect::levelsInForce() const noexcept {
    return {static_cast<double>(held(isBankMode() ? kDryGlobal : kDry)),
            static_cast<double>(held(isBankMode() ? kWetGlobal : kWet))};
}

void ZMTpedlFilterEffect::applyDryWetSource(std::int32_t index) {
    engine_.setDryLevel(effectiveDryWetLevel(kDry));
    engine_.setWetLevel(effectiveDryWetLevel(kWet));
    mixKnob_.follow(levelsInForce());
    tellParameter(index, effectiveDryWetLevel(index));
}

void ZMTpedlFilterEffect::turnMixKnob(float value) {
    if (value == kResetMarker) {
        mixPosition_.set(0.0F);
        mixKnob_.setPair({kUnity, kUnity});
        automateLevels({kUnity, kUnity});
        return;
    }
    if (isProgramLoading() || !std::isfinite(value))
        return;
    mixPosition_.set(std::clamp(2.0F * value - 1.0F, -1.0F, 1.0F));
    automateLevels(mixKnob_.turn(stepOf(value), levelsInForce()));
}

/// The knob's own pair stays as it is: it may lie beyond the ends at which the levels stop.
void ZMTpedlFilterEffect::automateLevels(DryWetPair levels) {
    mixKnob_.beginMove();
    beginEdit(kDry);
    setParameterAutomated(kDry, static_cast<float>(levels.dry));
    setParameterAutomated(kWet, static_cast<float>(levels.wet));
    endEdit(kDry);
    mixKnob_.endMove();
}

void ZMTpedlFilterEffect::turnInverseLink(float value) {
    if (value == kResetMarker) {
        for (const ParameterIndex index : {kGain, kDry, kWet})
            automate(index, kUnity);
        return;
    }
    if (!std::isfinite(value))
        return;
    const DryWetPair levels = levelsInForce();
    const auto before = static_cast<double>(held(kGain));
    const double after = std::clamp(before + stepOf(value), 0.0, 1.0);
    automate(kGain, static_cast<float>(after));
    // A level is the square of its knob's position: the root of the change keeps the output level.
    const double gainChange = std::pow(10.0, kInputGainSpanDb * (after - before) / 20.0);
    automate(kDry, static_cast<float>(levels.dry / std::sqrt(gainChange)));
    automate(kWet, static_cast<float>(levels.wet / std::sqrt(gainChange)));
}

// Learning

std::int32_t ZMTpedlFilterEffect::learnTarget(std::int32_t tag) {
    switch (tag) {
    case kFilterFreqSlider:
    case kCutoffEncoder:
        return kFilterCutoffFreq;
    case kLFOEncoder:
        return tempoSync_.mode() == SyncMode::Free ? kLFOFreq : kTempoSetup;
    default:
        return tag;
    }
}

bool ZMTpedlFilterEffect::isNotLearnable(std::int32_t index) const {
    return !isParameter(index) && index != kDisplayParameterMode && index != kParam4 &&
           index != kParam5;
}

// Audio

void ZMTpedlFilterEffect::setSampleRate(float rateHz) {
    if (!std::isfinite(rateHz) || rateHz <= 0.0F)
        return;
    CPresetSystemEffect::setSampleRate(rateHz);
    engine_.setSampleRate(static_cast<double>(rateHz));
}

void ZMTpedlFilterEffect::suspend() {
    engine_.reset();
    tellSuspended();
}

void ZMTpedlFilterEffect::resume() {
    const double rateHz = updateSampleRate();
    CPresetSystemEffect::resume();
    engine_.setSampleRate(rateHz);
    engine_.reinitialise(clock().calendarSeconds());
    tempoSync_.reset();
}

void ZMTpedlFilterEffect::processReplacing(float** inputs, float** outputs, VstInt32 sampleFrames) {
    updateTempoSync();
    engine_.processFloat(inputs, outputs, std::max(sampleFrames, 0));
}

void ZMTpedlFilterEffect::processDoubleReplacing(double** inputs, double** outputs,
                                                 VstInt32 sampleFrames) {
    updateTempoSync();
    engine_.processDouble(inputs, outputs, std::max(sampleFrames, 0));
}

// Tempo

/// Nothing where the host has no time. Some hosts fill only the fields that the mask names and hand
/// out one record of their own, so what is needed is read before the next question.
std::optional<HostTime> ZMTpedlFilterEffect::askHostTime() {
    const auto read = [](const VstTimeInfo& info) {
        return HostTime{finite((info.flags & kVstTempoValid) != 0, info.tempo),
                        finite((info.flags & kVstPpqPosValid) != 0, info.ppqPos)};
    };
    const VstTimeInfo* const info = getTimeInfo(kVstPpqPosValid);
    if (info == nullptr)
        return std::nullopt;
    const HostTime time = read(*info);
    if (time.tempoBpm || tempoSync_.mode() != SyncMode::HostTempo)
        return time;
    const VstTimeInfo* const fuller = getTimeInfo(kVstPpqPosValid | kVstTempoValid);
    return fuller != nullptr ? read(*fuller) : time;
}

void ZMTpedlFilterEffect::updateTempoSync() noexcept {
    const std::optional<HostTime> time = askHostTime();
    const TempoSync::Result sync = time ? tempoSync_.update(*time) : TempoSync::Result{};
    if (sync.hasRate && sync.normalisedRate != held(kLFOFreq)) {
        hold(kLFOFreq, sync.normalisedRate); // derived, not edited: neither host nor program hears
        engine_.setLfoRate(sync.normalisedRate);
    }
    engine_.setPhaseSync(sync.isPhaseLocked, sync.phaseCycles);
}

} // namespace pedl
