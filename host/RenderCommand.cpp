#include "host/RenderCommand.h"

#include "host/Interrupt.h"
#include "host/ProgressBar.h"
#include "host/Selection.h"
#include "host/StoredFiles.h"

#include <cmath>
#include <system_error>

namespace pedl {

namespace {

/// Whether both names lead to one file, be it through links.
bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b) {
    std::error_code error;
    return std::filesystem::equivalent(a, b, error) && !error;
}

/// OUT must not be a file that the render reads.
Done checkOutput(const RenderRequest& request) {
    const std::string out = request.out.string();
    if (isSameFile(request.in, request.out))
        return Problem{out + ": is the same file as " + request.in.string() +
                       "; a render cannot replace what it reads"};
    if (isSameFile(request.plugin, request.out))
        return Problem{out + ": is the plug-in itself"};
    for (const std::string& text : request.automations)
        if (isSameFile(text.substr(text.find('=') + 1), request.out))
            return Problem{out + ": is a curve that the render reads"};
    for (const auto& file : {request.bank, request.preset, request.midiSettings, request.midi})
        if (file && isSameFile(*file, request.out))
            return Problem{out + ": is a file that the render reads"};
    return AudioWriter::checkName(request.out);
}

Done checkPlugin(const Plugin& plugin, const RenderRequest& request) {
    const std::string name = request.plugin.string();
    if (plugin.record().numInputs == 0 || plugin.record().numOutputs == 0)
        return Problem{name + ": has no audio " +
                       (plugin.record().numInputs == 0 ? "input" : "output") +
                       ", so it cannot process a file"};
    if (request.precision == Precision::Double && !plugin.processesDouble())
        return Problem{name + ": processes 32-bit audio only; leave --double out"};
    return done();
}

/// The file that is named for this kind, if any, into the plug-in.
Done loadStored(Plugin& plugin, DocumentKind kind, const std::optional<std::filesystem::path>& path,
                std::vector<std::string>& warnings) {
    if (!path)
        return done();
    const Result<std::vector<std::string>> loaded = loadStoredFile(plugin, kind, *path);
    if (!loaded.ok())
        return loaded.problem().of(storedFileOption(kind));
    warnings.insert(warnings.end(), loaded.value().begin(), loaded.value().end());
    return done();
}

/// Bank, program and links, from files and by name.
Result<std::vector<std::string>> applyFiles(Plugin& plugin, const RenderRequest& request) {
    std::vector<std::string> warnings;
    Done loaded = loadStored(plugin, DocumentKind::Bank, request.bank, warnings);
    if (loaded.ok() && request.program)
        if (const Done selected = selectProgram(plugin, *request.program); !selected.ok())
            loaded = selected.problem().of("--program");
    if (loaded.ok())
        loaded = loadStored(plugin, DocumentKind::Program, request.preset, warnings);
    if (loaded.ok())
        loaded = loadStored(plugin, DocumentKind::MidiSettings, request.midiSettings, warnings);
    if (!loaded.ok())
        return loaded.problem();
    return warnings;
}

Done applySettings(Plugin& plugin, const RenderRequest& request) {
    for (const std::string& text : request.settings) {
        const Result<Setting> setting = findSetting(plugin, text);
        if (!setting.ok())
            return setting.problem().of("--set");
        plugin.setParameter(setting.value().index, setting.value().normalised);
    }
    for (const std::string& text : request.links)
        if (const Done linked = linkController(plugin, text); !linked.ok())
            return linked.problem().of("--link");
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
    Result<std::vector<std::string>> warnings = applyFiles(plugin, request);
    if (!warnings.ok())
        return warnings.problem();
    if (const Done applied = applySettings(plugin, request); !applied.ok())
        return applied.problem();
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
    if (const Done committed = writer.value().commit(); !committed.ok())
        return committed.problem();
    report.value().warnings = std::move(warnings.value());
    return report;
}

} // namespace pedl
