#pragma once

#include "vstgui/lib/cview.h"

namespace pedl {

/// A control (`Base`) with one operation for the wheel: to the right is as upwards.
///
/// Whoever turns it may ask for either of the toolkit's two; a derived class has `turnWheel`.
template <typename Base> class AnyWheel : public Base {
public:
    using Base::Base;

    bool onWheel(const VSTGUI::CPoint& where, const float& distance,
                 const VSTGUI::CButtonState& buttons) override {
        return turnWheel(where, distance, buttons);
    }
    bool onWheel(const VSTGUI::CPoint& where, const VSTGUI::CMouseWheelAxis& /*axis*/,
                 const float& distance, const VSTGUI::CButtonState& buttons) override {
        return turnWheel(where, distance, buttons);
    }

protected:
    /// @param distance  notches, up is positive
    /// @return whether the wheel was used
    virtual bool turnWheel(const VSTGUI::CPoint& where, float distance,
                           const VSTGUI::CButtonState& buttons) {
        return Base::onWheel(where, distance, buttons);
    }
};

} // namespace pedl
