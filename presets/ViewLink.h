#pragma once

#include <atomic>

namespace pedl {

class PresetSystemView;

/// The effect's way to whoever shows it, if anyone does.
///
/// Thread: any; `tell` is real time. Threads that tell count themselves before they look for the
/// view, and `set` waits for the count to fall to nothing: the audio thread never waits, and a view
/// that was taken away may be destroyed.
class ViewLink {
public:
    /// Whom to tell from here on, null for nobody. When it returns, no thread is inside the old
    /// view or will be. Never from within a call of the view: that one would wait for itself.
    void set(PresetSystemView* view) noexcept;

    /// Hands the view to `call`, where there is one.
    template <typename Call> void tell(Call call) noexcept {
        telling_.fetch_add(1);
        if (PresetSystemView* const view = view_.load())
            call(*view);
        telling_.fetch_sub(1);
    }

private:
    // Sequentially consistent: whoever is not counted yet when `set` looks sees the new view.
    std::atomic<PresetSystemView*> view_{nullptr};
    std::atomic<int> telling_{0};
};

} // namespace pedl
