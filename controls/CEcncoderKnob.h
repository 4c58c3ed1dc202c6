#pragma once

#include "controls/BalancedEdits.h"
#include "vstgui/lib/controls/cknob.h"

namespace pedl {

/// An endless encoder: its picture turns on and on with `position` (0 to 1, then from the start)
/// while its value moves faster the farther the mouse does.
///
/// Abstract: the derived class says where a change came from. A move within the dead band begins an
/// edit and ends none; that is meant so.
class CEcncoderKnob : public BalancedEdits<VSTGUI::CAnimKnob> {
public:
    CEcncoderKnob(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                  int32_t subPixmaps, int32_t bitmapWidth, int32_t heightOfOneImage,
                  VSTGUI::CBitmap* background, const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0));

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;

    /// Dead band and quantum of a drag in hundreds of pixels; the way of the picture for a notch.
    virtual void setStep(float hundredsOfPixels) { step = hundredsOfPixels; }
    virtual float getStep() { return step; }
    /// Coarse, not a modulo: past either end it starts at the other one.
    virtual void wrapPosition();
    virtual void setSensitivity(float scale); // 0 or less is the usual 0.01
    virtual void setPosition(float turn) { position = turn; }
    virtual float getPosition() { return position; }
    virtual bool isFromWheel() = 0;
    virtual bool isFineUsed() = 0;
    virtual void setCoarseFactor(float factor) = 0;
    virtual float getRawDelta() { return rawDelta; }

    float step = 0.04F;
    float position = 0.0F;
    float sensitivity = 0.01F;
    VSTGUI::CPoint lastPoint;
    float rawDelta = 0.0F;
    int32_t frameCount = 0;
    int32_t bitmapHeight = 0;
    int32_t bitmapWidth = 0;
    CLASS_METHODS_VIRTUAL(CEcncoderKnob, CAnimKnob)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~CEcncoderKnob() override = default;

private:
    void moveValue(float by);
};

} // namespace pedl
