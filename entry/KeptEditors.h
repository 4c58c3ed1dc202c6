#pragma once

#include "editor/ZMTpedlFilterEditor.h"
#include "foundation/platform/DesktopOpener.h"

namespace pedl {

/// An editor that outlives its effect: a host may still be closing the window while the effect
/// goes.
///
/// Left alone, it is reclaimed when the next one is made and when the library goes, so that any
/// number of instances leaves no growth. Thread: any.
class KeptEditor {
public:
    /// With the first opening of its window still to come.
    static KeptEditor* make(ZMTpedlFilterEffect& effect);

    /// The effect goes: nothing reaches it any more, and this editor waits for its end.
    void leave() noexcept;

    /// Ends the editors whose effects are gone.
    static void reclaim() noexcept;

private:
    explicit KeptEditor(ZMTpedlFilterEffect& effect);

    DesktopOpener opener_;
    ZMTpedlFilterEditor editor_;
    KeptEditor* next_ = nullptr; // of those that were left alone
};

} // namespace pedl
