#include "host/RenderRemarks.h"

#include "convert/DocumentReader.h"
#include "foundation/text/FormattedText.h"

#include <cmath>
#include <set>

namespace pedl {

namespace {

double dbfs(double peak) {
    return 20.0 * std::log10(peak);
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

} // namespace

std::vector<std::string> remarksBefore(Plugin& plugin, const RenderRequest& request,
                                       const AudioReader& reader,
                                       const std::vector<Automation>& curves,
                                       const std::optional<MidiFile>& midi) {
    std::vector<std::string> remarks;
    if (const std::int64_t missing = reader.missingBytes(); missing > 0)
        remarks.push_back(reader.name() + ": is " + std::to_string(missing) +
                          " bytes shorter than its head says");
    const double rateHz = reader.sampleRateHz();
    const double soundSeconds = static_cast<double>(reader.lengthFrames().value_or(0)) / rateHz;
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

void addRemarks(const AudioReader& reader, RenderReport& report) {
    const std::string& in = reader.name();
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
    if (report.endsInSound)
        report.warnings.push_back(
            formatted("--tail auto: still sounds after %.0f s; cut there", kLongestTailSeconds));
}

} // namespace pedl
