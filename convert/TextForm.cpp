#include "convert/TextForm.h"

#include "convert/BoundedJson.h"
#include "foundation/text/PrintableText.h"
#include "parameters/ListPosition.h"
#include "parameters/ParameterCatalogue.h"
#include "presets/MidiNames.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace pedl {

namespace {

std::string hexOf(const ProgramName& name) {
    constexpr std::string_view kDigits = "0123456789abcdef";
    std::string digits;
    for (const char character : name) {
        const auto byte = static_cast<unsigned char>(character);
        digits += kDigits[byte >> 4U];
        digits += kDigits[byte & 0xFU];
    }
    return digits;
}

void addProgram(Json& json, const ProgramRecord& program) {
    const std::string name = shownName(program.name);
    json["name"] = name;
    if (name.size() > kProgramNameLength || toProgramName(name) != program.name)
        json["nameBytes"] = hexOf(program.name);
    Json& parameters = json["parameters"];
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
        const float value = program.normalised[static_cast<std::size_t>(parameter)];
        Json& item = parameters[parameterKey(parameter)];
        item["value"] = value;
        if (const std::string text = parameterDisplay(parameter, value); !text.empty())
            item["text"] = text;
    }
}

Json channelJson(std::int32_t channel) {
    if (channel == MidiMap::kAllChannels)
        return "all";
    return channel == MidiMap::kChannelOff ? Json("off") : Json(channel);
}

Json linksJson(const DocumentLinks& links) {
    Json json;
    json["channel"] = channelJson(links.channel);
    Json& list = json["links"];
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
        const std::int32_t controller = links.controllerOf(parameter);
        const auto& value = links.linkValue[static_cast<std::size_t>(parameter)];
        Json& link = list[parameterKey(parameter)];
        link["controller"] = isController(controller) ? Json(controller) : Json(nullptr);
        if (isController(controller))
            link["name"] = controllerName(controller);
        if (value && *value != linkValueOf(controller))
            link["value"] = *value;
    }
    return json;
}

Json jsonOf(const Document& document) {
    Json json;
    json["format"] = kTextFormat;
    json["version"] = kTextVersion;
    json["kind"] = kindKey(document.kind);
    if (document.kind == DocumentKind::Program)
        addProgram(json["program"], document.programs.front());
    if (hasBank(document.kind)) {
        json["currentSlot"] = document.currentSlot;
        Json& programs = json["programs"];
        for (std::size_t slot = 0; slot < document.programs.size(); ++slot) {
            Json& item = programs.emplace_back();
            item["slot"] = slot;
            addProgram(item, document.programs[slot]);
        }
    }
    if (hasLinks(document.kind))
        json["midi"] = linksJson(document.links);
    return json;
}

/// Puts a value at the end of the text: members and items a line each, but a parameter and a link,
/// which hold plain values alone, whole on one.
///
/// Names, texts and whole numbers are in the library's own form; it has neither such a layout nor
/// floats in the fewest digits.
void append(std::string& text, const Json& json, std::size_t depth) {
    if (json.is_primitive()) {
        text += json.is_number_float() ? exactNumber(json.get<float>()) : json.dump();
        return;
    }
    const auto breakLine = [&text](std::size_t level) {
        text += '\n';
        text.append(2 * level, ' ');
    };
    const bool isOneLine =
        std::ranges::all_of(json, [](const Json& member) { return member.is_primitive(); });
    text += json.is_object() ? '{' : '[';
    bool isFirst = true;
    for (const auto& [key, member] : json.items()) {
        if (!isFirst)
            text += isOneLine ? ", " : ",";
        isFirst = false;
        if (!isOneLine)
            breakLine(depth + 1);
        if (json.is_object())
            text += Json(key).dump() + ": ";
        append(text, member, depth + 1);
    }
    if (!isOneLine)
        breakLine(depth);
    text += json.is_object() ? '}' : ']';
}

std::optional<unsigned> digitValue(char digit) noexcept {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(&digit, &digit + 1, value, 16);
    return error == std::errc{} ? std::optional(value) : std::nullopt;
}

} // namespace

std::string textForm(const Document& document) {
    std::string text;
    append(text, jsonOf(document), 0);
    return text + '\n';
}

bool looksLikeText(std::string_view contents) noexcept {
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
    if (contents.starts_with(kByteOrderMark))
        contents.remove_prefix(kByteOrderMark.size());
    const std::string_view start = trimmed(contents.substr(0, contents.find_first_of("{[") + 1));
    return start == "{" || start == "[";
}

std::string parameterKey(std::int32_t parameter) {
    const std::string_view name = longParameterName(parameter);
    return name.empty() ? "Parameter " + std::to_string(parameter) : std::string(name);
}

std::vector<NamedItem> parameterKeys() {
    std::vector<NamedItem> items;
    items.reserve(kNumParams);
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        items.push_back(
            {parameter, {parameterKey(parameter), std::string(shortParameterName(parameter))}});
    return items;
}

std::string parameterDisplay(std::int32_t parameter, float value) {
    return std::string(parameterText(parameter, value).view());
}

std::string parameterUnitText(std::int32_t parameter) {
    return std::string(parameterUnit(parameter));
}

std::string controllerName(std::int32_t controller) {
    return std::string(controllerText(listValue(controller, kNumControllerTexts)));
}

std::string shownName(const ProgramName& name) {
    return printableText(nameText(name));
}

std::optional<ProgramName> nameFromHex(std::string_view digits) noexcept {
    ProgramName name{};
    if (digits.size() != 2 * name.size())
        return std::nullopt;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const auto high = digitValue(digits[2 * i]);
        const auto low = digitValue(digits[2 * i + 1]);
        if (!high || !low)
            return std::nullopt;
        name[i] = static_cast<char>(*high << 4U | *low);
    }
    return name;
}

std::string exactNumber(float value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    const std::string text(digits.data(), end);
    return text == "-0" ? "-0.0" : text; // JSON takes the former for an integer, which has no sign
}

} // namespace pedl
