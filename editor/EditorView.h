#pragma once

#include "editor/PendingChanges.h"
#include "presets/PresetSystemView.h"

#include <atomic>
#include <thread>

namespace pedl {

/// Where changes of the effect end up: a parameter's index or a control's tag, and a value.
///
/// The preset bar's tags stand for what they show: `kPresetNameEdit` the name, `kPresetMenu` the
/// entries and, with a slot as the value, mark and name of that one, `kMidiChannel` the channel,
/// `kMidiLearn` and `kMidiForget` their end, `kMidiActivityLED` a controller that has moved.
class ChangeTarget {
public:
    /// As the value of `kPresetMenu`: the mark stays where it is.
    static constexpr float kNoSlot = -1.0F;

    virtual ~ChangeTarget() = default;
    /// @param isLate  it was made on another thread, before now
    virtual void applyChange(std::int32_t index, float value, bool isLate) = 0;
};

/// The effect's way into the editor: a change on the editor's thread is applied at once, one on any
/// other thread by the editor's next idle. Nobody waits.
class EditorView final : public PresetSystemView {
public:
    explicit EditorView(ChangeTarget& target) : target_(target) {}

    // Thread: the editor's

    /// The window is open, and the calling thread is the editor's until another one says so.
    void opened();
    void closed() noexcept { isOpen_.store(false); }
    /// Whoever calls the editor is its thread.
    void takeThread() noexcept { thread_.store(std::this_thread::get_id()); }
    void applyPending();

    // Thread: any
    [[nodiscard]] bool isEditorsThread() const noexcept {
        return thread_.load() == std::this_thread::get_id();
    }
    void parameterChanged(std::int32_t index, float normalised) noexcept override;
    void programNameChanged(std::string_view name) noexcept override;
    void programMenuEntryChanged(std::int32_t slot) noexcept override;
    void programShown(std::int32_t slot) noexcept override;
    /// Lamps fall by themselves when nothing lights them.
    void processingSuspended() noexcept override {}
    void midiChannelChanged(float normalised) noexcept override;
    void midiActivity() noexcept override;
    void learnEnded() noexcept override;
    void forgetEnded() noexcept override;

private:
    void change(std::int32_t index, float value) noexcept;

    ChangeTarget& target_;
    PendingChanges pending_;
    std::atomic<bool> isOpen_{false};
    std::atomic<std::thread::id> thread_{};
};

} // namespace pedl
