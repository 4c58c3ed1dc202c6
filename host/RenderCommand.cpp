#include "host/RenderCommand.h"

#include "convert/DocumentReader.h"
#include "host/Interrupt.h"
#include "host/OutputCheck.h"
#include "host/ProgressBar.h"
#include "host/Selection.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <set>

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

double dbfs(double peak) {
    return 20.0 * std::log10(peak);
}

template <typename... Values> std::string formatted(const char* pattern, Values... values) {
    std::array<char, 160> line{};
    std::snprintf(line.data(), line.size(), pattern, values...);
    return line.data();
}

std::string listOf(const std::set<int>& numbers) {
    std::string list;
    for (const int number : numbers)
        list += (list.empty() ? "" : ", ") + std::to_string(number);
    return list;
}

/// Our plug-in does nothing with a MIDI file but by its links and, when it keeps the song's time,
/// its tempo; what others do is theirs to know.
void remarkOnMidi(Plugin& plugin, const RenderRequest& request, const MidiFile& file,
                  std::vector<std::string>& remarks) {
    if (!plugin.isOurs() || plugin.displayText(kLFOSyncMode) == "hostBPM")
        return;
    const std::vector<std::byte> chunk = plugin.chunk();
    const Result<Document> state = documentOf(chunk);
    if (!state.ok())
        return;
    const DocumentLinks& links = state.value().links;
    const std::set<int> all = file.controllers();
    const std::set<int> heard = links.channel == MidiMap::kChannelOff ? std::set<int>()
                                : links.channel == MidiMap::kAllChannels
                                    ? all
                                    : file.controllers(links.channel);
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        if (heard.contains(links.controllerOf(parameter)))
            return;
    const std::string name = "--midi: " + request.midi->string() + ": moves nothing, ";
    if (all.empty())
        remarks.push_back(name + "as it has no controllers");
    else
        remarks.push_back(name + "as no parameter is linked to a controller that it has (" +
                          listOf(all) + "); --link makes a link");
}

/// What is known before the sound runs.
std::vector<std::string> remarksBefore(Plugin& plugin, const RenderRequest& request,
                                       const AudioReader& reader,
                                       const std::vector<Automation>& curves,
                                       const std::optional<MidiFile>& midi) {
    std::vector<std::string> remarks;
    if (const std::int64_t missing = reader.missingBytes(); missing > 0)
        remarks.push_back(request.in.string() + ": is " + std::to_string(missing) +
                          " bytes shorter than its head says");
    const double rateHz = reader.sampleRateHz();
    const double soundSeconds = static_cast<double>(reader.lengthFrames()) / rateHz;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const double lastRead = soundSeconds - request.blockFrames / rateHz;
        if (curves[i].curve.endSeconds().value_or(soundSeconds) < lastRead)
            remarks.push_back(
                "--automate: " + request.automations[i] +
                formatted(": ends at %.2f s, the sound at %.2f s; the last value stays",
                          *curves[i].curve.endSeconds(), soundSeconds));
    }
    if (midi)
        remarkOnMidi(plugin, request, *midi, remarks);
    return remarks;
}

/// What the render itself brought to light.
void addRemarks(const RenderRequest& request, RenderReport& report) {
    const std::string in = request.in.string();
    if (report.framesMissing > 0)
        report.warnings.push_back(
            in + formatted(": damaged, ends %.2f s early",
                           static_cast<double>(report.framesMissing) / report.sampleRateHz));
    if (report.inputPeak > 1.0)
        report.warnings.push_back(
            in + formatted(": peaks at %+.1f dBFS, beyond full scale", dbfs(report.inputPeak)));
    if (report.samplesNotFinite > 0)
        report.warnings.push_back(std::to_string(report.samplesNotFinite) +
                                  " samples are not finite numbers");
    if (report.samplesCut > 0)
        report.warnings.push_back(std::to_string(report.samplesCut) +
                                  " samples were beyond full scale and were cut off;"
                                  " .wav keeps them");
}

Done checkStrictly(const std::vector<std::string>& warnings) {
    if (warnings.empty())
        return done();
    const std::size_t more = warnings.size() - 1;
    return Problem{"--strict: " + warnings.front() +
                   (more > 0 ? "; and " + std::to_string(more) + " more" : "")};
}

/// Says what there is to say of a sound that is rendered, and gives OUT its name.
Result<RenderReport> finish(const RenderRequest& request, RenderReport report,
                            std::vector<std::string> warnings, AudioWriter& writer) {
    report.warnings = std::move(warnings);
    addRemarks(request, report);
    if (request.isStrict)
        if (const Done checked = checkStrictly(report.warnings); !checked.ok())
            return checked.problem();
    if (const Done committed = writer.commit(); !committed.ok())
        return committed.problem();
    return report;
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

    const Result<std::optional<MidiFile>> midi = loadMidi(request);
    if (!midi.ok())
        return midi.problem();
    for (std::string& remark :
         remarksBefore(plugin, request, reader.value(), curves.value(), midi.value()))
        warnings.value().push_back(std::move(remark));
    if (request.isStrict)
        if (const Done checked = checkStrictly(warnings.value()); !checked.ok())
            return checked.problem();

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
        renderer.play(MidiPlayback(*midi.value(), request.tempoBpm, rateHz));
    renderer.addTail(tailFrames);
    renderer.onProgress([&progress](double share) { progress.show(share); });
    Result<RenderReport> report = renderer.run(request.precision);
    if (!report.ok())
        return report;
    return finish(request, std::move(report.value()), std::move(warnings.value()), writer.value());
}

} // namespace pedl
