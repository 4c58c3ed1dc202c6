#pragma once

#include "foundation/basics/Relaxed.h"
#include "foundation/vst24/AEffect.h"
#include "foundation/vst24/VstStructures.h"

#include <cstdint>
#include <optional>

namespace pedl {

/// What the song does while a plug-in runs, from a place on. Before that place, which tempo and
/// bars lead up to it cannot be told: the song is reckoned from it.
struct Transport {
    double tempoBpm = 120.0;
    VstInt32 beatsPerBar = 4;
    VstInt32 beatUnit = 4; // 4: a quarter note
    bool isPlaying = false;

    double fromSeconds = 0.0;     // the place in time
    double fromQuarters = 0.0;    // the same place in quarter notes
    double fromBarQuarters = 0.0; // where a bar began, at or before it

    [[nodiscard]] double quartersAt(double seconds) const {
        return fromQuarters + (seconds - fromSeconds) * tempoBpm / 60.0;
    }
    [[nodiscard]] double barStartAt(double quarters) const;
};

/// The host's side of one plug-in instance: answers every call that the plug-in makes.
///
/// A plug-in may call before its entry has returned, with a null record, from inside any call of
/// ours and from threads of its own. `callback` finds the services that are meant: those of the
/// call that is under way in this thread (`Active`), else those noted in the record.
///
/// Thread: set before processing or between blocks by the thread that processes; `answer` any. Real
/// time: answering neither allocates nor locks.
class HostServices {
public:
    static constexpr VstInt32 kVstVersion = 2400;

    double sampleRateHz = 44100.0;
    VstInt32 blockFrames = 512;
    VstInt32 processLevel = kVstProcessLevelUser;
    Transport transport;

    /// The function that every plug-in is given.
    static VstIntPtr VSTCALLBACK callback(AEffect* effect, VstInt32 opcode, VstInt32 index,
                                          VstIntPtr value, void* ptr, float opt);

    /// What this thread calls the plug-in for.
    enum class Purpose { Anything, Audio };

    /// Marks, for its lifetime, these services as the ones of the plug-in that this thread calls.
    class Active {
    public:
        explicit Active(HostServices& services, Purpose purpose = Purpose::Anything);
        ~Active();
        Active(const Active&) = delete;
        Active& operator=(const Active&) = delete;

    private:
        HostServices* outer_;
        Purpose outerPurpose_;
    };

    struct EditorSize {
        VstInt32 widthPixels;
        VstInt32 heightPixels;
    };
    /// The size that the editor has asked its window to have since the last call, if it has.
    [[nodiscard]] std::optional<EditorSize> takeWantedSize();

    /// Moves the song on. A change of place or state is reported to the plug-in for one block.
    void advance(VstInt32 frames);
    void jumpTo(std::int64_t frame);
    [[nodiscard]] std::int64_t positionFrames() const { return positionFrames_.get(); }

private:
    VstIntPtr answer(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr);
    VstIntPtr noteWantedSize(VstInt32 widthPixels, VstIntPtr heightPixels);
    [[nodiscard]] VstInt32 levelOfThisThread() const;
    const VstTimeInfo* timeInfo() const;

    Relaxed<std::int64_t> positionFrames_;
    Relaxed<bool> hasJumped_{true};
    Relaxed<std::uint32_t> wantedSize_; // width above height, 16 bits each; 0: none
};

} // namespace pedl
