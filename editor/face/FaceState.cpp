#include "editor/face/FaceState.h"

#include "editor/ControlLayout.h"
#include "parameters/ParameterCatalogue.h"

#include <utility>

namespace pedl::skin {

namespace {

constexpr int kLitFrame = 2; // of a bar's button that stays on

FaceState withDefaults() {
    FaceState state;
    for (const ParameterRow& row : kParameterRows)
        state.values[static_cast<std::size_t>(row.index)] = row.defaultValue;
    state.barFrames[kHintsOnOff] = kLitFrame;
    return state;
}

} // namespace

FaceState defaultState() {
    FaceState state = withDefaults();
    state.lamps = {{kEfLEDMeter, 0.25F},
                   {kLfoLEDMeter_L, 0.55F},
                   {kLfoLEDMeter_R, 0.55F},
                   {kWetLEDMeter, 0.42F},
                   {kDisplayMode_Cutoff, 1.0F}};
    return state;
}

FaceState busyState() {
    FaceState state = withDefaults();
    // clang-format off
    for (const auto& [index, value] : std::initializer_list<std::pair<std::int32_t, float>>{
             {kPower, 1.0F}, {kFreez, 1.0F}, {kFreezMode, 1.0F}, {kModulationOnOff, 1.0F},
             {kFreqNoteScaleSwitch, 1.0F}, {kLFOSyncMode, 0.5F}, {kLFOSynchroRate, 14.5F / 31},
             {kGain, 0.62F}, {kFilterFreqByLFO, 0.72F}, {kGainByLFO, 0.28F},
             {kFilterFreqByENV, 0.2F}, {kGainByENV, 0.78F}, {kDry, 0.38F}, {kWet, 0.66F},
             {kLFOSpread, 0.81F}, {kRateLFOByEnv, 0.7F}, {kDepthLFOByEnv, 0.3F},
             {kEnvThreshold, 0.61F}, {kEnvAttack, 0.31F}, {kEnvRelease, 0.82F}, {kEnvRange, 0.74F},
             {kLFOFilter, 0.2F}, {kLFOWidth, 0.34F}, {kLFORndmization, 0.6F}, {kFilterType, 0.5F},
             {kFilterReso, 0.84F}, {kFilterSaturation, 0.7F}, {kLimiterTreshold, 0.33F},
             {kSoftSatTreshold, 0.8F}, {kEnvAttackExtension, 0.75F}, {kLFOType, 5.0F / 6},
             {kFilterPole, 0.5F}, {kLimSoftSatRouting, 1.0F}, {kEnvThresholdMode, 1.0F},
             {kLFORndmizationType, 1.0F}, {kFilterCutoffFreq, 0.71F}, {kDryDefeat, 1.0F},
             {kRateLFOByEnvDefeat, 1.0F}, {kDepthLFOByEnvDefeat, 1.0F}, {kDryWetGlobal, 1.0F}})
        state.values[static_cast<std::size_t>(index)] = value;
    // clang-format on
    state.display = kLFOSynchroRate;
    state.lamps = {{kEfLEDMeter, 0.9F},         {kLfoLEDMeter_L, 0.95F}, {kLfoLEDMeter_R, 0.3F},
                   {kLimiterLEDMeter, 1.0F},    {kSoftSatLED, 0.9F},     {kFreezStatusLED, 1.0F},
                   {kPowerLED, 1.0F},           {kWetLEDMeter, 0.95F},   {kDryLEDMeter, 0.6F},
                   {kDisplayMode_LFORate, 1.0F}};
    state.lfoEncoder = 0.58F;
    state.cutoffEncoder = 0.33F;
    state.isWaveListOpen = true;
    state.hoveredWave = 3;
    state.barFrames[kMidiLearn] = kLitFrame;
    state.isMidiActive = true;
    state.programName = "Slow Tide, Warm Tape";
    state.controller = "assignment not available";
    state.hasController = false;
    state.channel = "Ch 3";
    state.hint = "All modulation in lock state (off). Click the MODULATION label to unlock";
    return state;
}

} // namespace pedl::skin
