#pragma once

#include "foundation/basics/Relaxed.h"
#include "foundation/vst24/VstTypes.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <thread>

class RtAudio;

namespace pedl {

/// Asks for frames in real time, from its making to its end, and lets them be heard: through JACK,
/// PulseAudio or ALSA, the first that takes the rate, else through nothing.
///
/// Thread: made, asked and ended by one; the frames are asked for in another.
class SoundOutput {
public:
    /// Writes the next frames, as many as are asked for, in [-1, 1]. Real time.
    using Source = std::function<void(float* stereo, VstInt32 frames)>;

    SoundOutput(int sampleRateHz, VstInt32 blockFrames, Source source);
    ~SoundOutput();
    SoundOutput(const SoundOutput&) = delete;
    SoundOutput& operator=(const SoundOutput&) = delete;

    /// "through JACK", or "silently: there is no sound device that takes 44100 Hz".
    [[nodiscard]] const std::string& description() const { return description_; }

    /// Where the device has gone, goes on without one. To be asked now and then.
    /// @return whether it has
    bool survive();

private:
    using Clock = std::chrono::steady_clock;

    bool openDevice(int api);
    [[nodiscard]] bool hasLostPace();
    void beSilent();

    int sampleRateHz_;
    VstInt32 blockFrames_;
    Source source_;
    std::string description_;
    Relaxed<std::int64_t> askedFrames_; // by the device
    std::int64_t seenFrames_ = 0;       // of them, when the pace was looked at
    Clock::time_point seenAt_;
    std::unique_ptr<RtAudio> device_; // null: silent
    std::jthread clock_;              // asks for frames in the device's place
};

} // namespace pedl
