#pragma once

#include "foundation/vst24/VstTypes.h"

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

    /// Where the device has gone, goes on without one.
    /// @return whether it had gone since the last call
    bool survive();

private:
    bool openDevice(int api);
    void beSilent();

    int sampleRateHz_;
    VstInt32 blockFrames_;
    Source source_;
    std::string description_;
    std::unique_ptr<RtAudio> device_; // null: silent
    std::jthread clock_;              // asks for frames in the device's place
};

} // namespace pedl
