#include "parameters/ParameterCatalogue.h"

#include "parameters/ValueText.h"

#include <algorithm>

namespace pedl {

namespace {

constexpr float kFineStep = 1.0F / 72.0F;

// clang-format off
constexpr std::array<ParameterSteps, 8> kStepTable{{
    // step         small           large           switch
    {0.5F,          0.5F,           0.5F,           true},  // Switch
    {kFineStep,     1.0F / 360.0F,  1.0F / 36.0F,   false}, // Fine
    {1.0F / 3.0F,   1.0F / 6.0F,    1.0F / 3.0F,    false}, // Three
    {0.125F,        0.0625F,        0.125F,         false}, // Wave
    {0.0025F,       0.00125F,       0.0125F,        false}, // Rate
    {1.0F / 32.0F,  1.0F / 64.0F,   1.0F / 32.0F,   false}, // Note
    {0.00005F,      0.000025F,      0.002F,         false}, // Cutoff
    {kFineStep,     0.004F,         0.02F,          false}, // Spare
}};
// clang-format on
static_assert(static_cast<std::size_t>(StepClass::Spare) + 1 == kStepTable.size());

/// The last of the tags that no host may automate; those behind it answer as unknown indices do.
constexpr std::int32_t kLastGuardedTag = kParam5;

} // namespace

const ParameterRow* findParameterRow(std::int32_t index) noexcept {
    if (isParameter(index))
        return &kParameterRows[static_cast<std::size_t>(index)];
    const auto* const row = std::ranges::find(kTagRows, index, &ParameterRow::index);
    return row == kTagRows.end() ? nullptr : row;
}

std::string_view shortParameterName(std::int32_t index) noexcept {
    const ParameterRow* const row = findParameterRow(index);
    return row != nullptr ? row->shortName : std::string_view();
}

std::string_view longParameterName(std::int32_t index) noexcept {
    const ParameterRow* const row = findParameterRow(index);
    return row != nullptr ? row->longName : std::string_view();
}

bool isAutomatable(std::int32_t index) noexcept {
    if (isParameter(index))
        return findParameterRow(index)->automation == Automation::Yes;
    return index < kEfLEDMeter || index > kLastGuardedTag;
}

std::optional<ParameterSteps> parameterSteps(std::int32_t index) noexcept {
    const ParameterRow* const row = findParameterRow(index);
    if (row == nullptr)
        return std::nullopt;
    return kStepTable[static_cast<std::size_t>(row->steps)];
}

std::string_view parameterUnit(std::int32_t index) noexcept {
    const ParameterRow* const row = findParameterRow(index);
    return row != nullptr ? valueUnit(row->text) : std::string_view();
}

DisplayText parameterText(std::int32_t index, float normalised) {
    const ParameterRow* const row = findParameterRow(index);
    if (row == nullptr)
        return {};
    const float inRange = normalised > 0.0F ? std::min(normalised, 1.0F) : 0.0F; // NaN: 0
    return valueText(row->text, inRange);
}

} // namespace pedl
