#include "convert/Difference.h"

#include "convert/TextForm.h"
#include "parameters/ListPosition.h"
#include "presets/MidiNames.h"

#include <bit>
#include <cstddef>

namespace pedl {

namespace {

constexpr const char* kBecomes = " -> ";

std::string quotedName(const ProgramRecord& program) {
    return '"' + shownName(program.name) + '"';
}

/// Two values that differ; the numbers stand where the texts cannot tell them apart.
std::string change(const std::string& from, const std::string& to, const std::string& fromNumber,
                   const std::string& toNumber) {
    if (from != to)
        return from + kBecomes + to;
    if (from.empty())
        return fromNumber + kBecomes + toNumber;
    return from + " (" + fromNumber + ")" + kBecomes + to + " (" + toNumber + ")";
}

class Comparison {
public:
    /// @param where  in front of the program's name: its slot and a blank, or nothing
    void programs(const std::string& where, const ProgramRecord& from, const ProgramRecord& to) {
        const std::string place = where + quotedName(from) + "  ";
        if (from.name != to.name)
            lines_.push_back(place + "name: " +
                             (shownName(from.name) != shownName(to.name)
                                  ? quotedName(from) + kBecomes + quotedName(to)
                                  : "stored in other bytes"));
        for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
            const float before = from.normalised[static_cast<std::size_t>(parameter)];
            const float after = to.normalised[static_cast<std::size_t>(parameter)];
            if (std::bit_cast<std::uint32_t>(before) != std::bit_cast<std::uint32_t>(after))
                lines_.push_back(place + parameterKey(parameter) + ": " +
                                 change(parameterDisplay(parameter, before),
                                        parameterDisplay(parameter, after), exactNumber(before),
                                        exactNumber(after)));
        }
    }

    void banks(const Document& from, const Document& to) {
        if (from.currentSlot != to.currentSlot)
            lines_.push_back("current program: " + called(from) + kBecomes + called(to));
        for (std::size_t slot = 0; slot < from.programs.size(); ++slot)
            programs(std::to_string(slot) + ' ', from.programs[slot], to.programs[slot]);
    }

    void links(const DocumentLinks& from, const DocumentLinks& to) {
        if (from.channel != to.channel)
            lines_.push_back("MIDI channel: " + channelName(from.channel) + kBecomes +
                             channelName(to.channel));
        for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
            const auto position = static_cast<std::size_t>(parameter);
            if (from.linkValue[position] != to.linkValue[position])
                lines_.push_back("MIDI link of " + parameterKey(parameter) + ": " +
                                 change(linkName(from, parameter), linkName(to, parameter),
                                        number(from.linkValue[position]),
                                        number(to.linkValue[position])));
        }
    }

    void linksOfOne(const Document& from, const Document& to) {
        const bool isInFirst = hasLinks(from.kind);
        if (!(isInFirst ? from : to).links.isPristine())
            lines_.push_back(std::string("MIDI links: only in the ") +
                             (isInFirst ? "first" : "second"));
    }

    [[nodiscard]] std::vector<std::string> lines() && { return std::move(lines_); }

private:
    static std::string called(const Document& document) {
        return std::to_string(document.currentSlot) + ' ' + quotedName(currentProgram(document));
    }
    static std::string channelName(std::int32_t channel) {
        return std::string(channelText(listValue(channel, kNumChannelTexts)));
    }
    static std::string linkName(const DocumentLinks& links, std::int32_t parameter) {
        const std::int32_t controller = links.controllerOf(parameter);
        return isController(controller) ? controllerName(controller) : "none";
    }
    static std::string number(const std::optional<float>& value) {
        return exactNumber(value.value_or(linkValueOf(MidiMap::kNone)));
    }

    std::vector<std::string> lines_;
};

} // namespace

Result<std::vector<std::string>> differences(const Document& from, const Document& to) {
    const bool havePrograms = !from.programs.empty() && !to.programs.empty();
    if (!havePrograms && !(hasLinks(from.kind) && hasLinks(to.kind)))
        return Problem{"nothing to compare: the first holds " + contentsName(from.kind) +
                       ", the second " + contentsName(to.kind)};
    Comparison comparison;
    if (hasBank(from.kind) && hasBank(to.kind))
        comparison.banks(from, to);
    else if (havePrograms)
        comparison.programs("", currentProgram(from), currentProgram(to));
    if (hasLinks(from.kind) && hasLinks(to.kind))
        comparison.links(from.links, to.links);
    else if (hasBank(from.kind) && hasBank(to.kind))
        comparison.linksOfOne(from, to);
    return std::move(comparison).lines();
}

} // namespace pedl
