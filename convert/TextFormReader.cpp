#include "convert/JsonPlace.h"
#include "convert/TextForm.h"
#include "foundation/text/ValueFromText.h"
#include "parameters/ParameterCatalogue.h"
#include "presets/FactoryPrograms.h"
#include "presets/ProgramBank.h"

#include <algorithm>
#include <bitset>
#include <utility>

namespace pedl {

namespace {

/// The parameter that a key names, letter for letter: a file is read long after it was written,
/// when an abbreviation may have come to mean another.
std::int32_t parameterNamed(const std::string& key, const Place& place) {
    static const std::vector<NamedItem> items = parameterKeys();
    for (const NamedItem& item : items)
        if (std::ranges::find(item.names, key) != item.names.end() && !key.empty())
            return item.index;
    const Result<int> near =
        findByName(inQuotes(key).substr(1, inQuotes(key).size() - 2), items, "parameter");
    place.refuse(near.ok() ? "no parameter is called " + inQuotes(key) + "; did you mean " +
                                 parameterKey(near.value())
                           : near.problem().text);
}

class TextReader {
public:
    Document read(const Json& json) {
        const Place whole{json, ""};
        whole.expectObject();
        expectFormat(whole);
        const DocumentKind kind = kindOf(whole);
        document_ = kind == DocumentKind::Chunk ? factoryDocument() : Document();
        document_.kind = kind;
        switch (kind) {
        case DocumentKind::Program:
            whole.expectMembers({"format", "version", "kind", "program"});
            document_.programs = {program(needed(whole, "program"))};
            break;
        case DocumentKind::Bank:
            whole.expectMembers({"format", "version", "kind", "currentSlot", "programs"});
            bank(whole);
            break;
        case DocumentKind::MidiSettings:
            whole.expectMembers({"format", "version", "kind", "midi"});
            links(needed(whole, "midi"));
            break;
        case DocumentKind::Chunk:
            whole.expectMembers({"format", "version", "kind", "currentSlot", "programs", "midi"});
            bank(whole);
            if (whole.has("midi"))
                links(whole.named("midi"));
            break;
        }
        return std::move(document_);
    }

private:
    static Place needed(const Place& place, std::string_view key) {
        if (!place.has(key))
            place.refuse(inQuotes(key) + " is missing");
        return place.named(key);
    }

    static void expectFormat(const Place& whole) {
        if (!whole.has("format") || *whole.json.find("format") != kTextFormat)
            whole.refuse("is not a text form of the plug-in: it needs \"format\": " +
                         inQuotes(kTextFormat));
        const Place version = needed(whole, "version");
        if (!version.json.is_number_integer() || version.json != kTextVersion)
            version.refuse("is not " + std::to_string(kTextVersion) +
                           ", the only one that is read here");
    }

    static DocumentKind kindOf(const Place& whole) {
        const Place place = needed(whole, "kind");
        std::string keys;
        for (const DocumentKind kind : kDocumentKinds) {
            if (place.string() == kindKey(kind))
                return kind;
            keys += (keys.empty() ? "" : ", ") + std::string(kindKey(kind));
        }
        place.refuse(inQuotes(place.string()) + " is none of " + keys);
    }

    void bank(const Place& whole) {
        document_.programs = factoryDocument().programs;
        if (whole.has("currentSlot"))
            document_.currentSlot = whole.named("currentSlot").integer(0, kNumPrograms - 1);
        const Place list = needed(whole, "programs");
        if (!list.json.is_array())
            list.refuse("is not a list in [ ]");
        std::bitset<kNumPrograms> seen;
        std::int32_t next = 0;
        for (std::size_t i = 0; i < list.json.size(); ++i) {
            const Json& item = list.json[i];
            const std::int32_t slot = slotOf({item, "programs[" + std::to_string(i) + "]"}, next);
            const auto position = static_cast<std::size_t>(slot);
            if (seen[position])
                list.refuse("slot " + std::to_string(slot) + " is given twice");
            seen.set(position);
            next = slot + 1;
            document_.programs[position] = program({item, "program " + std::to_string(slot)});
        }
    }

    /// @param next  what it is where the program does not say
    static std::int32_t slotOf(const Place& place, std::int32_t next) {
        place.expectObject();
        if (place.has("slot"))
            return place.named("slot").integer(0, kNumPrograms - 1);
        if (next >= kNumPrograms)
            place.refuse("is one too many: a bank has " + std::to_string(kNumPrograms) +
                         " programs");
        return next;
    }

    ProgramRecord program(Place place) {
        if (hasBank(document_.kind))
            place.expectMembers({"slot", "name", "nameBytes", "parameters"});
        else
            place.expectMembers({"name", "nameBytes", "parameters"});
        ProgramRecord record = factoryProgram(0);
        record.name = name(place);
        place.words += ' ' + inQuotes(shownName(record.name));
        if (place.has("parameters"))
            parameters({*place.json.find("parameters"), place.words}, record);
        return record;
    }

    void parameters(const Place& list, ProgramRecord& record) {
        list.expectObject();
        std::bitset<kNumParams> seen;
        for (const auto& [key, json] : list.json.items()) {
            const std::int32_t parameter = parameterOnce(key, list, seen);
            record.normalised[static_cast<std::size_t>(parameter)] =
                value({json, list.words + ", " + parameterKey(parameter)}, parameter);
        }
    }

    static std::int32_t parameterOnce(const std::string& key, const Place& place,
                                      std::bitset<kNumParams>& seen) {
        const std::int32_t parameter = parameterNamed(key, place);
        const auto position = static_cast<std::size_t>(parameter);
        if (seen[position])
            place.refuse(parameterKey(parameter) + " is given twice, once as " + inQuotes(key));
        seen.set(position);
        return parameter;
    }

