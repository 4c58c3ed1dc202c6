#include "presets/FactoryPrograms.h"

#include "parameters/ParameterCatalogue.h"
#include "presets/ProgramBank.h"

#include <algorithm>
#include <array>
#include <cassert>
#include <span>

namespace pedl {

namespace {

// clang-format off
/// Names in slot order; the number behind a line is the slot of its first name. All slots behind
/// the last one are "Init".
constexpr std::array<std::string_view, 120> kNames{
    "Default",                 "Auto Wah",                "Envelope Filter", // 0
    "ReverseEnvelopeFilter",   "Cry Baby",                "Duck Guitar", // 3
    "Whistle Drums",           "Goes Down",               "Percussion", // 6
    "Wind Choir",              "Resonating Pad",          "Funk Guitar Fun", // 9
    "Old Glossy Piano",        "Analog LFO",              "Smooth LFO Filter", // 12
    "Random1 Sine LFO",        "Random2 Sine LFO",        "Random Analog LFO 1", // 15
    "Random Analog LFO 2",     "Level Dependent LFO 1",   "Level Dependent LFO 2", // 18
    "Saturated Perc [snc]",    "Loop Spreader",           "Triangle [snc]", // 21
    "Mandolin [snc]",          "Univibe Fast",            "Univibe Mid", // 24
    "Univibe Slow",            "Duck Choir [snc]",        "Wah Rhodes", // 27
    "Mwa-Mwa [snc]",           "Organ Bite [snc]",        "Auto Chorus [snc]", // 30
    "Decay Vibrato",           "Less-lie",                "Tremolo", // 33
    "Gate Pad [snc]",          "French House [snc]",      "Hihat Isolator [snc]", // 36
    "Rtm Energizer [snc]",     "Hihat Animator [snc]",    "Spiky Madness", // 39
    "SFX Sweep L -> R",        "Wild Randomness",         "Ascending LFO", // 42
    "Slowly Returning",        "Cat",                     "Duck Disappears", // 45
    "Kick Gun [snc]",          "Chaka [snc]",             "Congo Rain [snc]", // 48
    "Oriental Drum",           "Out of Space",            "Waterfall", // 51
    "Cloudy Pad",              "Low Ambient",             "Just a Few", // 54
    "Drunk Morse Code",        "Goes Crazy",              "Guggle-Guggle", // 57
    "Reset [snc]",             "Swirling Attack",         "Etching", // 60
    "BrightChordsFlux [snc]",  "Open Pad",                "Super Sub", // 63
    "Guitar Tremolo [snc]",    "Ambient Light",           "Wha Wha Pad", // 66
    "303 Enhancer [snc]",      "303 StereoPhasing [snc]", "Set Cutoff 4 Air [snc]", // 69
    "Arp Radio Effect [snc]",  "Helicopter [snc]",        "Drums Shaker HPF [snc]", // 72
    "FunkyTremblingDrums",     "Tempo Wah [snc]",         "Drums Gate HPF [snc]", // 75
    "BassGuitarEnhance [snc]", "Sparkle 1 [snc]",         "Sparkle 2 [snc]", // 78
    "SlightMotionKickEnh",     "Colossus [snc]",          "Brk Loop [snc]", // 81
    "Oct LFO Wobbler",         "Chopper in the Distance", "Mumbling", // 84
    "Mutronn 1 [sync]",        "Mutronn 1",               "Ray Gun", // 87
    "Pan LFO",                 "Wobble",                  "Tovekarlin CLAV", // 90
    "BrulioSuperThin CLAV",    "BrulioHigherGround CLAV", "Monster Bass [snc]", // 93
    "ElectroTalkbox [snc]",    "Slap Funk [snc]",         "Piano Wha", // 96
    "Top Mod 4 Drums [snc]",   "Atomic Age",              "Fltr Scratch [snc]", // 99
    "Arp Destroyer [snc]",     "Warm Pad Mod [snc]",      "Squared LFO Pad [snc]", // 102
    "Jew's harp [snc]",        "Underwater Beats [snc]",  "Turbo Loop [snc]", // 105
    "Rtm Destro [snc]",        "Fltr Alien [snc]",        "Conga Waterdrops", // 108
    "Moving Hats [snc]",       "Missing Ingredient",      "Soft Compression", // 111
    "Parallel Compression",    "Worn Tape",               "HeavilyWornTape", // 114
    "Manual LPF 24dB/oct",     "Manual MPF 24dB/oct",     "Manual HPF 24dB/oct", // 117
};
// clang-format on

constexpr std::string_view kInitName = "Init";

/// What a program has other than "Default".
struct Difference {
    ParameterIndex parameter;
    float normalised;
};

// clang-format off
constexpr Difference kAutoWah[] = {
    {kRateLFOByEnvDefeat, 1.0F}, {kDepthLFOByEnvDefeat, 1.0F},  {kFilterReso, 0.5F},
    {kFilterCutoffFreq, 0.233267F}, {kEnvThreshold, 0.372563F}, {kEnvAttack, 0.304438F},
    {kEnvRelease, 0.5F}, {kEnvRange, 0.797359F}, {kFilterFreqByENV, 1.0F}, {kLimiterDefeat, 0.0F},
    {kDryGlobal, 0.0F},
};

constexpr Difference kEnvelopeFilter[] = {
    {kFilterReso, 0.703031F}, {kFilterCutoffFreq, 0.386101F}, {kEnvAttack, 0.864141F},
    {kEnvRelease, 0.673141F}, {kEnvRange, 0.85225F}, {kFilterFreqByENV, 0.999953F},
};

/// Everything that moves the cut-off is off: a filter to play by hand.
constexpr Difference kManualFilter[] = {
    {kRateLFOByEnvDefeat, 1.0F}, {kDepthLFOByEnvDefeat, 1.0F}, {kFilterReso, 0.5F},
    {kFilterCutoffFreq, 0.547818F}, {kFilterSaturation, 0.0F}, {kEnvAttack, 0.5F},
    {kEnvRelease, 0.5F}, {kEnvRange, 0.5F}, {kFilterFreqByLFO, 0.5F},
    {kFilterFreqByENVDefeat, 0.0F}, {kFilterFreqByENV, 0.5F}, {kLimiterTreshold, 0.7F},
    {kSoftSatDefeat, 0.0F},
};

constexpr Difference kHighPass[] = {{kFilterType, 1.0F}};
constexpr Difference kInit[] = {{kEnvThreshold, 0.374469F}};
constexpr Difference kManualTempo[] = {{kLFOSyncMode, 0.5F}};
// clang-format on

constexpr std::int32_t kAutoWahSlot = 1;
constexpr std::int32_t kEnvelopeFilterSlot = 2;
constexpr std::int32_t kManualLowPassSlot = 117;
constexpr std::int32_t kManualHighPassSlot = 119;

// Synchronised although their names do not say so.
constexpr std::int32_t kPanLfoSlot = 90;
constexpr std::int32_t kTovekarlinSlot = 92;

bool isInit(std::int32_t slot) {
    return slot >= static_cast<std::int32_t>(kNames.size());
}

bool isSynchronised(std::int32_t slot) {
    const std::string_view name = factoryProgramName(slot);
    return name.ends_with("[snc]") || name.ends_with("[sync]") || slot == kPanLfoSlot ||
           slot == kTovekarlinSlot;
}

void apply(std::span<const Difference> differences, ProgramRecord& program) {
    for (const Difference& difference : differences)
        program.normalised[static_cast<std::size_t>(difference.parameter)] = difference.normalised;
}

} // namespace

std::string_view factoryProgramName(std::int32_t slot) noexcept {
    assert(isProgramSlot(slot) && "caller checks the slot");
    return isInit(slot) ? kInitName : kNames[static_cast<std::size_t>(slot)];
}

ProgramRecord factoryProgram(std::int32_t slot) noexcept {
    ProgramRecord program{toProgramName(factoryProgramName(slot)), {}};
    std::ranges::transform(kParameterRows, program.normalised.begin(), &ParameterRow::defaultValue);
    if (slot == kAutoWahSlot)
        apply(kAutoWah, program);
    if (slot == kEnvelopeFilterSlot)
        apply(kEnvelopeFilter, program);
    if (slot == kManualLowPassSlot || slot == kManualHighPassSlot)
        apply(kManualFilter, program);
    if (slot == kManualHighPassSlot)
        apply(kHighPass, program);
    if (isSynchronised(slot))
        apply(kManualTempo, program);
    if (isInit(slot))
        apply(kInit, program);
    return program;
}

void writeFactoryPrograms(ProgramBank& bank) noexcept {
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        bank.setRecord(slot, factoryProgram(slot));
}

} // namespace pedl
