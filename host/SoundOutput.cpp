#include "host/SoundOutput.h"

#include <RtAudio.h>

#include <array>
#include <utility>
#include <vector>

namespace pedl {

namespace {

struct Api {
    RtAudio::Api number;
    const char* name;
};
constexpr std::array<Api, 3> kApis{{{RtAudio::UNIX_JACK, "JACK"},
                                    {RtAudio::LINUX_PULSE, "PulseAudio"},
                                    {RtAudio::LINUX_ALSA, "ALSA"}}};

} // namespace

SoundOutput::SoundOutput(int sampleRateHz, VstInt32 blockFrames, Source source)
    : sampleRateHz_(sampleRateHz), blockFrames_(blockFrames), source_(std::move(source)) {
    for (const Api& api : kApis)
        if (openDevice(api.number)) {
            description_ = std::string("through ") + api.name;
            return;
        }
    description_ =
        "silently: there is no sound device that takes " + std::to_string(sampleRateHz) + " Hz";
    beSilent();
}

SoundOutput::~SoundOutput() = default; // where the device's class is known

bool SoundOutput::openDevice(int api) {
    constexpr unsigned int kBuffers = 4; // PulseAudio would take two seconds in advance
    const RtAudioCallback onFramesWanted = [](void* stereo, void* /*recorded*/, unsigned int frames,
                                              double /*seconds*/, RtAudioStreamStatus /*status*/,
                                              void* self) {
        auto& output = *static_cast<SoundOutput*>(self);
        output.source_(static_cast<float*>(stereo), static_cast<VstInt32>(frames));
        output.askedFrames_.set(output.askedFrames_.get() + frames);
        return 0;
    };
    try {
        auto device = std::make_unique<RtAudio>(static_cast<RtAudio::Api>(api));
        if (device->getCurrentApi() != api || device->getDeviceCount() == 0)
            return false;
        device->showWarnings(false);
        RtAudio::StreamParameters stereo;
        stereo.deviceId = device->getDefaultOutputDevice();
        stereo.nChannels = 2;
        RtAudio::StreamOptions options;
        options.streamName = "zmt-pedlfilter";
        options.numberOfBuffers = kBuffers;
        auto frames = static_cast<unsigned int>(blockFrames_);
        device->openStream(&stereo, nullptr, RTAUDIO_FLOAT32,
                           static_cast<unsigned int>(sampleRateHz_), &frames, onFramesWanted, this,
                           &options);
        // ALSA may give a rate nearby, which would be another pitch.
        if (device->getStreamSampleRate() != static_cast<unsigned int>(sampleRateHz_))
            return false;
        device->startStream();
        seenAt_ = Clock::now();
        device_ = std::move(device);
        return true;
    } catch (const RtAudioError&) {
        return false;
    }
}

bool SoundOutput::survive() {
    if (!device_ || (device_->isStreamRunning() && !hasLostPace()))
        return false;
    device_.reset();
    description_ = "silently: the sound device has gone";
    beSilent();
    return true;
}

/// Some backends do not notice: they ask for nothing more, or as fast as they can.
bool SoundOutput::hasLostPace() {
    constexpr std::chrono::seconds kWhile{2};
    constexpr double kMostTimesRealTime = 4.0;
    const Clock::duration gone = Clock::now() - seenAt_;
    if (gone < kWhile)
        return false;
    const std::int64_t frames = askedFrames_.get() - std::exchange(seenFrames_, askedFrames_.get());
    seenAt_ += gone;
    const double due = std::chrono::duration<double>(gone).count() * sampleRateHz_;
    return frames == 0 || static_cast<double>(frames) > kMostTimesRealTime * due;
}

void SoundOutput::beSilent() {
    clock_ = std::jthread([this](const std::stop_token& end) {
        std::vector<float> unheard(2 * static_cast<std::size_t>(blockFrames_));
        const auto start = Clock::now();
        // Reckoned from the start, so that no rounding makes it drift.
        for (std::int64_t frames = 0; !end.stop_requested(); frames += blockFrames_) {
            source_(unheard.data(), blockFrames_);
            const std::chrono::duration<double> played(static_cast<double>(frames + blockFrames_) /
                                                       sampleRateHz_);
            std::this_thread::sleep_until(start +
                                          std::chrono::duration_cast<Clock::duration>(played));
        }
    });
}

} // namespace pedl
