#include "host/Renderer.h"

#include "host/Channels.h"
#include "host/Interrupt.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace pedl {

namespace {

using SteadyClock = std::chrono::steady_clock;

double secondsSince(SteadyClock::time_point start) {
    return std::chrono::duration<double>(SteadyClock::now() - start).count();
}

template <typename Sample>
void measure(const std::vector<Sample>& stereo, VstInt32 frames, bool cutsAtFullScale,
             RenderReport& report) {
    for (std::size_t i = 0; i < 2 * static_cast<std::size_t>(frames); ++i) {
        const double level = std::abs(static_cast<double>(stereo[i]));
        if (!std::isfinite(level)) {
            ++report.samplesNotFinite;
            continue;
        }
        report.peak = std::max(report.peak, level);
        if (level > 1.0 && cutsAtFullScale)
            ++report.samplesCut;
    }
}

template <typename Sample>
double peakOf(const std::vector<Sample>& samples, std::size_t count, double peak) {
    for (std::size_t i = 0; i < count; ++i)
        if (const double level = std::abs(static_cast<double>(samples[i])); std::isfinite(level))
            peak = std::max(peak, level);
    return peak;
}

} // namespace

Renderer::Renderer(Plugin& plugin, AudioReader& reader, AudioWriter& writer, VstInt32 blockFrames)
    : plugin_(plugin), reader_(reader), writer_(writer), blockFrames_(blockFrames) {}

Result<RenderReport> Renderer::run(Precision precision) {
    return precision == Precision::Double ? runAs<double>() : runAs<float>();
}

/// As a host does before the first block.
void Renderer::switchOn() {
    applied_.assign(automation_.size(), -1.0F);
    plugin_.services().transport.isPlaying = true;
    plugin_.services().processLevel = kVstProcessLevelOffline;
    plugin_.services().jumpTo(0);
    applyCurves(); // before the switch-on, so that nothing glides from another value at the start
    if (midi_)
        midi_->playTo(plugin_);
    plugin_.resume();
}

template <typename Sample> Result<RenderReport> Renderer::runAs() {
    const int channels = reader_.channels();
    const Channels<Sample> inputs(plugin_.record().numInputs, blockFrames_);
    const Channels<Sample> outputs(plugin_.record().numOutputs, blockFrames_);
    const auto block = static_cast<std::size_t>(blockFrames_);
    std::vector<Sample> fromFile(block * static_cast<std::size_t>(channels));
    std::vector<Sample> toFile(block * 2);
    const double wholeFrames = static_cast<double>(reader_.lengthFrames() + tailFrames_);

    RenderReport report;
    report.sampleRateHz = reader_.sampleRateHz();
    switchOn();
    const SteadyClock::time_point start = SteadyClock::now();
    bool isInTail = false;
    for (std::int64_t tailLeft = tailFrames_;;) {
        VstInt32 frames = 0;
        if (!isInTail) {
            frames = static_cast<VstInt32>(reader_.read(fromFile.data(), blockFrames_));
            isInTail = frames == 0;
            if (isInTail)
                report.framesMissing =
                    std::max<std::int64_t>(0, reader_.lengthFrames() - report.frames);
        }
        if (isInTail) {
            frames = static_cast<VstInt32>(std::min<std::int64_t>(tailLeft, blockFrames_));
            tailLeft -= frames;
            std::fill(fromFile.begin(), fromFile.end(), Sample{0});
        }
        if (frames == 0)
            break;

        report.inputPeak =
            peakOf(fromFile, static_cast<std::size_t>(frames) * static_cast<std::size_t>(channels),
                   report.inputPeak);
        fillInputs<Sample>(fromFile.data(), channels, frames, inputs);
        const SteadyClock::time_point entered = SteadyClock::now();
        process(inputs, outputs, frames);
        report.pluginSeconds += secondsSince(entered);
        interleave(outputs, frames, toFile.data());

        measure(toFile, frames, writer_.cutsAtFullScale(), report);
        if (const Done written = writer_.write(toFile.data(), frames); !written.ok())
            return written.problem();
        report.frames += frames;
        if (listener_)
            listener_(std::min(1.0, static_cast<double>(report.frames) / wholeFrames));
        if (Interrupt::signalNumber() != 0)
            return Problem{"interrupted; nothing was written"};
    }
    plugin_.suspend();
    report.wallSeconds = secondsSince(start);
    if (const Done read = reader_.state(); !read.ok())
        return read.problem();
    return report;
}

/// One block of the file, which MIDI cuts into several for the plug-in.
template <typename Sample>
void Renderer::process(const Channels<Sample>& inputs, const Channels<Sample>& outputs,
                       VstInt32 frames) {
    applyCurves();
    for (VstInt32 done = 0; done < frames;) {
        VstInt32 part = frames - done;
        if (midi_) {
            midi_->playTo(plugin_);
            part = midi_->framesToNext(plugin_.services().positionFrames(), part);
        }
        plugin_.process(inputs.from(done), outputs.from(done), part);
        done += part;
    }
}

void Renderer::applyCurves() {
    HostServices& services = plugin_.services();
    const double seconds = static_cast<double>(services.positionFrames()) / services.sampleRateHz;
    for (std::size_t i = 0; i < automation_.size(); ++i) {
        const float normalised = automation_[i].curve.valueAt(seconds);
        if (normalised == applied_[i])
            continue;
        applied_[i] = normalised;
        plugin_.setParameter(automation_[i].index, normalised);
    }
}

} // namespace pedl
