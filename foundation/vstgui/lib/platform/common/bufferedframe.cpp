#include "vstgui/lib/platform/common/bufferedframe.h"

#include "vstgui/lib/platform/common/frametextedit.h"
#include "vstgui/lib/platform/common/pixmansurface.h"

namespace VSTGUI {

BufferedFrame::BufferedFrame(IPlatformFrameCallback* callback, const CRect& size)
    : callback_(callback), size_(size.getSize()) {
    dirty_.add(bounds(), bounds());
}

BufferedFrame::~BufferedFrame() = default;

void BufferedFrame::frameClosed() {
    callback_ = nullptr;
    if (FrameOverlay* const overlay = overlay_) {
        overlay_ = nullptr;
        overlay->overlayFrameClosed();
    }
}

// Size and drawing

bool BufferedFrame::setSize(const CRect& newSize) {
    size_ = newSize.getSize();
    dropSurface();
    return true;
}

bool BufferedFrame::getSize(CRect& size) const {
    size = bounds();
    return true;
}

bool BufferedFrame::setScaleFactor(double pixelsPerUnit) {
    scaleFactor_ = pixelsPerUnit;
    dropSurface();
    return true;
}

bool BufferedFrame::invalidRect(const CRect& rect) {
    dirty_.add(rect, bounds());
    return true;
}

void BufferedFrame::dropSurface() {
    surface_.reset();
    dirty_.clear(); // its rectangles may lie outside the new bounds
    dirty_.add(bounds(), bounds());
}

std::unique_ptr<PixmanSurface> BufferedFrame::makeSurface(CCoord width, CCoord height,
                                                          double pixelsPerUnit) {
    return std::make_unique<PixmanSurface>(width, height, pixelsPerUnit);
}

std::vector<CRect> BufferedFrame::paintBuffer() {
    if (isClosed() || dirty_.isEmpty())
        return {};
    const CBaseObjectGuard self(this);
    if (!surface_)
        surface_ = makeSurface(size_.x, size_.y, scaleFactor_);
    std::vector<CRect> rects = dirty_.take(); // drawing may ask for more: that is the next turn's
    for (const CRect& rect : rects)
        drawInto(rect);
    return rects;
}

void BufferedFrame::drawInto(const CRect& rect) {
    const std::shared_ptr<PixmanSurface> drawn = surface_; // a view may resize the window meanwhile
    if (isClosed() || !drawn)
        return;
    CDrawContext* const context = createPixmanContext(*drawn);
    context->beginDraw();
    context->setClipRect(rect);
    callback_->platformDrawRect(context, rect);
    if (overlay_) {
        context->setClipRect(rect);
        overlay_->drawOver(context, rect);
    }
    context->endDraw();
    context->forget();
}

COffscreenContext* BufferedFrame::createOffscreenContext(CCoord width, CCoord height) {
    return createPixmanOffscreenContext(width, height, scaleFactor_);
}

IPlatformTextEdit* BufferedFrame::createPlatformTextEdit(IPlatformTextEditCallback* textEdit) {
    return createFrameTextEdit(*this, textEdit);
}

// Events: the overlay first, then the frame, if there still is one

CMouseEventResult BufferedFrame::sendMouseDown(CPoint where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    if (overlay_ && overlay_->overlayMouseDown(where, buttons))
        return kMouseEventHandled;
    return callback_ ? callback_->platformOnMouseDown(where, buttons) : kMouseEventNotHandled;
}

CMouseEventResult BufferedFrame::sendMouseMoved(CPoint where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    if (overlay_ && overlay_->overlayMouseMoved(where, buttons))
        return kMouseEventHandled;
    return callback_ ? callback_->platformOnMouseMoved(where, buttons) : kMouseEventNotHandled;
}

CMouseEventResult BufferedFrame::sendMouseUp(CPoint where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    if (overlay_ && overlay_->overlayMouseUp(where, buttons))
        return kMouseEventHandled;
    return callback_ ? callback_->platformOnMouseUp(where, buttons) : kMouseEventNotHandled;
}

CMouseEventResult BufferedFrame::sendMouseExited(CPoint where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    return callback_ ? callback_->platformOnMouseExited(where, buttons) : kMouseEventNotHandled;
}

bool BufferedFrame::sendWheel(const CPoint& where, CMouseWheelAxis axis, float distance,
                              const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    if (overlay_ && overlay_->overlayWheel(where, distance, buttons))
        return true;
    return callback_ && callback_->platformOnMouseWheel(where, axis, distance, buttons);
}

bool BufferedFrame::sendKeyDown(VstKeyCode keyCode, UTF8StringPtr text) {
    const CBaseObjectGuard self(this);
    if (overlay_ && overlay_->overlayKeyDown(keyCode, text))
        return true;
    return callback_ && callback_->platformOnKeyDown(keyCode);
}

bool BufferedFrame::filterKeyDown(VstKeyCode& keyCode) {
    const CBaseObjectGuard self(this);
    return overlay_ && overlay_->overlayKeyDown(keyCode, nullptr);
}

bool BufferedFrame::sendKeyUp(VstKeyCode keyCode) {
    const CBaseObjectGuard self(this);
    return callback_ && callback_->platformOnKeyUp(keyCode);
}

void BufferedFrame::sendActivate(bool state) {
    const CBaseObjectGuard self(this);
    if (callback_)
        callback_->platformOnActivate(state);
}

} // namespace VSTGUI
