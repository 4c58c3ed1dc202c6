#include "vstgui/lib/controls/ccontrol.h"

#include <algorithm>

#include "vstgui/lib/cframe.h"

namespace VSTGUI {

int32_t CControl::kZoomModifier = kShift;
int32_t CControl::kDefaultValueModifier = kControl;

CControl::CControl(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
                   CBitmap* background)
    : CView(viewSize), listener(controlListener), tag(controlTag) {
    // Qualified as everywhere in constructors: no derived class is there yet.
    CControl::setBackground(background); // marks it dirty, with or without a bitmap
    CControl::setDirty();
}

CControl::CControl(const CControl& c)
    : CView(c), listener(c.listener), tag(c.tag), oldValue(c.oldValue),
      defaultValue(c.defaultValue), value(c.value), vmin(c.vmin), vmax(c.vmax),
      wheelInc(c.wheelInc), backOffset(c.backOffset) {
    CControl::setDirty();
}

CControl::~CControl() = default;

// The value

void CControl::setValue(float val) {
    value = std::max(getMin(), std::min(val, getMax())); // in this order NaN becomes the minimum
}

void CControl::setValueNormalized(float val) {
    const float position = std::max(0.0F, std::min(val, 1.0F));
    setValue(getMin() + position * (getMax() - getMin()));
}

float CControl::getValueNormalized() const {
    const float range = getMax() - getMin();
    return range == 0.0F ? 0.0F : (value - getMin()) / range;
}

// The value stays: a range is set one end after the other, and in between it may lie outside.
void CControl::setMin(float val) {
    vmin = val;
}

void CControl::setMax(float val) {
    vmax = val;
}

void CControl::bounceValue() {
    value = std::max(getMin(), std::min(value, getMax()));
}

bool CControl::checkDefaultValue(CButtonState button) {
    if (button() != (kLButton | kDefaultValueModifier))
        return false;
    const float target = getDefaultValue();
    if (target == getValue())
        return true; // nothing to tell, but the press must not begin a drag
    const CBaseObjectGuard self(this);
    beginEdit();
    setValue(target);
    valueChanged();
    endEdit();
    return true;
}

bool CControl::isDirty() const {
    return oldValue != value || CView::isDirty();
}

void CControl::setDirty(bool val) {
    CView::setDirty(val);
    if (!val)
        oldValue = value;
    else
        oldValue = value != -1.0F ? -1.0F : 0.0F; // any that is not the value
}

// What others hear of it

void CControl::valueChanged() {
    const CBaseObjectGuard self(this);
    if (listener)
        listener->valueChanged(this);
}

// Nothing is counted. Switches, knobs and menus nest these calls and leave some without their other
// half on purpose; a host that records automation counts on seeing each.
void CControl::beginEdit() {
    const CBaseObjectGuard self(this);
    if (listener)
        listener->controlBeginEdit(this);
    if (CFrame* const frame = getFrame())
        frame->beginEdit(getTag());
}

void CControl::endEdit() {
    const CBaseObjectGuard self(this);
    if (CFrame* const frame = getFrame())
        frame->endEdit(getTag());
    if (listener)
        listener->controlEndEdit(this);
}

// Looks and keys

void CControl::setBackOffset(const CPoint& offset) {
    backOffset = offset;
}

void CControl::copyBackOffset() {
    backOffset = size.getTopLeft();
}

int32_t CControl::mapVstKeyModifier(int32_t vstModifier) {
    int32_t buttons = 0;
    if (vstModifier & MODIFIER_SHIFT)
        buttons |= kShift;
    if (vstModifier & MODIFIER_ALTERNATE)
        buttons |= kAlt;
    if (vstModifier & MODIFIER_COMMAND)
        buttons |= kApple;
    if (vstModifier & MODIFIER_CONTROL)
        buttons |= kControl;
    return buttons;
}

} // namespace VSTGUI
