#pragma once

#include "vstgui/lib/ccolor.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cfont.h"
#include "vstgui/lib/controls/ccontrol.h"

namespace VSTGUI {

/// Writes a value as text.
/// @return whether it did; without, the display writes two decimals
using CParamDisplayValueToStringProc = bool (*)(float value, char utf8String[256], void* userData);

/// A display of one value as text. Takes no events; without listener, tag -1.
class CParamDisplay : public CControl {
public:
    CParamDisplay(const CRect& size, CBitmap* background = nullptr, const int32_t style = 0);
    CParamDisplay(const CParamDisplay& paramDisplay);

    virtual void setFont(CFontRef font);
    CFontRef getFont() const { return fontID; }
    virtual void setFontColor(CColor color);
    CColor getFontColor() const { return fontColor; }
    virtual void setBackColor(CColor color);
    CColor getBackColor() const { return backColor; }
    virtual void setFrameColor(CColor color);
    virtual void setShadowColor(CColor color);
    virtual void setAntialias(bool state);
    virtual void setHoriAlign(CHoriTxtAlign align);
    CHoriTxtAlign getHoriAlign() const { return horiTxtAlign; }
    virtual void setTextInset(const CPoint& p);
    CPoint getTextInset() const { return textInset; }
    virtual void setValueToStringProc(CParamDisplayValueToStringProc proc,
                                      void* userData = nullptr);
    virtual void setStyle(int32_t val);
    int32_t getStyle() const { return style; }

    void draw(CDrawContext* context) override;
    CLASS_METHODS(CParamDisplay, CControl)

protected:
    ~CParamDisplay() override;

    /// The given bitmap, else the background, else back colour and frame.
    virtual void drawBack(CDrawContext* context, CBitmap* newBack = nullptr);
    virtual void drawText(CDrawContext* context, UTF8StringPtr text);

    CParamDisplayValueToStringProc valueToString = nullptr;
    void* valueToStringUserData = nullptr;
    CHoriTxtAlign horiTxtAlign;
    int32_t style;
    CFontRef fontID;
    CColor fontColor, backColor, frameColor, shadowColor;
    CPoint textInset;
    bool bAntialias;
};

} // namespace VSTGUI
