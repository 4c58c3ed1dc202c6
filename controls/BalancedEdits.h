#pragma once

#include "controls/AnyWheel.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/ccontrol.h"

#include <utility>

namespace pedl {

/// A control (`Base`) whose edits always end, so that a host never waits for the end of a gesture.
///
/// The listener may take the control away, or close the window, in any call. Edits that are open
/// then end before the control leaves its frame, and the ends that the interrupted code still asks
/// for are left out. Calls are passed on as they come otherwise, an end without a begin too.
template <typename Base> class BalancedEdits : public AnyWheel<Base> {
public:
    using AnyWheel<Base>::AnyWheel;
    BalancedEdits(const BalancedEdits& other) : AnyWheel<Base>(other) {} // a copy has no edit open

    void beginEdit() override {
        const VSTGUI::CBaseObjectGuard self(this);
        endsGivenEarly_ = 0;
        const bool wasInFrame = this->getFrame() != nullptr;
        const int32_t outer = std::exchange(beginsAt_, openEdits_);
        if (this->listener)
            this->listener->controlBeginEdit(this);
        const bool isEnded = std::exchange(beginsAt_, outer) == kNoBegin;
        if (isEnded) // a held key was let go meanwhile: the host never hears of this edit
            return;
        if (VSTGUI::CFrame* const frame = this->getFrame()) {
            ++openEdits_; // first: the host may take the control away as well
            frame->beginEdit(this->getTag());
        } else if (wasInFrame) { // the listener took it away: the host never hears of this edit
            ++endsGivenEarly_;
            if (this->listener)
                this->listener->controlEndEdit(this);
        }
    }

    void endEdit() override {
        if (endsGivenEarly_ > 0) {
            --endsGivenEarly_;
            return;
        }
        if (openEdits_ == beginsAt_) { // the listener still hears of its begin
            beginsAt_ = kNoBegin;
            if (this->listener)
                this->listener->controlEndEdit(this);
            return;
        }
        endOneEdit();
    }

    bool removed(VSTGUI::CView* parent) override {
        const VSTGUI::CBaseObjectGuard self(this);
        endOpenEdits();
        return Base::removed(parent);
    }

protected:
    /// For an event that tells of a release which was never seen.
    void endOpenEdits() {
        while (openEdits_ > 0) {
            ++endsGivenEarly_; // first: whoever hears of this end may have the code ask for it
            endOneEdit();
        }
    }
    /// The edit that was begun last has no end, on purpose.
    void leaveEditOpen() {
        if (openEdits_ > 0)
            --openEdits_;
    }

private:
    static constexpr int32_t kNoBegin = -1;

    void endOneEdit() {
        if (openEdits_ > 0)
            --openEdits_;
        Base::endEdit();
    }

    int32_t openEdits_ = 0; // that the host has heard of
    int32_t endsGivenEarly_ = 0;
    int32_t beginsAt_ = kNoBegin; // how many were open when the one that is being told began
};

} // namespace pedl
