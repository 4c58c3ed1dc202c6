#include "host/CommandRequests.h"

#include "foundation/text/FormattedText.h"
#include "host/PluginLocator.h"
#include "host/RenderBatch.h"

#include <charconv>
#include <cmath>

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
    return Problem{option + ": \"" + text + "\" is not a number " +
                   formatted("from %g to %.0f %s", range.lowest, range.highest, range.meaning)};
}

/// The word after an option, where there was one.
template <typename Wanted> void give(const std::string& text, Wanted& wanted) {
    if (!text.empty())
        wanted = text;
}

/// The seconds of --tail, and whether it waits for silence.
Result<double> readTail(const CommandLine& line, RenderRequest& request) {
    request.tailEndsInSilence = line.tail == "auto";
    if (request.tailEndsInSilence)
        return kLongestTailSeconds;
    return numberWithin("--tail", line.tail, kTailRange);
}

/// What a render is asked for, its files apart.
Result<RenderRequest> commonRequest(const CommandLine& line) {
    RenderRequest request;
    request.start = startingState(line);
    request.automations = line.automations;
    give(line.midi, request.midi);
    request.bits = line.bits;
    if (!line.format.empty()) {
        const Result<AudioFormat> named = AudioFormat::named(line.format);
        if (!named.ok())
            return named.problem().of("--format");
        request.format = named.value();
    }
    request.keepsExisting = line.keepsExisting;
    request.isStrict = line.isStrict;
    request.isQuiet = line.isQuiet;
    request.precision = line.isDouble ? Precision::Double : Precision::Float;

    const Result<double> tempo = numberWithin("--tempo", line.tempo, kTempoRange);
    const Result<double> tail = readTail(line, request);
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

Result<SourcesAndTarget> sourcesAndTarget(const CommandLine& line) {
    if (line.files.size() < 2)
        return Problem{"OUT is required behind IN, or --to FOLDER"};
    return SourcesAndTarget{{line.files.begin(), line.files.end() - 1}, line.files.back()};
}

Result<std::filesystem::path> pluginFor(const CommandLine& line) {
    if (!line.plugin.empty())
        return findPlugin(line.plugin);
    return findPlugin();
}

Result<std::vector<RenderRequest>> renderRequests(const CommandLine& line) {
    Result<RenderRequest> common = commonRequest(line);
    if (!common.ok())
        return common.problem();
    if (!line.folder.empty())
        return renderBatch(common.value(), line.files, line.folder);
    const Result<SourcesAndTarget> files = sourcesAndTarget(line);
    if (!files.ok())
        return files.problem();
    if (files.value().sources.size() > 1)
        return Problem{"IN and OUT are two files, not " + std::to_string(line.files.size()) +
                       "; --to FOLDER takes many"};
    common.value().in = files.value().sources.front();
    common.value().out = files.value().target;
    return std::vector{std::move(common.value())};
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
