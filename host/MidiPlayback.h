#pragma once

#include "host/MidiFile.h"
#include "host/Plugin.h"

#include <cstdint>
#include <vector>

namespace pedl {

/// Plays a MIDI file to a plug-in: messages, tempo and time signature, each at its frame.
///
///     for (...) {
///         playback.playTo(plugin);
///         plugin.process(..., playback.framesToNext(plugin.services().positionFrames(), most));
///     }
///
/// Plug-ins take what comes at the start of a block, however late in it an event is said to be, and
/// are told one tempo a block. So a block ends where something is due, and the outcome does not
/// depend on the size of the blocks.
class MidiPlayback {
public:
    /// @param tempoBpm  until the file's first tempo
    MidiPlayback(const MidiFile& file, double tempoBpm, double sampleRateHz);

    /// Sets the transport and sends the messages that are due where the plug-in's song stands. A
    /// suspended plug-in hears the tempo alone; its messages wait.
    /// Real time: as `Plugin::sendMidi`.
    void playTo(Plugin& plugin);

    /// How many frames from `frame` on have nothing due between them, at most `most`.
    [[nodiscard]] VstInt32 framesToNext(std::int64_t frame, VstInt32 most) const;

private:
    struct Change {
        std::int64_t frame = 0;
        Transport transport;
    };
    struct Message {
        std::int64_t frame = 0;
        VstMidiEvent event{};
    };

    std::vector<Change> changes_; // by frame, the first at 0
    std::vector<Message> messages_;
    std::size_t nextChange_ = 0;
    std::size_t nextMessage_ = 0;
    std::vector<VstMidiEvent> due_;
};

} // namespace pedl
