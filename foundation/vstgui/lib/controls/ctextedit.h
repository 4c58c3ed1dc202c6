#pragma once

#include "vstgui/lib/controls/ctextlabel.h"
#include "vstgui/lib/platform/iplatformtextedit.h"

namespace VSTGUI {

/// A label that can be written in: opens a field of the platform while it has the focus.
///
/// A changed text is told to the listener when the field closes. Closing the frame discards it.
class CTextEdit : public CTextLabel, public IPlatformTextEditCallback {
public:
    CTextEdit(const CRect& size, CControlListener* listener, int32_t tag,
              UTF8StringPtr txt = nullptr, CBitmap* background = nullptr, const int32_t style = 0);
    CTextEdit(const CTextEdit& textEdit);

    void setText(UTF8StringPtr txt) override;
    void setValue(float val) override; // writes the value over the text
    void draw(CDrawContext* context) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    int32_t onKeyDown(VstKeyCode& keyCode) override;
    void takeFocus() override;
    void looseFocus() override;
    bool removed(CView* parent) override; // what was typed is discarded
    void setViewSize(const CRect& newSize, bool invalid = true) override;

    bool bWasReturnPressed = false;
    CLASS_METHODS(CTextEdit, CTextLabel)

protected:
    ~CTextEdit() override;

    CColor platformGetBackColor() const override;
    CColor platformGetFontColor() const override;
    CFontRef platformGetFont() const override;
    CHoriTxtAlign platformGetHoriTxtAlign() const override;
    UTF8StringPtr platformGetText() const override;
    CRect platformGetSize() const override;
    CRect platformGetVisibleSize() const override;
    CPoint platformGetTextInset() const override;
    void platformLooseFocus(bool returnPressed) override;
    bool platformOnKeyDown(const VstKeyCode& key) override;
    void platformTextDidChange() override;

    IPlatformTextEdit* platformControl = nullptr; // while open

private:
    void closeField();
};

} // namespace VSTGUI
