#pragma once

#include "controls/Counted.h"
#include "controls/ValueToText.h"
#include "vstgui/lib/ccolor.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cfont.h"
#include "vstgui/lib/controls/ccontrol.h"

#include <cstdio>

namespace pedl {

/// How a control turns its value into a text: three procedures of its owner, the first that is
/// there, else the number with two decimals.
struct ValueTextSource {
    ValueToTextProcWithData taggedValueToStringProc = nullptr; // for a tag of 0 or more
    ValueToTextProcWithData valueToStringProcWithData = nullptr;
    ValueToTextProc valueToStringProc = nullptr;
    void* spareProc = nullptr; // kept and never called
    void* procUserData = nullptr;

    /// @param text  `kValueTextBytes`
    void writeValueText(float value, int32_t tag, char* text) const;
};

/// A control (`Base`) that writes its value below its picture; what our knob and our switch have
/// in common. The derived class says where, in `drawLabel`.
///
/// `setLabelFontStyle` changes the font itself, which others may share: it is meant so.
template <typename Base> class ValueLabel : public Base, public ValueTextSource {
public:
    using Base::Base;

    virtual void setLabelFont(VSTGUI::CFontRef font) {
        labelFont = font;
        this->setDirty();
    }
    virtual void setLabelFontColor(const VSTGUI::CColor& color) { set(labelFontColor, color); }
    virtual void setLabelFontStyle(int32_t style) {
        if (labelFont)
            labelFont->setStyle(style);
    }
    virtual void setLabelBackColor(const VSTGUI::CColor& color) { set(labelBackColor, color); }
    virtual void setLabelFrameColor(const VSTGUI::CColor& color) { set(labelFrameColor, color); }
    virtual void setLabelShadowColor(const VSTGUI::CColor& color) { set(labelShadowColor, color); }
    virtual void setLabelAntialias(bool state) { labelAntialias = state; }
    virtual void setLabelHoriAlign(int32_t align) { set(labelHoriAlign, align); }
    /// From the picture's top; what does not fit becomes 0.
    virtual void setLabelYOffset(double pixels) = 0;
    virtual void setTaggedValueToStringProc(ValueToTextProcWithData proc, void* userData) {
        taggedValueToStringProc = proc;
        procUserData = userData;
    }
    virtual void setValueToStringProcWithData(ValueToTextProcWithData proc, void* userData) {
        valueToStringProcWithData = proc;
        procUserData = userData;
    }
    virtual void setValueToStringProc(ValueToTextProc proc) { valueToStringProc = proc; }
    virtual void setSpareProc(void* proc) { spareProc = proc; }
    virtual void setLabelStyle(int32_t style) { set(labelStyle, style); }
    virtual void setLabelTransparency(bool state) { labelTransparent = state; }
    virtual void drawLabel(VSTGUI::CDrawContext* context, const char* text) = 0;

    int32_t labelHoriAlign = VSTGUI::kCenterText;
    int32_t labelStyle = 0; // bits of `CControlEnum`
    Counted<VSTGUI::CFontDesc> labelFont = VSTGUI::kNormalFontSmall;
    VSTGUI::CColor labelFontColor = VSTGUI::kBlackCColor;
    VSTGUI::CColor labelBackColor = VSTGUI::kWhiteCColor;
    VSTGUI::CColor labelFrameColor = VSTGUI::kWhiteCColor;
    VSTGUI::CColor labelShadowColor = VSTGUI::kWhiteCColor;
    bool labelTransparent = true;
    bool labelAntialias = true;
    double labelYOffset = 0.0;

protected:
    ~ValueLabel() override = default;

    /// Draws the label and makes the control clean. Without a label it stays dirty.
    void drawValue(VSTGUI::CDrawContext* context) {
        if (labelStyle & VSTGUI::kNoDrawStyle)
            return;
        char text[kValueTextBytes] = {};
        writeValueText(this->value, this->tag, text);
        drawLabel(context, text);
        this->setDirty(false);
    }

    [[nodiscard]] bool hasLabelText(const char* text) const {
        return labelFont && !(labelStyle & VSTGUI::kNoTextStyle) && text && *text;
    }
    /// The line that begins `labelYOffset` below `top`, a pixel of air above and two below it.
    [[nodiscard]] VSTGUI::CRect labelLine(double left, double top, double right) const {
        const double lineTop = top + labelYOffset;
        return {left, lineTop + 1.0, right, lineTop + labelFont->getSize() + 3.0};
    }
    void drawLine(VSTGUI::CDrawContext* context, const char* text, const VSTGUI::CRect& line,
                  const VSTGUI::CColor& color) const {
        context->setFontColor(color);
        context->drawString(text, line, static_cast<VSTGUI::CHoriTxtAlign>(labelHoriAlign),
                            labelAntialias);
    }

private:
    template <typename Field> void set(Field& field, const Field& now) {
        if (field != now)
            this->setDirty();
        field = now;
    }
};

} // namespace pedl
