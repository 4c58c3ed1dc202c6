#pragma once

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/ccontrol.h"

namespace pedl {

/// A control (`Base`) whose edits always end, so that a host never waits for the end of a gesture.
///
/// The listener may take the control away, or close the window, in any call. Edits that are open
/// then end before the control leaves its frame, and the ends that the interrupted code still asks
/// for are left out. Calls are passed on as they come otherwise, an end without a begin too.
template <typename Base> class BalancedEdits : public Base {
public:
    using Base::Base;
    BalancedEdits(const BalancedEdits& other) : Base(other) {} // a copy has no edit open

    void beginEdit() override {
        const VSTGUI::CBaseObjectGuard self(this);
        endsGivenEarly_ = 0;
        if (this->listener)
            this->listener->controlBeginEdit(this);
        ++openEdits_; // from here on the host may have heard of it
        if (VSTGUI::CFrame* const frame = this->getFrame())
            frame->beginEdit(this->getTag());
    }

    void endEdit() override {
        if (endsGivenEarly_ > 0) {
            --endsGivenEarly_;
            return;
        }
        if (openEdits_ > 0)
            --openEdits_;
        Base::endEdit();
    }

    bool removed(VSTGUI::CView* parent) override {
        const VSTGUI::CBaseObjectGuard self(this);
        endOpenEdits();
        return Base::removed(parent);
    }

protected:
    /// For an event that tells of a release which was never seen.
    void endOpenEdits() {
        int32_t early = 0;
        for (; openEdits_ > 0; ++early)
            endEdit();
        endsGivenEarly_ = early;
    }

private:
    int32_t openEdits_ = 0;
    int32_t endsGivenEarly_ = 0;
};

} // namespace pedl
