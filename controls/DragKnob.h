#pragma once

#include "controls/BalancedEdits.h"
#include "vstgui/lib/controls/cknob.h"

namespace pedl {

/// What our two knobs do alike: a drag along a line, a reset, a wheel of their own.
///
/// To the right and upwards is more; the whole range takes 1000 x `dragScale` pixels, with Shift
/// `fineFactor` times as many. Shift may come and go in the middle without a jump. Control or a
/// double click goes to the default value. The toolkit's own knob modes are not asked.
///
/// The owner sets the public fields. Thread: the editor's.
class DragKnob : public BalancedEdits<VSTGUI::CAnimKnob> {
public:
    DragKnob(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
             int32_t subPixmaps, int32_t bitmapWidth, int32_t heightOfOneImage,
             VSTGUI::CBitmap* background, const VSTGUI::CPoint& offset);

    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;

    /// The value of the frame that is shown; in a fine drag `fineFactor` times finer.
    virtual float getQuantizedValue();

    float wheelStep = 0.01F;     // a notch
    float wheelFineScale = 0.1F; // on `wheelStep`, with Shift
    float dragScale = 1.0F;      // the whole range in thousands of pixels
    float fineFactor = 5.0F;     // on the length of the drag, with Shift

    // The drag under way
    float entryValue = 0.0F; // where it began, moved when Shift comes or goes
    VSTGUI::CButtonState lastButtons;
    VSTGUI::CPoint firstPoint;
    float dragRange = 0.0F; // pixels
    bool linearDrag = false;
    float startOldValue = 0.0F;
    float dragCoef = 0.0F; // value for a pixel
    float halfRange = 0.0F;
    float fineScale = 1.0F;
    bool fine = false;
    bool mouseActive = false; // from the press to the release, and while the wheel is told

    int32_t frameCount = 0;
    int32_t bitmapHeight = 0;
    int32_t bitmapWidth = 0;

protected:
    /// One `wheelStep` a notch, however far the wheel was turned at once.
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~DragKnob() override = default;

private:
    void setFine(bool isFine);
};

} // namespace pedl
