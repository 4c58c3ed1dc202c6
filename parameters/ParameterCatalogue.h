#pragma once

#include "parameters/DisplayText.h"
#include "parameters/ParameterIndex.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string_view>

namespace pedl {

/// How a normalised value reads as text.
enum class TextRule {
    Empty,
    Process,         ///< "process", "bypass"
    OnOff,           ///< "off", "on"
    FreezeMode,      ///< "monoOn", "monoOff", "bistable"
    SyncMode,        ///< "off", "BPM", "hostBPM"
    Slope,           ///< "off", "12 dB", "24 dB"
    ThresholdMode,   ///< "abovethrs", "belowthrs", "around"
    Routing,         ///< "pre WET", "post WET", "post MIX"
    Wave,            ///< the seven LFO waves
    RandomType,      ///< "fastRND", "slowRND"
    LevelSource,     ///< "preset", "bank"
    Modulation,      ///< "Mod on" at 0, "Mod off"
    NoteScale,       ///< "freq", "note"
    ShownQuantity,   ///< "Freq", "LFO"
    GainDb,          ///< -24..24 dB
    Percent,         ///< 0..100
    BipolarPercent,  ///< -100..100
    SpreadDegrees,   ///< -180..180
    WidthRatio,      ///< "75:25".."25:75"
    LfoRateHz,       ///< 0.01..15
    TempoBpm,        ///< 15..600
    Note,            ///< length of one LFO cycle
    FilterMorph,     ///< "LPF", "L7:B3", "BPF", "B4:H6", "HPF"
    CutoffHz,        ///< 20..20000
    ThresholdDb,     ///< -48..0 dB
    AttackMs,        ///< 1..2000
    ExtensionFactor, ///< "off", "x0.1".."x4.0"
    ReleaseMs,       ///< 3..3000
    LevelDb          ///< silence to 12 dB
};

/// How finely a host's own controls step a value.
enum class StepClass { Switch, Fine, Three, Wave, Rate, Note, Cutoff, Spare };

enum class Automation : bool { No, Yes };

/// Step widths that a host is told, in normalised units.
struct ParameterSteps {
    float step = 0.0F;
    float smallStep = 0.0F;
    float largeStep = 0.0F;
    bool isSwitch = false;
};

/// Everything the catalogue knows of one parameter or tag.
struct ParameterRow {
    std::int32_t index;
    std::string_view shortName;
    std::string_view longName; ///< in full; hosts and the view receive eight characters of it
    TextRule text;
    float defaultValue; ///< in the factory program "Default"
    StepClass steps;
    Automation automation;
};

// clang-format off
/// One row a parameter, in index order. Rows without a name are hidden from hosts.
constexpr auto kParameterRows = [] {
    using enum TextRule;
    using enum Automation;
    return std::array<ParameterRow, kNumParams>{{
    // identifier             short      long                     text             Default    steps              automated
    {kPower,                 "Byps",    "Bypass",                Process,         0.0F,      StepClass::Switch, Yes},
    {kGain,                  "Gain",    "Gain",                  GainDb,          0.5F,      StepClass::Fine,   Yes},
    {kFreezMode,             "FrzMode", "FreezMode",             FreezeMode,      0.0F,      StepClass::Three,  Yes},
    {kFreez,                 "Freeze",  "Freez",                 OnOff,           0.0F,      StepClass::Switch, Yes},
    {kLFOType,               "LFOwave", "LFOWave",               TextRule::Wave,  0.0F,      StepClass::Wave,   Yes},
    {kLFOFilter,             "LFOfltr", "LFOflt",                Percent,         0.5F,      StepClass::Fine,   Yes},
    {kLFOWidth,              "LFOwidh", "LFOwidh",               WidthRatio,      0.5F,      StepClass::Fine,   Yes},
    {kLFOSyncMode,           "LFOsync", "LFOsync",               SyncMode,        0.0F,      StepClass::Three,  Yes},
    {kLFOFreq,               "LFOfreq", "LFOfreq",               LfoRateHz,       0.066044F, StepClass::Rate,   Yes},
    {kLFOSynchroRate,        "LFOnote", "LFOnote",               TextRule::Note,  0.290323F, StepClass::Note,   Yes},
    {kTempoSetup,            "Tempo",   "Tempo BPM",             TempoBpm,        0.179487F, StepClass::Rate,   Yes},
    {kLFORndmizationType,    "RNDtype", "RNDtype",               RandomType,      0.0F,      StepClass::Switch, Yes},
    {kLFORndmization,        "LFOrnd",  "LFOrandomization",      Percent,         0.0F,      StepClass::Fine,   Yes},
    {kLFOSpread,             "LFOsprd", "LFOsprd",               SpreadDegrees,   0.5F,      StepClass::Fine,   Yes},
    {kRateLFOByEnvDefeat,    "ELfoRSt", "ELFOrSt",               OnOff,           0.0F,      StepClass::Switch, Yes},
    {kRateLFOByEnv,          "EnLfoRt", "EF-LFO",                BipolarPercent,  0.5F,      StepClass::Fine,   Yes},
    {kDepthLFOByEnvDefeat,   "ELfoDSt", "ELFOdSt",               OnOff,           0.0F,      StepClass::Switch, Yes},
    {kDepthLFOByEnv,         "EnLfoDt", "EF-LFOdeep",            BipolarPercent,  0.5F,      StepClass::Fine,   Yes},
    {kFilterType,            "FltrTyp", "Filter Type",           FilterMorph,     0.0F,      StepClass::Fine,   Yes},
    {kFilterPole,            "FltrSlp", "Filter Slope",          Slope,           1.0F,      StepClass::Switch, Yes},
    {kFilterReso,            "FltrRes", "Filter Q",              Percent,         0.300797F, StepClass::Fine,   Yes},
    {kFilterCutoffFreq,      "FltrCut", "Filter Cutoff",         CutoffHz,        0.566642F, StepClass::Cutoff, Yes},
    {kFilterFreqMin,         "",        "",                      Empty,           0.0F,      StepClass::Cutoff, No},
    {kFilterFreqMax,         "",        "",                      Empty,           1.0F,      StepClass::Cutoff, No},
    {kParam2,                "",        "",                      Empty,           0.0F,      StepClass::Spare,  No},
    {kFilterSaturation,      "FltrSat", "Filter Saturate",       Percent,         0.5F,      StepClass::Fine,   Yes},
    {kEnvThresholdMode,      "ThrsMod", "EFthresholdMode",       ThresholdMode,   0.0F,      StepClass::Switch, Yes},
    {kEnvThreshold,          "Thresh",  "EFthreshold",           ThresholdDb,     0.5F,      StepClass::Fine,   Yes},
    {kEnvAttack,             "Attack",  "EFattack",              AttackMs,        0.67191F,  StepClass::Fine,   Yes},
    {kEnvAttackExtension,    "AtkExtn", "EFattackExtended",      ExtensionFactor, 0.5F,      StepClass::Fine,   Yes},
    {kEnvRelease,            "Release", "EFrelease",             ReleaseMs,       0.667329F, StepClass::Fine,   Yes},
    {kEnvRange,              "Range",   "EFrange",               Percent,         0.504156F, StepClass::Fine,   Yes},
    {kFilterFreqByLFODefeat, "LfFrqSt", "LFrqSta",               OnOff,           0.0F,      StepClass::Switch, Yes},
    {kFilterFreqByLFO,       "LfoFreq", "LFO-Frq",               Percent,         0.0F,      StepClass::Fine,   Yes},
    {kGainByLFODefeat,       "LGainSt", "LGaiSta",               OnOff,           0.0F,      StepClass::Switch, Yes},
    {kGainByLFO,             "LfoGain", "LFO-Gain",              BipolarPercent,  0.5F,      StepClass::Fine,   Yes},
    {kFilterFreqByENVDefeat, "EnFrqSt", "EFrqSta",               OnOff,           1.0F,      StepClass::Switch, Yes},
    {kFilterFreqByENV,       "EnvFreq", "EF-Frq",                BipolarPercent,  0.849953F, StepClass::Fine,   Yes},
    {kGainByENVDefeat,       "EGainSt", "EGaiSta",               OnOff,           0.0F,      StepClass::Switch, Yes},
    {kGainByENV,             "EnvGain", "EF-Gain",               BipolarPercent,  0.5F,      StepClass::Fine,   Yes},
    {kFreqFollow,            "",        "",                      Empty,           0.0F,      StepClass::Fine,   No},
    {kLimSoftSatRouting,     "Route",   "Route",                 Routing,         0.0F,      StepClass::Three,  Yes},
    {kLimiterDefeat,         "LimStat", "Limiter Status",        OnOff,           1.0F,      StepClass::Switch, Yes},
    {kLimiterTreshold,       "LimLvl",  "Limiter Level",         Percent,         0.5F,      StepClass::Fine,   Yes},
    {kSoftSatDefeat,         "SatStat", "SoftSat Status",        OnOff,           1.0F,      StepClass::Switch, Yes},
    {kSoftSatTreshold,       "SatLvl",  "SoftSat Level",         Percent,         0.5F,      StepClass::Fine,   Yes},
    {kDryDefeat,             "DryStat", "DryStat",               OnOff,           0.0F,      StepClass::Switch, Yes},
    {kDry,                   "Dry",     "Dry",                   LevelDb,         0.5F,      StepClass::Fine,   Yes},
    {kDryGlobal,             "",        "",                      Empty,           0.5F,      StepClass::Fine,   No},
    {kWetDefeat,             "WetStat", "WetStat",               OnOff,           1.0F,      StepClass::Switch, Yes},
    {kWet,                   "Wet",     "Wet",                   LevelDb,         0.5F,      StepClass::Fine,   Yes},
    {kWetGlobal,             "",        "",                      Empty,           0.5F,      StepClass::Fine,   No},
    {kDryWetGlobal,          "DW_Glb",  "DW_Glb",                LevelSource,     0.0F,      StepClass::Switch, Yes},
    {kModulationOnOff,       "AllMod",  "All Modulation Switch", Modulation,      0.0F,      StepClass::Switch, Yes},
    {kParam3,                "",        "",                      Empty,           0.0F,      StepClass::Spare,  No},
    {kFreqNoteScaleSwitch,   "Scale",   "Scale",                 NoteScale,       0.0F,      StepClass::Switch, Yes},
    }};
}();

/// Tags beyond the parameters that a host or the view may ask about.
constexpr auto kTagRows = [] {
    using enum TextRule;
    using enum Automation;
    return std::array<ParameterRow, 5>{{
    {kDisplayParameterMode,  "DispMod", "DisplayMode",           ShownQuantity,   0.0F,      StepClass::Switch, No},
    // The two relative controls have no name: a host that shows one would invite automating a knob
    // that only knows steps.
    {kDryWetMix,             "",        "",                      Empty,           0.5F,      StepClass::Fine,   No},
    {kInverseInputLink,      "",        "",                      Empty,           0.5F,      StepClass::Fine,   No},
    {kParam4,                "",        "",                      Empty,           0.0F,      StepClass::Spare,  No},
    {kParam5,                "",        "",                      Empty,           0.0F,      StepClass::Spare,  No},
    }};
}();
// clang-format on

[[nodiscard]] consteval bool rowsAreInIndexOrder() {
    for (std::int32_t index = 0; index < kNumParams; ++index)
        if (kParameterRows[static_cast<std::size_t>(index)].index != index)
            return false;
    return true;
}
static_assert(rowsAreInIndexOrder());

/// The row of a parameter or tag; null for an index that has none.
[[nodiscard]] const ParameterRow* findParameterRow(std::int32_t index) noexcept;

/// The short name, at most seven characters; empty for an index without a row.
[[nodiscard]] std::string_view shortParameterName(std::int32_t index) noexcept;

/// The long name in full; empty for an index without a row.
[[nodiscard]] std::string_view longParameterName(std::int32_t index) noexcept;

/// Whether a host may automate the index. An index that does not exist answers true, as the plug-in
/// interface's base class would.
[[nodiscard]] bool isAutomatable(std::int32_t index) noexcept;

/// The step widths of the index's class; nothing where it has none.
[[nodiscard]] std::optional<ParameterSteps> parameterSteps(std::int32_t index) noexcept;

/// The text of a value, its unit included where it has one.
///
/// @param normalised  0..1; what lies outside is taken as the nearer bound, NaN as 0
///
/// Thread: any, real time.
[[nodiscard]] DisplayText parameterText(std::int32_t index, float normalised);

} // namespace pedl
