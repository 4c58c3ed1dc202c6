#include "host/RenderJob.h"

#include "foundation/platform/StandardStream.h"
#include "host/OutputCheck.h"
#include "host/ProgressBar.h"
#include "host/RenderRemarks.h"
#include "host/Selection.h"

#include <cmath>

namespace pedl {

namespace {

/// OUT must not be a file that the render reads, or one that is to stay.
Done checkOutput(const RenderRequest& request) {
    if (request.out == kStandardStream)
        return done();
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
    std::error_code none;
    if (request.keepsExisting && std::filesystem::is_regular_file(request.out, none))
        return Problem{request.out.string() + ": exists, and --no-clobber keeps it"};
    return done();
}

Result<AudioFormat> outputFormat(const RenderRequest& request) {
    Result<AudioFormat> format =
        request.format ? Result(*request.format) : AudioFormat::ofFile(request.out);
    if (!format.ok() || request.bits.empty())
        return format;
    format = format.value().withBits(request.bits);
    return format.ok() ? format : format.problem().of("--bits");
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
        Result<AutomationCurve> curve = AutomationCurve::load(
            found.value().value, [&plugin, index = found.value().index](std::string_view shown) {
                return valueReading(plugin, index, shown);
            });
        if (!curve.ok())
            return curve.problem().of("--automate");
        automations.push_back({found.value().index, std::move(curve.value())});
    }
    return automations;
}

Result<std::optional<MidiFile>> loadMidi(const RenderRequest& request) {
    if (!request.midi)
        return std::optional<MidiFile>();
    const Result<MidiFile> file = MidiFile::load(*request.midi);
    if (!file.ok())
        return file.problem().of("--midi");
    return std::optional(file.value());
}

Done checkStrictly(const std::vector<std::string>& warnings) {
    if (warnings.empty())
        return done();
    const std::size_t more = warnings.size() - 1;
    return Problem{"--strict: " + warnings.front() +
                   (more > 0 ? "; and " + std::to_string(more) + " more" : "")};
}

/// The plug-in as it is to be when the sound begins.
///
/// @return what is worth a warning
Result<std::vector<std::string>> setUp(Plugin& plugin, const RenderRequest& request) {
    if (const Done checked = checkPlugin(plugin, request); !checked.ok())
        return checked.problem();
    plugin.services().transport.tempoBpm = request.tempoBpm;
    plugin.call(effSetProcessPrecision, 0,
                request.precision == Precision::Double ? kVstProcessPrecision64
                                                       : kVstProcessPrecision32);
    return applyStartingState(plugin, request.start);
}

SoundDescription descriptionOf(const RenderJob& job, Tail tail) {
    const AudioReader& reader = job.reader;
    SoundDescription sound{job.format, reader.sampleRateHz(), {}, {}, reader.tags()};
    if (reader.lengthFrames())
        sound.mostFrames = *reader.lengthFrames() + tail.frames;
    if (!tail.endsInSilence)
        sound.lengthFrames = sound.mostFrames;
    return sound;
}

/// Says what there is to say of a sound that is rendered, and gives OUT its name.
Result<RenderReport> finish(RenderJob& job, RenderReport report, AudioWriter& writer) {
    report.warnings = std::move(job.warnings);
    addRemarks(job.reader, report);
    if (job.request.isStrict)
        if (const Done checked = checkStrictly(report.warnings); !checked.ok())
            return checked.problem();
    if (const Done checked = checkOutput(job.request); !checked.ok()) // others may have been faster
        return checked.problem();
    if (const Done committed = writer.commit(); !committed.ok())
        return committed.problem();
    return report;
}

} // namespace

Result<RenderJob> prepareRender(const RenderRequest& request) {
    Result<AudioReader> reader = AudioReader::open(request.in);
    if (!reader.ok())
        return reader.problem();
    if (const Done checked = checkOutput(request); !checked.ok())
        return checked.problem();
    const Result<AudioFormat> format = outputFormat(request);
    if (!format.ok())
        return format.problem();
    const double rateHz = reader.value().sampleRateHz();
    Result<std::unique_ptr<Plugin>> plugin =
        Plugin::load(request.plugin, {rateHz, request.blockFrames});
    if (!plugin.ok())
        return plugin.problem();
    Result<std::vector<std::string>> warnings = setUp(*plugin.value(), request);
    if (!warnings.ok())
        return warnings.problem();
    Result<std::vector<Automation>> curves = loadCurves(*plugin.value(), request);
    if (!curves.ok())
        return curves.problem();
    Result<std::optional<MidiFile>> midi = loadMidi(request);
    if (!midi.ok())
        return midi.problem();
    for (std::string& remark :
         remarksBefore(*plugin.value(), request, reader.value(), curves.value(), midi.value()))
        warnings.value().push_back(std::move(remark));
    if (request.isStrict)
        if (const Done checked = checkStrictly(warnings.value()); !checked.ok())
            return checked.problem();
    return RenderJob{request,
                     std::move(reader.value()),
                     format.value(),
                     std::move(plugin.value()),
                     std::move(curves.value()),
                     std::move(midi.value()),
                     std::move(warnings.value())};
}

Result<RenderReport> runRender(RenderJob& job) {
    const RenderRequest& request = job.request;
    const double rateHz = job.reader.sampleRateHz();
    const Tail tail{std::llround(request.tailSeconds * rateHz), request.tailEndsInSilence};
    Result<AudioWriter> writer = AudioWriter::create(request.out, descriptionOf(job, tail));
    if (!writer.ok())
        return writer.problem();

    ProgressBar progress(!request.isQuiet);
    Renderer renderer(*job.plugin, job.reader, writer.value(), request.blockFrames);
    renderer.follow(std::move(job.curves));
    if (job.midi)
        renderer.play(MidiPlayback(*job.midi, request.tempoBpm, rateHz));
    renderer.addTail(tail);
    renderer.onProgress([&progress](double share) { progress.show(share); });
    Result<RenderReport> report = renderer.run(request.precision);
    if (!report.ok())
        return report;
    return finish(job, std::move(report.value()), writer.value());
}

} // namespace pedl
