#include "controls/CZMTTextEdit.h"

#include "controls/WheelNotch.h"
#include "controls/ZMTSystemBox.h"

namespace pedl {

using namespace VSTGUI;

CZMTTextEdit::CZMTTextEdit(const CRect& viewSize, CControlListener* controlListener,
                           int32_t controlTag, const char* txt, CBitmap* background,
                           int32_t styleBits, bool arial)
    : BalancedEdits(viewSize, controlListener, controlTag, txt, background, styleBits),
      forceArial(arial) {}

void CZMTTextEdit::setEditFontColor(const CColor& colour) {
    editFontColorOverride = true;
    editFontColor = colour;
}

void CZMTTextEdit::draw(CDrawContext* context) {
    if (getBackground())
        drawBack(context);
    if (!editing)
        drawText(context, getText());
    setDirty(false);
}

void CZMTTextEdit::takeFocus() {
    IPlatformFrame* const window = getFrame() ? getFrame()->getPlatformFrame() : nullptr;
    auto* const buffered = dynamic_cast<BufferedFrame*>(window);
    if (platformControl || !buffered)
        return;
    bWasReturnPressed = false;
    editing = true;
    SystemBoxLook look{forceArial, editOffset, {}};
    if (editFontColorOverride)
        look.fontColour = editFontColor;
    auto* const box = new ZMTSystemBox(*buffered, this, look);
    box->open();
    platformControl = box;
    invalid();
}

void CZMTTextEdit::looseFocus() {
    editing = false;
    BalancedEdits::looseFocus();
}

bool CZMTTextEdit::removed(CView* parent) {
    const CBaseObjectGuard self(this);
    const bool wasAttached = BalancedEdits::removed(parent);
    editing = false;
    return wasAttached;
}

bool CZMTTextEdit::turnWheel(const CPoint& /*where*/, float distance,
                             const CButtonState& /*buttons*/) {
    const CBaseObjectGuard self(this);
    const auto last = static_cast<float>(stepCount - 1);
    if (distance > kSmallestNotch)
        value += 1.0F / last;
    else if (distance < -kSmallestNotch)
        value -= 1.0F / last;
    value = static_cast<float>(static_cast<int32_t>(last * value + 0.5F)) / last;
    bounceValue();
    beginEdit();
    valueChanged();
    endEdit();
    return true;
}

/// A name is no number: without a procedure for the text, it stays.
void CZMTTextEdit::setValue(float val) {
    CTextLabel::setValue(val); // NOLINT(bugprone-parent-virtual-call): not CTextEdit's, see above
    char written[256] = {};
    if (valueToString && valueToString(value, written, valueToStringUserData))
        setText(written);
}

} // namespace pedl
