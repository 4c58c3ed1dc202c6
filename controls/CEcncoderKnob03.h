#pragma once

#include "controls/CEcncoderKnob.h"

namespace pedl {

/// The endless encoder whose value is a signed increment, sent once for each event: up or right is
/// positive. A slow drag sends 1 a move, a fast one more than in proportion to its pixels.
///
/// In the listener's call the owner reads `getValue`, and may ask what moved it. It brackets no
/// edits: what an increment changes is the owner's business.
class CEcncoderKnob03 : public CEcncoderKnob {
public:
    CEcncoderKnob03(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                    int32_t subPixmaps, int32_t bitmapWidth, int32_t heightOfOneImage,
                    VSTGUI::CBitmap* background,
                    const VSTGUI::CPoint& offset = VSTGUI::CPoint(0, 0));

    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseUp(VSTGUI::CPoint& where,
                                        const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;

    bool isFromWheel() override { return fromWheel; }
    bool isFineUsed() override { return fineUsed; }
    void setCoarseFactor(float factor) override { coarseFactor = factor; }
    virtual bool isButtonHeld() { return buttonHeld; }
    virtual void setFineFactor(float factor) { fineFactor = factor; }
    virtual bool isAltHeld() { return altHeld; }
    virtual void setGentleCurve(bool isGentle) { gentleCurve = isGentle; }

    VSTGUI::CPoint prevPoint;
    float lastDirection = 1.0F;
    bool fromWheel = false;    // in the listener's call alone
    bool fineUsed = false;     // in the listener's call alone
    float coarseFactor = 1.0F; // on increments without Shift
    float fineFactor = 1.0F;   // on those with it
    bool buttonHeld = false;
    bool altHeld = false;
    bool gentleCurve = false;
    CLASS_METHODS(CEcncoderKnob03, CEcncoderKnob)

protected:
    bool turnWheel(const VSTGUI::CPoint& where, float distance,
                   const VSTGUI::CButtonState& buttons) override;
    ~CEcncoderKnob03() override = default;
};

} // namespace pedl
