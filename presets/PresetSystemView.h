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

    /// The host has stopped the audio; meters may come to rest. Thread: never audio.
    virtual void processingSuspended() noexcept = 0;
};

} // namespace pedl
