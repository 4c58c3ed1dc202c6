#pragma once

#include "controls/BalancedEdits.h"

namespace pedl {

/// A button that springs back or stays, as its mode says: 0 rests at the maximum and goes to the
/// minimum while pressed, 1 the other way round, 2 toggles.
///
/// Return presses it as well, with two habits that are meant so: only a mode below the maximum
/// value reacts to the key's press (with the usual maximum of 1 that is mode 0), and the key's
/// release is not told. Thread: the editor's.
class ZMTMonoAndBistableButton : public BalancedEdits<VSTGUI::CControl>,
                                 public VSTGUI::IMultiBitmapControl {
public:
    ZMTMonoAndBistableButton(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener,
                             int32_t tag, VSTGUI::CBitmap* background);

    /// 0 to 2. The value becomes the mode's resting one (a toggle starts at the maximum), and the
    /// listener is told, who may ask `isModeChangeNotification` meanwhile.
    virtual void setMode(int32_t newMode);
    virtual bool isModeChangeNotification() { return modeChangeNotification; }
    virtual void setFlag(bool state);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    int32_t onKeyUp(VstKeyCode& keyCode) override;

    VSTGUI::CPoint offset;
    int32_t mode = 0;
    bool modeChangeNotification = false;
    bool flag = false; // nobody reads it
    CLASS_METHODS(ZMTMonoAndBistableButton, CControl)

protected:
    enum Mode : int32_t { kFirstMomentary, kSecondMomentary, kToggle };

    /// What a press makes of the value where it does not toggle.
    [[nodiscard]] virtual float pressedValue() const;
    /// Where a mode begins: at rest, or a toggle's start.
    [[nodiscard]] virtual float startValue() const;
    /// The value that the second frame shows.
    [[nodiscard]] virtual float secondFrameValue() const;
    ~ZMTMonoAndBistableButton() override = default;

private:
    [[nodiscard]] float otherEnd(float end) const { return end == vmin ? vmax : vmin; }
    void press();

    bool isHeld_ = false;
};

} // namespace pedl
