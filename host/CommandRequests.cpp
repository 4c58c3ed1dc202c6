#include "host/CommandRequests.h"

#include "host/PluginLocator.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>

namespace pedl {

namespace {

struct Range {
    double lowest;
    double highest;
    const char* meaning;
};
constexpr Range kTempoRange{1.0, 999.0, "beats per minute"};
constexpr Range kBlockRange{1.0, 65536.0, "whole frames"};
constexpr Range kTailRange{0.0, 3600.0, "seconds"};
constexpr Range kScaleRange{0.5, 4.0, "pixels for one"};
constexpr Range kShownRange{0.0, 86400.0, "seconds"};

Result<double> numberWithin(const std::string& option, const std::string& text, Range range) {
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isNumber = error == std::errc{} && end == text.data() + text.size();
    if (isNumber && number >= range.lowest && number <= range.highest)
        return number;
    std::array<char, 128> expected{};
    std::snprintf(expected.data(), expected.size(), "from %g to %.0f %s", range.lowest,
                  range.highest, range.meaning);
    return Problem{option + ": \"" + text + "\" is not a number " + expected.data()};
}

/// The word after an option, where there was one.
template <typename Wanted> void give(const std::string& text, Wanted& wanted) {
    if (!text.empty())
        wanted = text;
}

} // namespace

StartingState startingState(const CommandLine& line) {
    StartingState start;
    give(line.bank, start.bank);
    give(line.program, start.program);
    give(line.preset, start.preset);
    give(line.midiSettings, start.midiSettings);
    start.settings = line.settings;
    start.links = line.links;
    return start;
}

Result<std::filesystem::path> pluginFor(const CommandLine& line) {
    if (!line.plugin.empty())
        return findPlugin(line.plugin);
    return findPlugin();
}

Result<RenderRequest> renderRequest(const CommandLine& line) {
    RenderRequest request;
    request.in = line.in;
    request.out = line.out;
    request.start = startingState(line);
    request.automations = line.automations;
    give(line.midi, request.midi);
    request.isStrict = line.isStrict;
    request.precision = line.isDouble ? Precision::Double : Precision::Float;

    const Result<double> tempo = numberWithin("--tempo", line.tempo, kTempoRange);
    const Result<double> tail = numberWithin("--tail", line.tail, kTailRange);
    Result<double> block = numberWithin("--block", line.block, kBlockRange);
    if (block.ok() && block.value() != std::floor(block.value()))
        block = Problem{"--block: \"" + line.block + "\" is not a whole number of frames"};
    for (const Result<double>* number : {&tempo, &tail, static_cast<const Result<double>*>(&block)})
        if (!number->ok())
            return number->problem();
    request.tempoBpm = tempo.value();
    request.tailSeconds = tail.value();
    request.blockFrames = static_cast<VstInt32>(block.value());
    return request;
}

Result<ShowRequest> showRequest(const CommandLine& line) {
    ShowRequest request;
    request.start = startingState(line);
    give(line.play, request.play);
    give(line.screenshot, request.screenshot);
    if (!line.scale.empty()) {
        const Result<double> scale = numberWithin("--scale", line.scale, kScaleRange);
        if (!scale.ok())
            return scale.problem();
        request.scale = scale.value();
    }
    if (!line.seconds.empty()) {
        const Result<double> seconds = numberWithin("--seconds", line.seconds, kShownRange);
        if (!seconds.ok())
            return seconds.problem();
        request.seconds = seconds.value();
    }
    return request;
}

} // namespace pedl
