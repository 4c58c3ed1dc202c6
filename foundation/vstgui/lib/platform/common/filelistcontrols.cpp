#include "vstgui/lib/platform/common/filelistcontrols.h"

#include <algorithm>
#include <cmath>

#include "foundation/text/Utf8.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/common/overlaycolors.h"
#include "vstgui/lib/platform/common/textline.h"

namespace VSTGUI {

namespace {

constexpr CCoord kRowHeight = 16;
constexpr CCoord kScrollBarWidth = 6;
constexpr CCoord kLeastBarPixels = 16;

} // namespace

WordButton::WordButton(const CRect& viewSize, CControlListener* controlListener, int32_t controlTag,
                       UTF8StringPtr word)
    : CControl(viewSize, controlListener, controlTag), word_(word) {}

void WordButton::setWord(UTF8StringPtr word) {
    word_ = word;
    setDirty();
}

void WordButton::draw(CDrawContext* context) {
    context->setFillColor(pressed_ ? OverlayColors::kSelection : OverlayColors::kList);
    context->drawRect(size, kDrawFilled);
    context->setFrameColor(OverlayColors::kFrame);
    context->setLineWidth(1);
    context->drawRect(size, kDrawStroked);
    context->setFont(kNormalFontSmall);
    context->setFontColor(OverlayColors::kText);
    context->drawString(word_, size, kCenterText, true);
    setDirty(false);
}

CMouseEventResult WordButton::onMouseDown(CPoint& where, const CButtonState& buttons) {
    return buttons.isLeftButton() ? onMouseMoved(where, buttons) : kMouseEventNotHandled;
}

CMouseEventResult WordButton::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    pressed_ = size.pointInside(where);
    invalid();
    return kMouseEventHandled;
}

CMouseEventResult WordButton::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    const bool wasPressed = pressed_;
    pressed_ = false;
    invalid();
    if (wasPressed)
        valueChanged();
    return kMouseEventHandled;
}

// Names

NameList::NameList(const CRect& viewSize, CControlListener* controlListener)
    : CControl(viewSize, controlListener) {}

void NameList::setEntries(std::vector<FileListEntry> entries) {
    entries_ = std::move(entries);
    selected_ = -1;
    firstRow_ = 0;
    setDirty();
}

const FileListEntry* NameList::selectedEntry() const {
    return selected_ < 0 ? nullptr : &entries_[static_cast<std::size_t>(selected_)];
}

void NameList::select(int32_t index) {
    if (count() == 0)
        return;
    selected_ = std::clamp(index, 0, count() - 1);
    scrollTo(std::clamp(firstRow_, selected_ - rows() + 1, selected_));
    setDirty();
    tell(0.0F);
}

bool NameList::useKey(const VstKeyCode& keyCode) {
    switch (keyCode.virt) {
    case VKEY_UP:
        select(selected_ - 1);
        return true;
    case VKEY_DOWN:
        select(selected_ + 1);
        return true;
    case VKEY_PAGEUP:
        select(selected_ - rows());
        return true;
    case VKEY_PAGEDOWN:
        select(selected_ + rows());
        return true;
    case VKEY_HOME:
        select(0);
        return true;
    case VKEY_END:
        select(count() - 1);
        return true;
    case 0:
        return selectLetter(static_cast<char32_t>(keyCode.character));
    default:
        return false;
    }
}

void NameList::draw(CDrawContext* context) {
    context->setFillColor(OverlayColors::kList);
    context->drawRect(size, kDrawFilled);
    context->setFont(kNormalFontSmall);
    const int32_t last = std::min(count(), firstRow_ + rows());
    for (int32_t i = firstRow_; i < last; ++i)
        drawRow(context, i);
    if (count() > rows())
        drawScrollBar(context);
    context->setFrameColor(OverlayColors::kFrame);
    context->setLineWidth(1);
    context->drawRect(size, kDrawStroked);
    setDirty(false);
}

CMouseEventResult NameList::onMouseDown(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    if (where.x >= size.right - kScrollBarWidth && count() > rows()) {
        onMouseMoved(where, buttons);
        return kMouseEventHandled;
    }
    const int32_t index =
        firstRow_ + static_cast<int32_t>(std::floor((where.y - size.top - 1) / kRowHeight));
    if (index < 0 || index >= count())
        return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
    const bool isSecond = buttons.isDoubleClick() && index == selected_;
    select(index);
    if (isSecond)
        tell(1.0F);
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

CMouseEventResult NameList::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    if (!buttons.isLeftButton())
        return kMouseEventNotHandled;
    const double along = (where.y - size.top) / getHeight();
    scrollTo(static_cast<int32_t>(along * count()) - rows() / 2);
    return kMouseEventHandled;
}

bool NameList::onWheel(const CPoint& /*where*/, const float& distance,
                       const CButtonState& /*buttons*/) {
    constexpr int32_t kRowsPerNotch = 3;
    scrollTo(firstRow_ + (distance > 0 ? -kRowsPerNotch : kRowsPerNotch));
    return true;
}

int32_t NameList::rows() const {
    return static_cast<int32_t>((getHeight() - 2) / kRowHeight);
}

void NameList::tell(float message) {
    value = message;
    valueChanged();
}

void NameList::scrollTo(int32_t row) {
    firstRow_ = std::clamp(row, 0, std::max(0, count() - rows()));
    setDirty();
}

bool NameList::selectLetter(char32_t letter) {
    for (int32_t tries = 1; tries <= count(); ++tries) {
        const int32_t index = (std::max(selected_, -1) + tries) % count();
        std::string_view name = entries_[static_cast<std::size_t>(index)].name;
        if (pedl::smallLetter(pedl::takeAnyCharacter(name)) != pedl::smallLetter(letter))
            continue;
        select(index);
        return true;
    }
    return false;
}

void NameList::drawRow(CDrawContext* context, int32_t index) const {
    const FileListEntry& entry = entries_[static_cast<std::size_t>(index)];
    CRect row(CPoint(size.left + 1, size.top + 1 + (index - firstRow_) * kRowHeight),
              CPoint(getWidth() - 2, kRowHeight));
    if (index == selected_) {
        context->setFillColor(OverlayColors::kSelection);
        context->drawRect(row, kDrawFilled);
    }
    row.left += 5;
    row.right -= kScrollBarWidth + 2;
    context->setFontColor(OverlayColors::kText);
    const std::string name = oneLine(entry.name) + (entry.isDirectory ? "/" : "");
    context->drawString(name.c_str(), row, kLeftText, true);
}

void NameList::drawScrollBar(CDrawContext* context) const {
    const CCoord length = std::max(kLeastBarPixels, getHeight() * rows() / count());
    const CCoord way = getHeight() - length;
    const CCoord top = size.top + way * firstRow_ / (count() - rows());
    context->setFillColor(OverlayColors::kFrame);
    context->drawRect(CRect(CPoint(size.right - kScrollBarWidth, std::floor(top)),
                            CPoint(kScrollBarWidth - 1, std::ceil(length))),
                      kDrawFilled);
}

} // namespace VSTGUI
