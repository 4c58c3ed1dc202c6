#pragma once

#include "host/Channels.h"
#include "host/LoopedSound.h"
#include "host/Plugin.h"
#include "host/SoundOutput.h"

#include <memory>
#include <string>

namespace pedl {

/// Runs a sound through a plug-in in real time, again and again, from its making to its end: what a
/// DAW with a running song gives a plug-in whose editor is open. The song begins anew with the
/// sound.
///
/// Thread: made, asked and ended by the one that has the plug-in. Between those the plug-in's
/// `process` belongs to a thread of the output.
class LivePlayback {
public:
    /// @param plugin  processes files, is prepared for the sound's rate and `blockFrames`;
    /// suspended
    LivePlayback(Plugin& plugin, LoopedSound sound, VstInt32 blockFrames);
    ~LivePlayback();
    LivePlayback(const LivePlayback&) = delete;
    LivePlayback& operator=(const LivePlayback&) = delete;

    /// How it is heard, as `SoundOutput::description`.
    [[nodiscard]] const std::string& description() const { return output_->description(); }
    /// Goes on silently where the sound device has gone.
    /// @return whether it had
    bool survive() { return output_->survive(); }

private:
    /// The next frames. Real time.
    void fill(float* stereo, VstInt32 frames);

    Plugin& plugin_;
    LoopedSound sound_;
    VstInt32 blockFrames_;
    Channels<float> inputs_;
    Channels<float> outputs_;
    std::unique_ptr<SoundOutput> output_; // last: ended first
};

} // namespace pedl
