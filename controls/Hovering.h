#pragma once

#include "vstgui/lib/cview.h"

namespace pedl {

/// A control (`Base`) that looks different while the mouse is over it.
template <typename Base> class Hovering : public Base {
public:
    using Base::Base;

    VSTGUI::CMouseEventResult onMouseEntered(VSTGUI::CPoint& /*where*/,
                                             const VSTGUI::CButtonState& /*buttons*/) override {
        return showHover(true);
    }
    VSTGUI::CMouseEventResult onMouseExited(VSTGUI::CPoint& /*where*/,
                                            const VSTGUI::CButtonState& /*buttons*/) override {
        return showHover(false);
    }

    bool hover = false;

private:
    VSTGUI::CMouseEventResult showHover(bool isOver) {
        hover = isOver;
        this->invalid();
        return VSTGUI::kMouseEventHandled;
    }
};

} // namespace pedl
