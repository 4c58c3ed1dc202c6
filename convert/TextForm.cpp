#include "convert/TextForm.h"

#include "convert/BoundedJson.h"
#include "foundation/text/PrintableText.h"
#include "parameters/ListPosition.h"
#include "parameters/ParameterCatalogue.h"
#include "presets/MidiNames.h"

#include <array>
#include <charconv>

namespace pedl {

namespace {

/// A string as JSON has it.
std::string jsonString(const std::string& text) {
    return Json(text).dump();
}

/// Puts lines together; knows the depth and where commas belong.
class LineWriter {
public:
    /// Opens what `bracket` closes; an empty key for an item of a list.
    void open(std::string_view key, char bracket) {
        item(key, {&bracket, 1});
        depth_ += 1;
        isFirst_ = true;
    }
    void close(char bracket) {
        depth_ -= 1;
        isFirst_ = true;
        item({}, {&bracket, 1});
    }
    void item(std::string_view key, std::string_view value) {
        if (!text_.empty())
            text_ += isFirst_ ? "\n" : ",\n";
        text_.append(2 * depth_, ' ');
        if (!key.empty())
            text_ += jsonString(std::string(key)) + ": ";
        text_ += value;
        isFirst_ = false;
    }
    [[nodiscard]] std::string finished() { return text_ + '\n'; }

private:
    std::string text_;
    std::size_t depth_ = 0;
    bool isFirst_ = true;
};

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

void writeProgram(LineWriter& lines, const ProgramRecord& program) {
    const std::string name = shownName(program.name);
    lines.item("name", jsonString(name));
    if (name.size() > kProgramNameLength || toProgramName(name) != program.name)
        lines.item("nameBytes", jsonString(hexOf(program.name)));
    lines.open("parameters", '{');
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
        const float value = program.normalised[static_cast<std::size_t>(parameter)];
        const std::string text = parameterDisplay(parameter, value);
        lines.item(parameterKey(parameter),
                   "{\"value\": " + exactNumber(value) +
                       (text.empty() ? "" : ", \"text\": " + jsonString(text)) + "}");
    }
    lines.close('}');
}

std::string channelKey(std::int32_t channel) {
    if (channel == MidiMap::kAllChannels)
        return jsonString("all");
    return channel == MidiMap::kChannelOff ? jsonString("off") : std::to_string(channel);
}

std::string linkText(std::int32_t controller, std::optional<float> value) {
    std::string text = "{\"controller\": ";
    if (isController(controller))
        text +=
            std::to_string(controller) + ", \"name\": " + jsonString(controllerName(controller));
    else
        text += "null";
    if (value && *value != linkValueOf(controller))
        text += ", \"value\": " + exactNumber(*value);
    return text + "}";
}

void writeLinks(LineWriter& lines, const DocumentLinks& links) {
    lines.open("midi", '{');
    lines.item("channel", channelKey(links.channel));
    lines.open("links", '{');
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        lines.item(parameterKey(parameter),
                   linkText(links.controllerOf(parameter),
                            links.linkValue[static_cast<std::size_t>(parameter)]));
    lines.close('}');
    lines.close('}');
}

std::optional<unsigned> digitValue(char digit) noexcept {
    unsigned value = 0;
    const auto [end, error] = std::from_chars(&digit, &digit + 1, value, 16);
    return error == std::errc{} ? std::optional(value) : std::nullopt;
}

} // namespace

std::string textForm(const Document& document) {
    LineWriter lines;
    lines.open({}, '{');
    lines.item("format", jsonString(std::string(kTextFormat)));
    lines.item("version", std::to_string(kTextVersion));
    lines.item("kind", jsonString(std::string(kindKey(document.kind))));
    if (document.kind == DocumentKind::Program) {
        lines.open("program", '{');
        writeProgram(lines, document.programs.front());
        lines.close('}');
    }
    if (hasBank(document.kind)) {
        lines.item("currentSlot", std::to_string(document.currentSlot));
        lines.open("programs", '[');
        for (std::size_t slot = 0; slot < document.programs.size(); ++slot) {
            lines.open({}, '{');
            lines.item("slot", std::to_string(slot));
            writeProgram(lines, document.programs[slot]);
            lines.close('}');
        }
        lines.close(']');
    }
    if (hasLinks(document.kind))
        writeLinks(lines, document.links);
    lines.close('}');
    return lines.finished();
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
