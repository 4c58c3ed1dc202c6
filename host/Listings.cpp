#include "host/Listings.h"

#include "foundation/text/FormattedText.h"
#include "foundation/text/NameMatch.h"
#include "foundation/text/PrintableText.h"
#include "foundation/text/Utf8.h"
#include "host/Selection.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <cstring>

namespace pedl {

namespace {

using Json = nlohmann::ordered_json; // keys in the order in which they are read

struct Flag {
    VstInt32 bit;
    const char* key;
    const char* text;
};

// clang-format off
constexpr std::array<Flag, 6> kFlags{{
    {effFlagsHasEditor,          "hasEditor",          "has an editor"},
    {effFlagsCanReplacing,       "canReplacing",       "processes 32-bit audio"},
    {effFlagsCanDoubleReplacing, "canDoubleReplacing", "processes 64-bit audio"},
    {effFlagsProgramChunks,      "programChunks",      "keeps its state in chunks"},
    {effFlagsIsSynth,            "isSynth",            "is an instrument"},
    {effFlagsNoSoundInStop,      "noSoundInStop",      "is silent when it hears nothing"},
}};
// clang-format on

constexpr std::array<const char*, 12> kCategories{
    "unknown",     "effect",          "synth",       "analysis",        "mastering", "spatial",
    "room effect", "surround effect", "restoration", "offline process", "shell",     "generator"};

/// What hosts ask plug-ins about.
constexpr std::array<const char*, 19> kAbilities{"sendVstEvents",
                                                 "sendVstMidiEvent",
                                                 "receiveVstEvents",
                                                 "receiveVstMidiEvent",
                                                 "receiveVstTimeInfo",
                                                 "offline",
                                                 "midiProgramNames",
                                                 "bypass",
                                                 "plugAsChannelInsert",
                                                 "plugAsSend",
                                                 "mixDryWet",
                                                 "noRealTime",
                                                 "multipass",
                                                 "metapass",
                                                 "1in1out",
                                                 "1in2out",
                                                 "2in1out",
                                                 "2in2out",
                                                 "hasCockosExtensions"};

std::string text(const Json& json) {
    return json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

/// Rows of cells as lines of aligned columns; the first column stands right.
std::string table(const std::vector<std::vector<std::string>>& rows) {
    std::vector<std::size_t> widths;
    for (const auto& row : rows)
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths.resize(std::max(widths.size(), column + 1));
            widths[column] = std::max(widths[column], countCharacters(row[column]));
        }
    std::string lines;
    for (const auto& row : rows) {
        std::string line;
        for (std::size_t column = 0; column < row.size(); ++column) {
            const std::string blanks(widths[column] - countCharacters(row[column]), ' ');
            line += (column == 0 ? blanks + row[column] : "  " + row[column] + blanks);
        }
        lines += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return lines;
}

std::string fourCharacters(VstInt32 code) {
    std::string characters;
    for (int shift = 24; shift >= 0; shift -= 8)
        characters += static_cast<char>((static_cast<std::uint32_t>(code) >> shift) & 0xFFU);
    return printableText(characters);
}

template <std::size_t Bytes> std::string field(const char (&characters)[Bytes]) {
    return printableText(std::string_view(characters, strnlen(characters, Bytes)));
}

std::string fourDecimals(float value) {
    return formatted("%.4f", static_cast<double>(value));
}

Json number(float value) {
    return std::isfinite(value) ? Json(value) : Json(nullptr);
}

struct ParameterLine {
    VstInt32 index = 0;
    std::string name, longName, display, unit;
    float value = 0.0F;
    bool canBeAutomated = false;
};

std::vector<ParameterLine> parameterLines(Plugin& plugin) {
    std::vector<ParameterLine> lines;
    lines.reserve(static_cast<std::size_t>(plugin.numParameters()));
    for (VstInt32 index = 0; index < plugin.numParameters(); ++index)
        lines.push_back({index, plugin.parameterName(index), plugin.parameterLongName(index),
                         plugin.displayText(index), unitOf(plugin, index), plugin.parameter(index),
                         plugin.canBeAutomated(index)});
    return lines;
}

Json parametersAsJson(Plugin& plugin) {
    Json list = Json::array();
    for (const ParameterLine& line : parameterLines(plugin))
        list.push_back({{"index", line.index},
                        {"name", line.name},
                        {"longName", line.longName},
                        {"value", number(line.value)},
                        {"display", line.display},
                        {"unit", line.unit},
                        {"automatable", line.canBeAutomated}});
    return list;
}

using NumberedNames = std::vector<std::pair<std::size_t, std::string>>;

NumberedNames programsWith(Plugin& plugin, const std::string& part) {
    NumberedNames found;
    std::size_t slot = 0;
    for (std::string& name : plugin.programNames()) {
        if (lowerCase(name).find(lowerCase(part)) != std::string::npos)
            found.emplace_back(slot, std::move(name));
        ++slot;
    }
    return found;
}

Json programsAsJson(const NumberedNames& programs) {
    Json list = Json::array();
    for (const auto& [slot, name] : programs)
        list.push_back({{"slot", slot}, {"name", name}});
    return list;
}

std::vector<VstPinProperties> pins(Plugin& plugin, bool areInputs) {
    const VstInt32 count = areInputs ? plugin.record().numInputs : plugin.record().numOutputs;
    std::vector<VstPinProperties> all;
    all.reserve(static_cast<std::size_t>(count));
    for (VstInt32 index = 0; index < count; ++index)
        all.push_back((areInputs ? plugin.inputPin(index) : plugin.outputPin(index))
                          .value_or(VstPinProperties{}));
    return all;
}

Json pinsAsJson(const std::vector<VstPinProperties>& all) {
    Json list = Json::array();
    for (const VstPinProperties& pin : all)
        list.push_back({{"label", field(pin.label)},
                        {"shortLabel", field(pin.shortLabel)},
                        {"flags", pin.flags}});
    return list;
}

std::string pinsAsText(const std::vector<VstPinProperties>& all) {
    std::string labels;
    for (const VstPinProperties& pin : all)
        if (const std::string label = field(pin.label); !label.empty())
            labels += (labels.empty() ? "" : ", ") + label;
    return std::to_string(all.size()) + (labels.empty() ? "" : ": " + labels);
}

const char* categoryName(VstIntPtr category) {
    const bool isKnown = category >= 0 && category < static_cast<VstIntPtr>(kCategories.size());
    return isKnown ? kCategories[static_cast<std::size_t>(category)] : "unknown";
}

Json infoAsJson(Plugin& plugin, const std::string& path) {
    const AEffect& record = plugin.record();
    Json flags = Json::object();
    for (const Flag& flag : kFlags)
        flags[flag.key] = (record.flags & flag.bit) != 0;
    Json abilities = Json::object();
    for (const char* ability : kAbilities)
        abilities[ability] = plugin.canDo(ability);
    return {{"path", path},
            {"name", plugin.name()},
            {"product", plugin.product()},
            {"vendor", plugin.vendor()},
            {"uniqueId", fourCharacters(record.uniqueID)},
            {"uniqueIdNumber", record.uniqueID},
            {"version", record.version},
            {"vendorVersion", plugin.call(effGetVendorVersion)},
            {"vstVersion", plugin.call(effGetVstVersion)},
            {"category", categoryName(plugin.call(effGetPlugCategory))},
            {"latencyFrames", record.initialDelay},
            {"tailFrames", plugin.call(effGetTailSize)},
            {"flags", flags},
            {"inputs", pinsAsJson(pins(plugin, true))},
            {"outputs", pinsAsJson(pins(plugin, false))},
            {"canDo", abilities},
            {"declaredPrograms", record.numPrograms},
            {"programs", programsAsJson(programsWith(plugin, ""))},
            {"parameters", parametersAsJson(plugin)}};
}

std::string tailText(VstIntPtr frames) {
    return frames == 0 ? "not stated" : frames == 1 ? "none" : std::to_string(frames) + " frames";
}

std::string abilitiesThatAnswer(Plugin& plugin, VstIntPtr answer) {
    std::string list;
    for (const char* ability : kAbilities)
        if (plugin.canDo(ability) == answer)
            list += (list.empty() ? "" : ", ") + std::string(ability);
    return list.empty() ? "-" : list;
}

std::string infoAsText(Plugin& plugin, const std::string& path) {
    const AEffect& record = plugin.record();
    std::string flags;
    for (const Flag& flag : kFlags)
        if ((record.flags & flag.bit) != 0)
            flags += (flags.empty() ? "" : ", ") + std::string(flag.text);

    std::string lines;
    const auto line = [&lines](const std::string& what, const std::string& value) {
        lines += what + std::string(16 - what.size(), ' ') + value + "\n";
    };
    line("file", path);
    line("name", plugin.name());
    line("product", plugin.product());
    line("vendor", plugin.vendor());
    line("identity",
         fourCharacters(record.uniqueID) + " (" + std::to_string(record.uniqueID) + ")");
    line("version", std::to_string(record.version) + ", vendor's " +
                        std::to_string(plugin.call(effGetVendorVersion)) + ", VST " +
                        std::to_string(plugin.call(effGetVstVersion)));
    line("category", categoryName(plugin.call(effGetPlugCategory)));
    line("declares", flags);
    line("inputs", pinsAsText(pins(plugin, true)));
    line("outputs", pinsAsText(pins(plugin, false)));
    line("latency", std::to_string(record.initialDelay) + " frames");
    line("tail", tailText(plugin.call(effGetTailSize)));
    line("can do", abilitiesThatAnswer(plugin, 1));
    line("cannot do", abilitiesThatAnswer(plugin, -1));
    line("programs", std::to_string(plugin.programNames().size()) + " (" +
                         std::to_string(record.numPrograms) + " declared)");
    line("parameters", std::to_string(record.numParams));
    return lines;
}

} // namespace

std::string programListing(Plugin& plugin, ListingForm form, const std::string& part) {
    const NumberedNames programs = programsWith(plugin, part);
    if (form == ListingForm::Json)
        return text(programsAsJson(programs));
    std::vector<std::vector<std::string>> rows{{"slot", "name"}};
    for (const auto& [slot, name] : programs)
        rows.push_back({std::to_string(slot), name});
    return table(rows);
}

std::string parameterListing(Plugin& plugin, ListingForm form) {
    if (form == ListingForm::Json)
        return text(parametersAsJson(plugin));
    std::vector<std::vector<std::string>> rows{{"index", "name", "long name", "value", "display"}};
    for (const ParameterLine& line : parameterLines(plugin))
        rows.push_back({std::to_string(line.index), line.name, line.longName,
                        fourDecimals(line.value),
                        line.display + (line.unit.empty() ? "" : " " + line.unit)});
    return table(rows);
}

std::string infoListing(Plugin& plugin, const std::string& path, ListingForm form) {
    return form == ListingForm::Json ? text(infoAsJson(plugin, path)) : infoAsText(plugin, path);
}

} // namespace pedl
