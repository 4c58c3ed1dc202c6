#include "host/Selection.h"

#include "convert/TextForm.h"
#include "foundation/text/ValueFromText.h"

#include <charconv>

namespace pedl {

namespace {

constexpr int kHighestController = 119; // above are channel mode messages

/// How messages call a parameter.
std::string calledAs(Plugin& plugin, VstInt32 index) {
    const std::string name(trimmed(plugin.parameterName(index)));
    return "parameter " + std::to_string(index) + (name.empty() ? "" : " (" + name + ")");
}

bool isNumber(std::string_view text, double& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc{} && end == text.data() + text.size();
}

} // namespace

std::vector<NamedItem> namedParameters(Plugin& plugin) {
    std::vector<NamedItem> items;
    items.reserve(static_cast<std::size_t>(plugin.numParameters()));
    for (VstInt32 index = 0; index < plugin.numParameters(); ++index)
        items.push_back({index, {plugin.parameterName(index), plugin.parameterLongName(index)}});
    return items;
}

// Ours leaves its units out of the texts and, for the sake of old songs, out of the labels too.
std::string unitOf(Plugin& plugin, VstInt32 index) {
    return plugin.isOurs() ? parameterUnitText(index) : plugin.parameterUnit(index);
}

Result<float> valueReading(Plugin& plugin, VstInt32 index, std::string_view text) {
    Result<float> value = valueFromText(text, unitOf(plugin, index), [&](float normalised) {
        return plugin.displayTextAt(index, normalised);
    });
    if (value.ok())
        return value;
    return value.problem().of(calledAs(plugin, index));
}

Result<Assignment> findAssignment(Plugin& plugin, std::string_view text) {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos)
        return Problem{"\"" + std::string(text) + "\" is not PARAMETER=VALUE"};
    const std::string_view parameter = trimmed(text.substr(0, equals));
    Assignment assignment;
    assignment.value = trimmed(text.substr(equals + 1));
    if (const std::optional<int> index = indexFrom(parameter)) {
        if (*index >= plugin.numParameters())
            return Problem{"there is no parameter " + std::to_string(*index) +
                           "; the plug-in has " + std::to_string(plugin.numParameters()) +
                           ", counted from 0"};
        assignment.index = *index;
        assignment.isByIndex = true;
        return assignment;
    }
    const Result<int> found = findByName(parameter, namedParameters(plugin), "parameter");
    if (!found.ok())
        return found.problem();
    assignment.index = found.value();
    return assignment;
}

Result<Setting> findSetting(Plugin& plugin, std::string_view text) {
    const Result<Assignment> found = findAssignment(plugin, text);
    if (!found.ok())
        return found.problem();
    const Assignment& assignment = found.value();
    if (double number = 0.0; assignment.isByIndex && isNumber(assignment.value, number)) {
        if (!(number >= 0.0 && number <= 1.0))
            return Problem{calledAs(plugin, assignment.index) + ": " + assignment.value +
                           " is outside 0 .. 1, as values by index are"};
        return Setting{assignment.index, static_cast<float>(number)};
    }
    const Result<float> value = valueReading(plugin, assignment.index, assignment.value);
    if (!value.ok())
        return value.problem();
    return Setting{assignment.index, value.value()};
}

Done linkController(Plugin& plugin, std::string_view text) {
    if (!plugin.isOurs())
        return Problem{"only ZMTpedlFilter.so can be told its links"};
    const Result<Assignment> found = findAssignment(plugin, text);
    if (!found.ok())
        return found.problem();
    const std::string& wanted = found.value().value;
    const std::optional<int> controller = indexFrom(wanted);
    if (!controller || *controller > kHighestController)
        return Problem{"\"" + wanted + "\" is not a controller from 0 to " +
                       std::to_string(kHighestController)};
    // Links lie behind the parameters, in their order; the last of the 129 positions is "none".
    plugin.setParameter(plugin.numParameters() + found.value().index,
                        (static_cast<float>(*controller) + 0.5F) / 129.0F);
    return done();
}

Result<std::string> selectProgram(Plugin& plugin, std::string_view nameOrSlot) {
    const std::vector<std::string> names = plugin.programNames();
    const Result<FoundName> found = findNumbered(nameOrSlot, names, "program", "the plug-in");
    if (!found.ok())
        return found.problem();
    const int slot = found.value().index;
    if (!plugin.selectProgram(slot))
        return Problem{"the plug-in does not let program " + std::to_string(slot) +
                       " be selected from outside"};
    return found.value().note;
}

} // namespace pedl
