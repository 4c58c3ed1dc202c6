#include "presets/factory/DisplayValue.h"

#include "foundation/text/NameMatch.h"
#include "foundation/text/ValueFromText.h"
#include "parameters/ParameterCatalogue.h"
#include "parameters/ValueText.h"

#include <array>
#include <charconv>
#include <string>

namespace pedl {

namespace {

#define PEDL_IDENTIFIER_TEXT(identifier, ...) #identifier,
constexpr std::array<std::string_view, kNumParams> kIdentifiers{
    PEDL_PARAMETER_ROWS(PEDL_IDENTIFIER_TEXT)};
#undef PEDL_IDENTIFIER_TEXT

constexpr std::string_view kNormalised = "normalised ";

Result<float> normalisedValue(std::string_view text) {
    float value = -1.0F;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc{} || end != text.data() + text.size() || !(value >= 0.0F) ||
        value > 1.0F)
        return Problem{"\"" + std::string(text) + "\" is no number from 0 to 1"};
    return value;
}

} // namespace

std::optional<ParameterIndex> parameterByIdentifier(std::string_view identifier) {
    for (std::size_t i = 0; i < kIdentifiers.size(); ++i)
        if (kIdentifiers[i] == identifier)
            return static_cast<ParameterIndex>(i);
    return std::nullopt;
}

Result<float> valueInDisplayTerms(ParameterIndex parameter, std::string_view text) {
    if (text.starts_with(kNormalised))
        return normalisedValue(trimmed(text.substr(kNormalised.size())));
    const std::string_view unit =
        valueUnit(kParameterRows[static_cast<std::size_t>(parameter)].text);
    if (!unit.empty() && !text.ends_with(unit))
        return Problem{"\"" + std::string(text) + "\" wants the unit " + std::string(unit)};
    text.remove_suffix(unit.size());
    return valueFromText(trimmed(text), {}, [parameter](float normalised) {
        return std::string(parameterText(parameter, normalised).view());
    });
}

} // namespace pedl
