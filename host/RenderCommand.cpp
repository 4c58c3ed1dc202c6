#include "host/RenderCommand.h"

#include "host/Interrupt.h"
#include "host/OutputCheck.h"
#include "host/ProgressBar.h"
#include "host/Selection.h"

#include <array>
#include <cmath>
#include <cstdio>

namespace pedl {

namespace {

/// OUT must not be a file that the render reads.
Done checkOutput(const RenderRequest& request) {
    const StartingState& start = request.start;
    const std::string same =
        "is the same file as " + request.in.string() + "; a render cannot replace what it reads";
    std::vector<InputFile> inputs{{request.in, same.c_str()},
                                  {request.plugin, "is the plug-in itself"},
                                  {start.bank},
                                  {start.preset},
                                  {start.midiSettings},
                                  {request.midi}};
    for (const std::string& text : request.automations)
        inputs.push_back({text.substr(text.find('=') + 1), "is a curve that the render reads"});
    if (Done checked = checkIsNone(request.out, inputs); !checked.ok())
        return checked;
    return AudioWriter::checkName(request.out);
}

Done checkPlugin(const Plugin& plugin, const RenderRequest& request) {
    const std::string name = request.plugin.string();
    if (const Done able = plugin.processesFiles(); !able.ok())
        return able.problem().of(name);
    if (request.precision == Precision::Double && !plugin.processesDouble())
        return Problem{name + ": processes 32-bit audio only; leave --double out"};
    return done();
}

Result<std::vector<Automation>> loadCurves(Plugin& plugin, const RenderRequest& request) {
    std::vector<Automation> automations;
    for (const std::string& text : request.automations) {
        const Result<Assignment> found = findAssignment(plugin, text);
        if (!found.ok())
            return found.problem().of("--automate");
        Result<AutomationCurve> curve = AutomationCurve::load(found.value().value);
        if (!curve.ok())
            return curve.problem().of("--automate");
        automations.push_back({found.value().index, std::move(curve.value())});
    }
    return automations;
}

Result<std::optional<MidiPlayback>> loadMidi(const RenderRequest& request, double rateHz) {
    std::optional<MidiPlayback> playback;
    if (!request.midi)
        return playback;
    const Result<MidiFile> file = MidiFile::load(*request.midi);
    if (!file.ok())
        return file.problem().of("--midi");
    playback.emplace(file.value(), request.tempoBpm, rateHz);
    return playback;
}

/// What the user should know about a finished render, a line each.
void addRemarks(const RenderRequest& request, RenderReport& report) {
    std::array<char, 160> line{};
    if (report.framesMissing > 0) {
        std::snprintf(line.data(), line.size(), ": damaged, ends %.2f s early",
                      static_cast<double>(report.framesMissing) / report.sampleRateHz);
        report.warnings.push_back(request.in.string() + line.data());
    }
    if (report.samplesNotFinite > 0)
        report.warnings.push_back(std::to_string(report.samplesNotFinite) +
                                  " samples are not finite numbers");
    if (report.samplesCut > 0)
        report.warnings.push_back(std::to_string(report.samplesCut) +
                                  " samples were beyond full scale and were cut off;"
                                  " .wav keeps them");
}

} // namespace

Result<RenderReport> render(const RenderRequest& request) {
    const Interrupt interrupt;
    Result<AudioReader> reader = AudioReader::open(request.in);
    if (!reader.ok())
        return reader.problem();
    if (const Done checked = checkOutput(request); !checked.ok())
        return checked.problem();

    const double rateHz = reader.value().sampleRateHz();
    Result<std::unique_ptr<Plugin>> loaded =
        Plugin::load(request.plugin, {rateHz, request.blockFrames});
    if (!loaded.ok())
        return loaded.problem();
    Plugin& plugin = *loaded.value();
    if (const Done checked = checkPlugin(plugin, request); !checked.ok())
        return checked.problem();
    plugin.services().transport.tempoBpm = request.tempoBpm;
    plugin.call(effSetProcessPrecision, 0,
                request.precision == Precision::Double ? kVstProcessPrecision64
                                                       : kVstProcessPrecision32);
    Result<std::vector<std::string>> warnings = applyStartingState(plugin, request.start);
    if (!warnings.ok())
        return warnings.problem();
    Result<std::vector<Automation>> curves = loadCurves(plugin, request);
    if (!curves.ok())
        return curves.problem();

    Result<std::optional<MidiPlayback>> midi = loadMidi(request, rateHz);
    if (!midi.ok())
        return midi.problem();

    const std::int64_t tailFrames = std::llround(request.tailSeconds * rateHz);
    const std::int64_t lengthFrames = reader.value().lengthFrames() + tailFrames;
    Result<AudioWriter> writer =
        AudioWriter::create(request.out, reader.value().sampleRateHz(), lengthFrames);
    if (!writer.ok())
        return writer.problem();

    ProgressBar progress;
    Renderer renderer(plugin, reader.value(), writer.value(), request.blockFrames);
    renderer.follow(std::move(curves.value()));
    if (midi.value())
        renderer.play(std::move(*midi.value()));
    renderer.addTail(tailFrames);
    renderer.onProgress([&progress](double share) { progress.show(share); });
    Result<RenderReport> report = renderer.run(request.precision);
    if (!report.ok())
        return report;
    report.value().warnings = std::move(warnings.value());
    addRemarks(request, report.value());
    if (const Done committed = writer.value().commit(); !committed.ok())
        return committed.problem();
    return report;
}

} // namespace pedl