    ProgramName name(const Place& place) {
        if (!place.has("nameBytes"))
            return shortName(needed(place, "name"));
        const Place bytes = place.named("nameBytes");
        const std::optional<ProgramName> stored = nameFromHex(bytes.string());
        if (!stored)
            bytes.refuse("is not 48 hexadecimal digits");
        const ProgramName ended = terminated(*stored);
        if (!place.has("name"))
            return ended;
        const Place shown = place.named("name");
        if (shown.string() == shownName(ended))
            return ended;
        warn(bytes, "reads " + inQuotes(shownName(ended)) + " and not " + inQuotes(shown.string()) +
                        "; the name counts");
        return shortName(shown);
    }

    static ProgramName shortName(const Place& place) {
        const std::string& text = place.string();
        if (text.size() > kProgramNameLength)
            place.refuse(inQuotes(text) + " is longer than " + std::to_string(kProgramNameLength) +
                         " bytes");
        ProgramName name = toProgramName(text);
        if (shownName(name) != text)
            place.refuse("holds a control character");
        return name;
    }

    /// A number, a text, or an object with either or both.
    float value(const Place& place, std::int32_t parameter) {
        if (place.json.is_string())
            return valueReading(place.string(), place, parameter);
        if (!place.json.is_object())
            return place.normalised();
        place.expectMembers({"value", "text"});
        const bool hasText = place.has("text");
        if (!place.has("value") && !hasText)
            place.refuse("has neither a value nor a text");
        const std::string text = hasText ? place.named("text").string() : "";
        if (!place.has("value"))
            return valueReading(text, place, parameter);
        const float value = Place{*place.json.find("value"), place.words}.normalised();
        const std::string shown = parameterDisplay(parameter, value);
        if (hasText && trimmed(text) != trimmed(shown))
            warn(place, "the value " + exactNumber(value) + " reads " + inQuotes(shown) +
                            " and not " + inQuotes(text) +
                            "; the value counts, without it the text would");
        return value;
    }

    static float valueReading(const std::string& text, const Place& place, std::int32_t parameter) {
        if (text.size() > kLongestText)
            place.refuse(inQuotes(text) + " is longer than any text of a parameter");
        const Result<float> value =
            valueFromText(text, parameterUnit(parameter),
                          [parameter](float at) { return parameterDisplay(parameter, at); });
        if (!value.ok())
            place.refuse(value.problem().text);
        return value.value();
    }

    void links(const Place& place) {
        place.expectMembers({"channel", "links"});
        if (place.has("channel"))
            document_.links.channel = channel(place.named("channel"));
        if (!place.has("links"))
            return;
        const Place list = place.named("links");
        list.expectObject();
        std::bitset<kNumParams> seen;
        for (const auto& [key, json] : list.json.items()) {
            const auto parameter = parameterOnce(key, list, seen);
            document_.links.linkValue[static_cast<std::size_t>(parameter)] =
                link({json, list.words + ", " + parameterKey(parameter)});
        }
    }

    static std::int32_t channel(const Place& place) {
        if (place.json == "all")
            return MidiMap::kAllChannels;
        if (place.json == "off")
            return MidiMap::kChannelOff;
        if (!place.json.is_number_integer())
            place.refuse(R"(is neither "all" nor "off" nor a channel from 1 to 16)");
        return place.integer(MidiMap::kChannelOff + 1, MidiMap::kAllChannels - 1);
    }

    /// A controller's number or null, alone or in an object.
    std::optional<float> link(const Place& place) {
        if (!place.json.is_object())
            return linkTo(controller(place));
        place.expectMembers({"controller", "name", "value"});
        const std::int32_t number = controller(needed(place, "controller"));
        const std::string known = isController(number) ? controllerName(number) : "";
        if (place.has("name") && place.named("name").string() != known)
            warn(place, "the controller is called " + inQuotes(known) + " and not " +
                            inQuotes(place.named("name").string()) + "; its number counts");
        if (!place.has("value"))
            return linkTo(number);
        const float value = linkValue({*place.json.find("value"), place.words});
        DocumentLinks one;
        one.linkValue[0] = value;
        if (one.controllerOf(0) == number)
            return meansNothing(value) ? std::nullopt : one.linkValue[0];
        warn(place, "the value " + exactNumber(value) +
                        " is not that of the controller; the controller counts");
        return linkTo(number);
    }

    static float linkValue(const Place& place) {
        if (!place.json.is_number() || !(place.json.get<float>() >= 0.0F))
            place.refuse("the value is not a number from 0 on");
        return place.json.get<float>();
    }
    /// Whether this is just what is stored for a parameter that was never linked.
    [[nodiscard]] bool meansNothing(float value) const {
        return document_.kind == DocumentKind::MidiSettings ? value >= 1.0F
                                                            : value == linkValueOf(MidiMap::kNone);
    }

    static std::int32_t controller(const Place& place) {
        return place.json.is_null() ? MidiMap::kNone : place.integer(0, kNumControllers - 1);
    }
    static std::optional<float> linkTo(std::int32_t controller) {
        return isController(controller) ? std::optional(linkValueOf(controller)) : std::nullopt;
    }

    void warn(const Place& place, const std::string& what) {
        document_.warnings.push_back(place.words + ": " + what);
    }

    static constexpr std::size_t kLongestText = 64;

    Document document_;
};

} // namespace

Result<Document> documentFromText(std::string_view text) {
    const Result<Json> json = parseJson(text);
    if (!json.ok())
        return json.problem();
    try {
        return TextReader().read(json.value());
    } catch (const Refusal& refusal) {
        return refusal.problem();
    }
}

} // namespace pedl
