#include "vstgui/lib/platform/common/frametextedit.h"

#include <algorithm>
#include <cmath>

#include "foundation/text/Utf8.h"
#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/cvstguitimer.h"
#include "vstgui/lib/platform/common/clipboard.h"
#include "vstgui/lib/platform/common/overlaycolors.h"

namespace VSTGUI {

namespace {

constexpr int32_t kBlinkMs = 500;
constexpr CCoord kCaretWidthPixels = 1;

using Direction = TextLine::Direction;
using Unit = TextLine::Unit;

/// What a key writes when only its code is known: keys that come by way of the host.
std::string textOf(const VstKeyCode& keyCode) {
    if (keyCode.virt >= VKEY_NUMPAD0 && keyCode.virt <= VKEY_NUMPAD9)
        return {static_cast<char>('0' + keyCode.virt - VKEY_NUMPAD0)};
    switch (keyCode.virt) {
    case 0:
        break;
    case VKEY_SPACE:
        return " ";
    case VKEY_MULTIPLY:
        return "*";
    case VKEY_ADD:
        return "+";
    case VKEY_SUBTRACT:
        return "-";
    case VKEY_DECIMAL:
        return ".";
    case VKEY_DIVIDE:
        return "/";
    case VKEY_EQUALS:
        return "=";
    default:
        return {};
    }
    if (keyCode.character < 0x20)
        return {};
    auto code = static_cast<char32_t>(keyCode.character);
    const bool isSmallLetter = code >= 'a' && code <= 'z';
    if (isSmallLetter && (keyCode.modifier & MODIFIER_SHIFT))
        code -= 0x20;
    return pedl::utf8Of(code);
}

bool hasControl(const VstKeyCode& keyCode) {
    return (keyCode.modifier & MODIFIER_CONTROL) != 0;
}

} // namespace

IPlatformTextEdit* createFrameTextEdit(BufferedFrame& frame, IPlatformTextEditCallback* callback) {
    auto* field = new FrameTextEdit(frame, callback);
    field->open();
    return field;
}

FrameTextEdit::FrameTextEdit(BufferedFrame& frame, IPlatformTextEditCallback* callback)
    : IPlatformTextEdit(callback), frame_(frame), blink_(new CVSTGUITimer(this, kBlinkMs)),
      self_(std::make_shared<FrameTextEdit*>(this)) {
    frame_.remember();
}

FrameTextEdit::~FrameTextEdit() {
    blink_->forget();
    if (frame_.overlay() == this)
        frame_.setOverlay(nullptr);
    frame_.invalidRect(shownArea_);
    if (measure_)
        measure_->forget();
    frame_.forget();
}

void FrameTextEdit::open() {
    line_.setText(textEdit->platformGetText());
    line_.selectAll();
    frame_.setOverlay(this);
    updateSize();
    blink_->start();
}

bool FrameTextEdit::setText(UTF8StringPtr text) {
    if (line_.text() == text)
        return true;
    line_.setText(text);
    updateSize();
    return true;
}

bool FrameTextEdit::updateSize() {
    frame_.invalidRect(shownArea_);
    shownArea_ = fieldArea();
    scrollToCaret();
    invalidateField();
    return true;
}

CRect FrameTextEdit::fieldArea() const {
    CRect area = textEdit->platformGetSize();
    const CPoint inset = textEdit->platformGetTextInset();
    return area.inset(inset.x, inset.y);
}

CFontRef FrameTextEdit::fieldFont() const {
    return textEdit->platformGetFont();
}

CColor FrameTextEdit::textColor() const {
    return textEdit->platformGetFontColor();
}

CColor FrameTextEdit::selectionColor() const {
    return OverlayColors::kSelection;
}

CColor FrameTextEdit::selectedTextColor() const {
    return OverlayColors::kSelectedText;
}

// Where things are

CCoord FrameTextEdit::widthUpTo(std::size_t place) const {
    if (!measure_ || place == 0)
        return 0;
    measure_->setFont(fieldFont());
    return measure_->getStringWidth(line_.text().substr(0, place).c_str());
}

/// Where the text begins: aligned while it fits, scrolled when it does not.
CCoord FrameTextEdit::textLeft() const {
    const CCoord room = shownArea_.width() - widthUpTo(line_.text().size());
    if (room < kCaretWidthPixels)
        return shownArea_.left - scrolled_;
    switch (textEdit->platformGetHoriTxtAlign()) {
    case kRightText:
        return std::floor(shownArea_.left + room);
    case kCenterText:
        return shownArea_.left + room / 2;
    default:
        return shownArea_.left;
    }
}

CRect FrameTextEdit::caretArea() const {
    const CFontRef font = fieldFont();
    const CCoord height = std::min(shownArea_.height(), font ? font->getSize() + 2 : 14);
    const CCoord left = std::min(std::floor(textLeft() + widthUpTo(line_.caret())),
                                 shownArea_.right - kCaretWidthPixels);
    const CCoord top = std::floor(shownArea_.top + (shownArea_.height() - height) / 2);
    return {left, top, left + kCaretWidthPixels, top + height};
}

std::size_t FrameTextEdit::placeAt(CCoord x) const {
    const CCoord along = x - textLeft();
    CCoord width = 0;
    std::size_t place = 0;
    while (place < line_.text().size()) {
        const std::size_t after = line_.next(place);
        const CCoord widthAfter = widthUpTo(after);
        if (along < (width + widthAfter) / 2)
            break;
        place = after;
        width = widthAfter;
    }
    return place;
}

void FrameTextEdit::scrollToCaret() {
    if (!measure_)
        measure_ = frame_.createOffscreenContext(1, 1);
    const CCoord visible = shownArea_.width() - kCaretWidthPixels;
    const CCoord hidden = std::max(0.0, widthUpTo(line_.text().size()) - visible);
    const CCoord caret = widthUpTo(line_.caret());
    scrolled_ = std::clamp(scrolled_, caret - visible, caret);
    scrolled_ = std::ceil(std::clamp(scrolled_, 0.0, hidden));
}

// Drawing

void FrameTextEdit::drawOver(CDrawContext* context, const CRect& updateRect) {
    CRect clip = shownArea_;
    clip.bound(updateRect);
    if (clip.isEmpty())
        return;
    context->saveGlobalState();
    context->setClipRect(clip);
    drawBehind(context, shownArea_);
    context->setFont(fieldFont());

    // The same text at the same place for each part, so that nothing moves when it is selected.
    CRect part = clip;
    if (line_.hasSelection()) {
        CRect selected = caretArea(); // as high as the caret
        selected.left = std::floor(textLeft() + widthUpTo(line_.selectionStart()));
        selected.right = std::ceil(textLeft() + widthUpTo(line_.selectionEnd()));
        selected.bound(clip);
        context->setFillColor(selectionColor());
        context->drawRect(selected, kDrawFilled);
        selected.top = clip.top; // an accent may stand out
        selected.bottom = clip.bottom;
        drawPart(context, selected, selectedTextColor());
        drawPart(context, CRect(clip.left, clip.top, selected.left, clip.bottom), textColor());
        part.left = selected.right;
    }
    drawPart(context, part, textColor());

    context->setClipRect(clip);
    if (caretShown_) {
        context->setFillColor(textColor());
        context->drawRect(caretArea(), kDrawFilled);
    }
    context->restoreGlobalState();
}

void FrameTextEdit::drawPart(CDrawContext* context, const CRect& part, const CColor& color) const {
    if (part.isEmpty())
        return;
    context->setClipRect(part);
    context->setFontColor(color);
    CRect whole = shownArea_;
    whole.left = textLeft();
    whole.right = whole.left + widthUpTo(line_.text().size()) + 2; // a slanted letter leans out
    context->drawString(line_.text().c_str(), whole, kLeftText, true);
}

void FrameTextEdit::invalidateField() {
    frame_.invalidRect(shownArea_);
}

void FrameTextEdit::showCaret(bool visible) {
    if (caretShown_ == visible)
        return;
    caretShown_ = visible;
    frame_.invalidRect(caretArea());
}

CMessageResult FrameTextEdit::notify(CBaseObject* sender, IdStringPtr message) {
    if (sender != blink_ || message != CVSTGUITimer::kMsgTimer)
        return kMessageUnknown;
    showCaret(!caretShown_);
    return kMessageNotified;
}

/// After each use: the caret stands still for a moment, so that one sees where it is.
void FrameTextEdit::showChange() {
    if (isClosed())
        return;
    blink_->stop();
    blink_->start();
    caretShown_ = true;
    scrollToCaret();
    invalidateField();
}

// Mouse

bool FrameTextEdit::overlayMouseDown(const CPoint& where, const CButtonState& buttons) {
    const InUse use(*this);
    if (!textEdit->platformGetSize().pointInside(where)) {
        textEdit->platformLooseFocus(false);
        return false; // what was pressed gets the press
    }
    const std::size_t place = placeAt(where.x);
    if (buttons.isLeftButton() && buttons.isDoubleClick()) {
        line_.selectWordAt(place);
        frame_.clipboard().setText(Clipboard::Kind::Selected, line_.selectedText());
    } else if (buttons.isLeftButton()) {
        const bool extends = (buttons & kShift) != 0;
        line_.moveTo(place, extends ? TextLine::Selection::Extend : TextLine::Selection::Drop);
        selecting_ = true;
    } else if (buttons.getButtonState() == kMButton) {
        line_.moveTo(place, TextLine::Selection::Drop);
        paste(Clipboard::Kind::Selected);
    }
    showChange();
    return true;
}

bool FrameTextEdit::overlayMouseMoved(const CPoint& where, const CButtonState& /*buttons*/) {
    if (!selecting_)
        return false;
    line_.moveTo(placeAt(where.x), TextLine::Selection::Extend);
    showChange();
    return true;
}

bool FrameTextEdit::overlayMouseUp(const CPoint& where, const CButtonState& /*buttons*/) {
    const bool wasSelecting = selecting_;
    selecting_ = false;
    if (wasSelecting && line_.hasSelection())
        frame_.clipboard().setText(Clipboard::Kind::Selected, line_.selectedText());
    return wasSelecting || textEdit->platformGetSize().pointInside(where);
}

// Keys

bool FrameTextEdit::overlayKeyDown(VstKeyCode& keyCode, UTF8StringPtr text) {
    const InUse use(*this);
    if (textEdit->platformOnKeyDown(keyCode) || isClosed())
        return true;
    if (keyCode.virt == VKEY_RETURN || keyCode.virt == VKEY_ENTER) {
        textEdit->platformLooseFocus(true);
        return true;
    }
    if (useNamedKey(keyCode))
        return true;
    if (hasControl(keyCode) && !(keyCode.modifier & MODIFIER_ALTERNATE))
        return useShortcut(keyCode.character);
    // Right Alt writes characters on many keyboards: then there is a text.
    if ((keyCode.modifier & (MODIFIER_ALTERNATE | MODIFIER_CONTROL)) && !text)
        return false;
    const std::string typed = text && *text ? text : textOf(keyCode);
    if (typed.empty() || static_cast<unsigned char>(typed[0]) < 0x20)
        return false;
    write(typed);
    return true;
}

bool FrameTextEdit::useNamedKey(const VstKeyCode& keyCode) {
    const Unit unit = hasControl(keyCode) ? Unit::Word : Unit::Character;
    switch (keyCode.virt) {
    case VKEY_LEFT:
        moveCaret(Direction::Back, unit, keyCode);
        return true;
    case VKEY_RIGHT:
        moveCaret(Direction::Forward, unit, keyCode);
        return true;
    case VKEY_HOME:
        moveCaret(Direction::Back, Unit::Line, keyCode);
        return true;
    case VKEY_END:
        moveCaret(Direction::Forward, Unit::Line, keyCode);
        return true;
    case VKEY_BACK:
    case VKEY_DELETE:
        if (line_.erase(keyCode.virt == VKEY_BACK ? Direction::Back : Direction::Forward, unit))
            textEdit->platformTextDidChange();
        showChange();
        return true;
    case VKEY_UP:
    case VKEY_DOWN:
    case VKEY_PAGEUP:
    case VKEY_PAGEDOWN:
        return true; // one line: nothing to do, yet not the host's either
    default:
        return false;
    }
}

void FrameTextEdit::moveCaret(Direction direction, Unit unit, const VstKeyCode& keyCode) {
    const bool extends = (keyCode.modifier & MODIFIER_SHIFT) != 0;
    line_.move(direction, unit, extends ? TextLine::Selection::Extend : TextLine::Selection::Drop);
    showChange();
}

bool FrameTextEdit::useShortcut(int32_t character) {
    switch (character) {
    case 'a':
        line_.selectAll();
        break;
    case 'c':
        copySelection();
        break;
    case 'x':
        copySelection();
        if (line_.eraseSelection())
            textEdit->platformTextDidChange();
        break;
    case 'v':
        paste(Clipboard::Kind::Copied);
        break;
    default:
        return false;
    }
    showChange();
    return true;
}

void FrameTextEdit::copySelection() {
    if (line_.hasSelection())
        frame_.clipboard().setText(Clipboard::Kind::Copied, line_.selectedText());
}

void FrameTextEdit::paste(Clipboard::Kind kind) {
    const std::weak_ptr<FrameTextEdit*> field = self_;
    frame_.clipboard().requestText(kind, [field](const std::string& text) {
        if (const auto alive = field.lock())
            (*alive)->write(text);
    });
}

void FrameTextEdit::write(const std::string& text) {
    const InUse use(*this); // a pasted text comes by itself
    if (line_.insert(text))
        textEdit->platformTextDidChange();
    showChange();
}

} // namespace VSTGUI
