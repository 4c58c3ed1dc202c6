#pragma once

#include "editor/ControlSet.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "vstgui/lib/cframe.h"

#include <cstdint>

namespace pedl {

/// Milliseconds of the toolkit's clock; differences are taken in 32 bits and outlive its wrapping.
using TickMs = std::uint32_t;

/// Where the mouse is and what is held, as one idle pass finds it.
struct MouseState {
    VSTGUI::CPoint where;
    VSTGUI::CButtonState buttons;

    [[nodiscard]] bool isAnyButtonDown() const { return buttons.getButtonState() != 0; }
    [[nodiscard]] bool isAltDown() const {
        return (buttons.getModifierState() & VSTGUI::kAlt) != 0;
    }
    [[nodiscard]] bool isIn(const VSTGUI::CView* view) const {
        return view && view->getViewSize().pointInside(where);
    }
};

/// Of the frame's window, live.
[[nodiscard]] MouseState mouseIn(const VSTGUI::CFrame& frame);

/// What the parts of an editor act on: the effect, and the window's controls while it is open.
///
/// A part looks for a control each time it needs one: the host may close the window in any call
/// that reaches it. Thread: the editor's.
struct Panel {
    ZMTpedlFilterEffect* effect = nullptr; ///< null once the effect is gone
    VSTGUI::CFrame* frame = nullptr;       ///< while the window is open
    ControlSet controls;

    [[nodiscard]] float value(std::int32_t index) const {
        return effect ? effect->getParameter(index) : 0.0F;
    }
    [[nodiscard]] bool isOn(std::int32_t index) const { return value(index) != 0.0F; }
    [[nodiscard]] TickMs now() const;

    void show(std::int32_t tag) const { showIn(frame, controls.find(tag)); }
    /// Out of sight, in the frame all the same, until it is shown again.
    void veil(std::int32_t tag) const {
        if (VSTGUI::CControl* const control = controls.find(tag))
            control->setVisible(false);
    }
    void hide(std::int32_t tag) const { takeOut(frame, controls.find(tag)); }
    /// A press beside the open list of waves closes it, also where it took no focus.
    void closeListBeside(const MouseState& mouse) const;
};

} // namespace pedl
