#include "host/SoundOutput.h"

#include <RtAudio.h>

#include <array>
#include <chrono>
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

int onFramesWanted(void* stereo, void* /*recorded*/, unsigned int frames, double /*seconds*/,
                   RtAudioStreamStatus /*status*/, void* source) {
    (*static_cast<SoundOutput::Source*>(source))(static_cast<float*>(stereo),
                                                 static_cast<VstInt32>(frames));
    return 0;
}

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
        auto frames = static_cast<unsigned int>(blockFrames_);
        device->openStream(&stereo, nullptr, RTAUDIO_FLOAT32,
                           static_cast<unsigned int>(sampleRateHz_), &frames, onFramesWanted,
                           &source_, &options);
        // ALSA may give a rate nearby, which would be another pitch.
        if (device->getStreamSampleRate() != static_cast<unsigned int>(sampleRateHz_))
            return false;
        device->startStream();
        device_ = std::move(device);
        return true;
    } catch (const RtAudioError&) {
        return false;
    }
}

bool SoundOutput::survive() {
    if (!device_ || device_->isStreamRunning())
        return false;
    device_.reset();
    description_ = "silently: the sound device has gone";
    beSilent();
    return true;
}

void SoundOutput::beSilent() {
    clock_ = std::jthread([this](const std::stop_token& end) {
        std::vector<float> unheard(2 * static_cast<std::size_t>(blockFrames_));
        const auto start = std::chrono::steady_clock::now();
        // Reckoned from the start, so that no rounding makes it drift.
        for (std::int64_t frames = 0; !end.stop_requested(); frames += blockFrames_) {
            source_(unheard.data(), blockFrames_);
            std::this_thread::sleep_until(
                start +
                std::chrono::nanoseconds((frames + blockFrames_) * 1'000'000'000 / sampleRateHz_));
        }
    });
}

} // namespace pedl
