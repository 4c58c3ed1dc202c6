#pragma once

#include <cstdint>
#include <string_view>

namespace pedl {

/// What the effect tells whoever shows it: a window, or a test's recorder.
///
/// Calls come on the thread that made the change, which may be the audio thread. An implementation
/// takes note and returns: it neither blocks nor allocates nor calls the effect back.
class PresetSystemView {
public:
    virtual ~PresetSystemView() = default;

    /// @param index       a parameter or a control tag
    /// @param normalised  what was set; the effect's `getParameter` may hold something else
    virtual void parameterChanged(std::int32_t index, float normalised) noexcept = 0;

    /// The current program has a new name. Thread: never audio.
    virtual void programNameChanged(std::string_view name) noexcept = 0;

    /// A slot has another name than its entry in the view's program menu. Thread: never audio.
    virtual void programMenuEntryChanged(std::int32_t slot) noexcept = 0;

    /// A loaded bank makes this slot current: menu and name display show it. Thread: never audio.
    virtual void programShown(std::int32_t slot) noexcept = 0;

    /// The host has stopped the audio; meters may come to rest. Thread: never audio.
    virtual void processingSuspended() noexcept = 0;

    // MIDI. Each of these comes on the audio thread too: real time.

    /// @param normalised  the new channel as `getParameter(kMidiChannel)` now has it
    virtual void midiChannelChanged(float normalised) noexcept = 0;

    /// A controller of the received channel has moved.
    virtual void midiActivity() noexcept = 0;

    /// MIDI learn is off: a link was made, or the user called it off.
    virtual void learnEnded() noexcept = 0;

    /// MIDI forget is off: a link was taken away, or the user called it off.
    virtual void forgetEnded() noexcept = 0;
};

} // namespace pedl
