#include "vstgui/lib/cview.h"

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cframe.h"

namespace VSTGUI {

CView::CView(const CRect& viewSize) : size(viewSize), mouseableArea(viewSize) {}

CView::CView(const CView& view)
    : CBaseObject(view), size(view.size), mouseableArea(view.mouseableArea),
      pBackground(view.pBackground), visible_(view.visible_), mouseEnabled_(view.mouseEnabled_),
      transparent_(view.transparent_), wantsFocus_(view.wantsFocus_), alpha_(view.alpha_) {
    if (pBackground)
        pBackground->remember();
}

CView::~CView() {
    if (pBackground)
        pBackground->forget();
}

// Drawing

void CView::draw(CDrawContext* context) {
    if (pBackground)
        pBackground->draw(context, size);
    setDirty(false);
}

void CView::drawRect(CDrawContext* context, const CRect& /*updateRect*/) {
    draw(context);
}

bool CView::checkUpdate(const CRect& updateRect) const {
    return updateRect.rectOverlap(size);
}

bool CView::isDirty() const {
    return dirty_;
}

// A mark alone, for the next idle: nothing is drawn within a call.
void CView::setDirty(bool val) {
    dirty_ = val;
}

void CView::invalidRect(const CRect& rect) {
    if (attached_ && visible_ && pParentView)
        pParentView->invalidRect(rect);
}

void CView::invalid() {
    setDirty(false);
    invalidRect(size);
}

void CView::setVisible(bool state) {
    if (visible_ == state)
        return;
    if (!state)
        invalid(); // while it still counts as visible
    visible_ = state;
    if (state)
        invalid();
}

// Events

CMouseEventResult CView::onMouseDown(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    return kMouseEventNotImplemented;
}

CMouseEventResult CView::onMouseUp(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    return kMouseEventNotImplemented;
}

CMouseEventResult CView::onMouseMoved(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    return kMouseEventNotImplemented;
}

CMouseEventResult CView::onMouseEntered(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    return kMouseEventNotImplemented;
}

CMouseEventResult CView::onMouseExited(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    return kMouseEventNotImplemented;
}

bool CView::hitTest(const CPoint& where, const CButtonState& /*buttons*/) {
    return mouseableArea.pointInside(where);
}

bool CView::onWheel(const CPoint& /*where*/, const float& /*distance*/,
                    const CButtonState& /*buttons*/) {
    return false;
}

bool CView::onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                    const CButtonState& buttons) {
    // To the right is down, as a wheel that is turned towards the user.
    return onWheel(where, axis == kMouseWheelAxisX ? -distance : distance, buttons);
}

void CView::setMouseEnabled(bool enable) {
    mouseEnabled_ = enable;
}

bool CView::getMouseEnabled() const {
    return mouseEnabled_;
}

void CView::setMouseableArea(const CRect& rect) {
    mouseableArea = rect;
}

CRect& CView::getMouseableArea(CRect& rect) const {
    rect = mouseableArea;
    return rect;
}

const CRect& CView::getMouseableArea() const {
    return mouseableArea;
}

int32_t CView::onKeyDown(VstKeyCode& /*keyCode*/) {
    return -1;
}

int32_t CView::onKeyUp(VstKeyCode& /*keyCode*/) {
    return -1;
}

// Place and size

void CView::setViewSize(const CRect& rect, bool markDirty) {
    if (size == rect)
        return;
    // Neither the mouseable area nor the old place: who moves a view sees to both.
    size = rect;
    if (markDirty)
        setDirty();
}

CRect& CView::getViewSize(CRect& rect) const {
    rect = size;
    return rect;
}

CRect CView::getVisibleSize() const {
    CRect visible(size);
    CPoint corner; // of the parent at hand, in the space of the view's own
    for (const CView* parent = pParentView; parent; parent = parent->pParentView) {
        visible.bound(CRect(corner, parent->size.getSize()));
        corner -= parent->size.getTopLeft();
    }
    return visible;
}

void CView::parentSizeChanged() {}

CPoint& CView::frameToLocal(CPoint& point) const {
    return pParentView ? pParentView->frameToLocal(point) : point;
}

CPoint& CView::localToFrame(CPoint& point) const {
    return pParentView ? pParentView->localToFrame(point) : point;
}

bool CView::sizeToFit() {
    return false;
}

// Keyboard focus

void CView::looseFocus() {}

void CView::takeFocus() {}

bool CView::wantsFocus() const {
    return wantsFocus_;
}

void CView::setWantsFocus(bool state) {
    wantsFocus_ = state;
}

// Looks

void CView::setBackground(CBitmap* background) {
    if (background)
        background->remember(); // first: it may be the one that is given back
    if (pBackground)
        pBackground->forget();
    pBackground = background;
    setDirty();
}

CBitmap* CView::getBackground() const {
    return pBackground;
}

void CView::setTransparency(bool val) {
    if (transparent_ == val)
        return;
    transparent_ = val;
    setDirty();
}

bool CView::getTransparency() const {
    return transparent_;
}

void CView::setAlphaValue(float alpha) {
    if (alpha_ == alpha)
        return;
    alpha_ = alpha;
    // Not `invalid`: a change of looks must not make a changed value count as shown.
    invalidRect(size);
}

// Membership

bool CView::removed(CView* /*parent*/) {
    if (!attached_)
        return false;
    const CBaseObjectGuard self(this);
    if (pParentFrame)
        pParentFrame->onViewRemoved(this); // still attached: an open text field commits here
    attached_ = false;
    pParentView = nullptr;
    pParentFrame = nullptr;
    return true;
}

bool CView::attached(CView* parent) {
    if (attached_)
        return false;
    attached_ = true;
    pParentView = parent;
    pParentFrame = parent->getFrame();
    if (pParentFrame)
        pParentFrame->onViewAdded(this);
    return true;
}

VSTGUIEditorInterface* CView::getEditor() const {
    return pParentFrame ? pParentFrame->getEditor() : nullptr;
}

CMessageResult CView::notify(CBaseObject* /*sender*/, IdStringPtr /*message*/) {
    return kMessageUnknown;
}

} // namespace VSTGUI
