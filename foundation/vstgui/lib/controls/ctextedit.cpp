#include "vstgui/lib/controls/ctextedit.h"

#include <cstdio>
#include <string>

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/platform/common/textline.h"

namespace VSTGUI {

CTextEdit::CTextEdit(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
                     UTF8StringPtr txt, CBitmap* background, const int32_t styleBits)
    : CTextLabel(viewSize, txt, background, styleBits) {
    listener = controlListener;
    tag = controlTag;
    setWantsFocus(true);
}

CTextEdit::CTextEdit(const CTextEdit& textEdit)
    : CTextLabel(textEdit), bWasReturnPressed(textEdit.bWasReturnPressed) {}

CTextEdit::~CTextEdit() {
    listener = nullptr; // what was typed is discarded
    closeField();
}

void CTextEdit::closeField() {
    IPlatformTextEdit* field = platformControl;
    platformControl = nullptr; // first: closing may ask for the focus to go
    if (field)
        field->forget();
}

void CTextEdit::setText(UTF8StringPtr txt) {
    CTextLabel::setText(txt);
    if (platformControl)
        platformControl->setText(getText());
}

/// Writes the number over the text. A field for names overrides this: it has no number.
void CTextEdit::setValue(float val) {
    CTextLabel::setValue(val);
    char written[256] = {};
    const bool isConverted = valueToString && valueToString(value, written, valueToStringUserData);
    if (!isConverted)
        std::snprintf(written, sizeof written, "%2.2f", static_cast<double>(value));
    setText(written);
}

void CTextEdit::draw(CDrawContext* context) {
    drawBack(context);
    if (!platformControl) // the open field draws its own
        drawText(context, getText());
    setDirty(false);
}

CMouseEventResult CTextEdit::onMouseDown(CPoint& /*where*/, const CButtonState& buttons) {
    // As a rule the container has given the focus before the press came here.
    if (!buttons.isLeftButton() || !getFrame() || getFrame()->getFocusView() == this)
        return kMouseEventNotHandled;
    getFrame()->setFocusView(this);
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

int32_t CTextEdit::onKeyDown(VstKeyCode& keyCode) {
    if (!platformControl)
        return -1;
    const bool isReturn = keyCode.virt == VKEY_RETURN || keyCode.virt == VKEY_ENTER;
    if (!isReturn && keyCode.virt != VKEY_ESCAPE)
        return -1;
    if (!isReturn)
        platformControl->setText(getText()); // Escape: nothing has changed when the field closes
    platformLooseFocus(isReturn);
    return 1;
}

void CTextEdit::takeFocus() {
    IPlatformFrame* window = getFrame() ? getFrame()->getPlatformFrame() : nullptr;
    if (platformControl || !window)
        return;
    bWasReturnPressed = false; // told by the end that comes now, not by the last one
    platformControl = window->createPlatformTextEdit(this);
    invalid();
}

void CTextEdit::looseFocus() {
    if (!platformControl)
        return;
    const CBaseObjectGuard guard(this); // a listener may take the field away
    const std::string typed = platformControl->getText();
    // A field leaves out what it cannot show: that is no change of the user's.
    const std::string before = getText();
    const bool isChanged = typed != before && typed != oneLine(before, kMostFieldCharacters);
    closeField(); // first: what is told below may take the focus elsewhere once more
    if (isChanged) {
        beginEdit();
        setText(typed.c_str());
        valueChanged();
        endEdit();
    }
    invalid();
    // Whoever laid the field over something else takes it away now.
    for (CView* parent = getParentView(); parent; parent = parent->getParentView())
        if (parent->notify(this, kMsgLooseFocus) == kMessageNotified)
            break;
}

bool CTextEdit::removed(CView* parent) {
    const CBaseObjectGuard guard(this);
    const bool wasAttached = CTextLabel::removed(parent); // gives the focus up: the text is kept
    closeField();                                         // when the focus was elsewhere
    return wasAttached;
}

void CTextEdit::setViewSize(const CRect& newSize, bool invalidates) {
    CTextLabel::setViewSize(newSize, invalidates);
    if (platformControl)
        platformControl->updateSize();
}

CColor CTextEdit::platformGetBackColor() const {
    return getBackColor();
}

CColor CTextEdit::platformGetFontColor() const {
    return getFontColor();
}

CFontRef CTextEdit::platformGetFont() const {
    return getFont();
}

CHoriTxtAlign CTextEdit::platformGetHoriTxtAlign() const {
    return getHoriAlign();
}

UTF8StringPtr CTextEdit::platformGetText() const {
    return getText();
}

CRect CTextEdit::platformGetSize() const {
    CRect area = size;
    CPoint corner = area.getTopLeft();
    localToFrame(corner);
    return area.moveTo(corner.x, corner.y);
}

CRect CTextEdit::platformGetVisibleSize() const {
    CRect area = getVisibleSize();
    CPoint corner = area.getTopLeft();
    localToFrame(corner);
    return area.moveTo(corner.x, corner.y);
}

CPoint CTextEdit::platformGetTextInset() const {
    return getTextInset();
}

void CTextEdit::platformLooseFocus(bool returnPressed) {
    const CBaseObjectGuard guard(this);
    bWasReturnPressed = returnPressed;
    if (getFrame() && getFrame()->getFocusView() == this)
        getFrame()->setFocusView(nullptr);
    if (platformControl) // the frame had given the focus to another view, or was in a change of it
        looseFocus();
}

bool CTextEdit::platformOnKeyDown(const VstKeyCode& key) {
    VstKeyCode offered = key;
    return getFrame() && getFrame()->onKeyDown(offered) == 1;
}

void CTextEdit::platformTextDidChange() {}

} // namespace VSTGUI
