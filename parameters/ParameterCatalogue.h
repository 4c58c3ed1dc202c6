#pragma once

#include "parameters/DisplayText.h"
#include "parameters/ParameterIndex.h"
#include "parameters/ParameterRows.h"

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
#define PEDL_CATALOGUE_ROW(identifier, shortName, longName, text, defaultValue, steps, automation, ...) \
    ParameterRow{identifier, shortName, longName, TextRule::text,                                        \
                 defaultValue, StepClass::steps, Automation::automation},
/// The rows of `ParameterRows.h`, in index order.
constexpr std::array<ParameterRow, kNumParams> kParameterRows{{
    PEDL_PARAMETER_ROWS(PEDL_CATALOGUE_ROW)
}};
#undef PEDL_CATALOGUE_ROW

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

/// The unit of the numbers that a parameter shows ("Hz", "ms"), which its texts leave out; empty
/// for one that shows words, factors or a unit of its own.
[[nodiscard]] std::string_view parameterUnit(std::int32_t index) noexcept;

} // namespace pedl
