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
void measure(const Sample* stereo, std::int64_t frames, bool cutsAtFullScale,
             RenderReport& report) {
    for (std::int64_t i = 0; i < 2 * frames; ++i) {
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

/// What is no louder than this is silence, and silence for so long is the end.
constexpr double kSilence = 1e-5; // -100 dBFS
constexpr double kSilentSeconds = 1.0;

/// Stereo frames up to the last that sounds.
template <typename Sample> std::size_t framesUntilSilence(const std::vector<Sample>& stereo) {
    std::size_t samples = stereo.size();
    while (samples > 0 && std::abs(static_cast<double>(stereo[samples - 1])) <= kSilence)
        --samples;
    return (samples + 1) / 2;
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

/// One block on its way through the plug-in: interleaved as in files, and by channel.
template <typename Sample> struct Renderer::Buffers {
    Buffers(const Plugin& plugin, int channels, VstInt32 blockFrames)
        : inputs(plugin.record().numInputs, blockFrames),
          outputs(plugin.record().numOutputs, blockFrames),
          fromFile(static_cast<std::size_t>(blockFrames) * static_cast<std::size_t>(channels)),
          toFile(static_cast<std::size_t>(blockFrames) * 2) {}

    Channels<Sample> inputs, outputs;
    std::vector<Sample> fromFile; // mono or stereo
    std::vector<Sample> toFile;   // stereo
};

template <typename Sample> Result<RenderReport> Renderer::runAs() {
    Buffers<Sample> buffers(plugin_, reader_.channels(), blockFrames_);
    RenderReport report;
    report.sampleRateHz = reader_.sampleRateHz();
    switchOn();
    const SteadyClock::time_point start = SteadyClock::now();
    Done played = playSound(buffers, report);
    if (played.ok())
        played = playTail(buffers, report);
    plugin_.suspend();
    report.wallSeconds = secondsSince(start);
    if (!played.ok())
        return played.problem();
    return report;
}

template <typename Sample>
Done Renderer::playSound(Buffers<Sample>& buffers, RenderReport& report) {
    for (;;) {
        const auto frames =
            static_cast<VstInt32>(reader_.read(buffers.fromFile.data(), blockFrames_));
        if (frames == 0)
            break;
        const auto samples =
            static_cast<std::size_t>(frames) * static_cast<std::size_t>(reader_.channels());
        report.inputPeak = peakOf(buffers.fromFile, samples, report.inputPeak);
        renderBlock(buffers, frames, report);
        if (Done written = write(buffers.toFile.data(), frames, report); !written.ok())
            return written;
    }
    if (reader_.lengthFrames())
        report.framesMissing = std::max<std::int64_t>(0, *reader_.lengthFrames() - report.frames);
    return reader_.state();
}

/// A silence is written only when sound comes after it.
template <typename Sample> Done Renderer::playTail(Buffers<Sample>& buffers, RenderReport& report) {
    const auto enoughFrames =
        static_cast<std::size_t>(std::lround(kSilentSeconds * report.sampleRateHz));
    std::vector<Sample> unwritten;
    std::fill(buffers.fromFile.begin(), buffers.fromFile.end(), Sample{0});
    for (std::int64_t left = tail_.frames; left > 0;) {
        const auto frames = static_cast<VstInt32>(std::min<std::int64_t>(left, blockFrames_));
        left -= frames;
        renderBlock(buffers, frames, report);
        unwritten.insert(unwritten.end(), buffers.toFile.begin(),
                         buffers.toFile.begin() + 2 * std::ptrdiff_t{frames});
        const std::size_t ready =
            tail_.endsInSilence ? framesUntilSilence(unwritten) : unwritten.size() / 2;
        if (Done written = write(unwritten.data(), static_cast<std::int64_t>(ready), report);
            !written.ok())
            return written;
        unwritten.erase(unwritten.begin(),
                        unwritten.begin() + 2 * static_cast<std::ptrdiff_t>(ready));
        if (tail_.endsInSilence && unwritten.size() / 2 >= enoughFrames)
            return done();
    }
    report.endsInSound = tail_.endsInSilence && tail_.frames > 0;
    return done();
}

/// What stands in `fromFile` through the plug-in into `toFile`.
template <typename Sample>
void Renderer::renderBlock(Buffers<Sample>& buffers, VstInt32 frames, RenderReport& report) {
    fillInputs<Sample>(buffers.fromFile.data(), reader_.channels(), frames, buffers.inputs);
    const SteadyClock::time_point entered = SteadyClock::now();
    process(buffers.inputs, buffers.outputs, frames);
    report.pluginSeconds += secondsSince(entered);
    interleave(buffers.outputs, frames, buffers.toFile.data());
}

/// Writes frames and says how far the render is; a problem also where an end signal has come.
template <typename Sample>
Done Renderer::write(const Sample* stereo, std::int64_t frames, RenderReport& report) {
    measure(stereo, frames, writer_.cutsAtFullScale(), report);
    if (Done written = writer_.write(stereo, frames); !written.ok())
        return written;
    report.frames += frames;
    if (listener_ && reader_.lengthFrames()) {
        const std::int64_t expected = // silence comes soon, as a rule
            *reader_.lengthFrames() + (tail_.endsInSilence ? 0 : tail_.frames);
        listener_(
            std::min(1.0, static_cast<double>(report.frames) / static_cast<double>(expected)));
    }
    if (Interrupt::signalNumber() != 0)
        return Problem{writer_.appearsWhole() ? "interrupted; nothing was written" : "interrupted"};
    return done();
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
