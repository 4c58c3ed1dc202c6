#pragma once

#include "editor/Panel.h"

namespace pedl {

/// Which quantity the amber digits show.
///
/// There is a permanent one, cut-off or LFO rate. Touching the other one, or pointing at its
/// encoder, shows that at once, and for two seconds after the last touch. The effect holds what is
/// shown (`kDisplayParameterMode`), so that it outlives the window.
class DisplayChoice {
public:
    explicit DisplayChoice(Panel& panel) : panel_(panel) {}

    /// The window is complete.
    void opened() { lastTouchTime_ = 0; }

    // What the user does
    void touch() { lastTouchTime_ = panel_.now(); }
    void touchTempo() { lastDisplaySwitchTick_ = panel_.now(); } // stays for a while as it is
    void choosePermanent(bool isCutoff);

    /// Puts the digits of the quantity that is to be shown into the frame and takes the others out.
    void refresh();
    /// The sync mode or the shown quantity has changed: tempo digits make way at once.
    void refreshWithoutTempo();

    /// Encoders under the mouse, and a tempo's digits over one with Alt.
    void idleHover(const MouseState& mouse);
    /// What of the digits blinks.
    void idleBlinking();
    /// Goes back to the permanent quantity when it is time.
    void idleRefresh();

private:
    void showCutoff();
    void showRate();
    void showTempo();
    void veilTempo();
    void hoverLfo(bool hasAlt);
    void hoverCutoff();
    void setShown(float quantity) const;
    [[nodiscard]] bool isTouchOver() const;
    [[nodiscard]] bool isTempoHeldShown() const;

    Panel& panel_;
    bool holdsCutoff_ = true;
    TickMs lastTouchTime_ = 0;
    TickMs lastDisplaySwitchTick_ = 0;
    TickMs lastBlinkTick_ = 0;
    bool blinkPhase_ = false;
};

} // namespace pedl
