#include "vstgui/lib/cframe.h"

#include <algorithm>

#include "vstgui/lib/viewsnapshot.h"

namespace VSTGUI {

namespace {

/// `where`, from the frame's space to the one in which `view` has its rectangle.
CPoint inParentOf(const CView* view, const CPoint& where) {
    CPoint place(where);
    if (const CView* const parent = view->getParentView())
        parent->frameToLocal(place);
    return place;
}

CMouseEventResult moveIn(CView* view, const CPoint& where, const CButtonState& buttons) {
    CPoint place = inParentOf(view, where);
    return view->onMouseMoved(place, buttons);
}

/// With one more reference.
EditorPump* pumpFor(const VSTGUIEditorInterface* editor) {
    EditorPump* const pump = editor ? editor->getPump() : nullptr;
    if (!pump)
        return new EditorPump;
    pump->remember();
    return pump;
}

} // namespace

CFrame::CFrame(const CRect& viewSize, void* systemWindow, VSTGUIEditorInterface* editor)
    : CViewContainer(CRect(CPoint(0, 0), viewSize.getSize())), editor_(editor),
      pump_(pumpFor(editor)) {
    const EditorPump::Call call(*pump_);
    pParentFrame = this;
    attached_ = true;
    if (systemWindow)
        platformFrame_ = IPlatformFrame::createPlatformFrame(this, size, systemWindow);
    if (platformFrame_)
        scaleFactor_ = platformFrame_->getScaleFactor();
}

CFrame::~CFrame() {
    closing_ = true;
    forgetHovered();
    CViewContainer::removeAll();
    releasePlatformFrame();
    pump_->forget();
}

void CFrame::close() {
    if (closing_)
        return; // asked for by a view that is being taken down
    const Entered entered(this);
    closing_ = true;
    forgetHovered();
    focusView_ = focusWhenActive_ = nullptr; // no `looseFocus`: an open text is discarded
    if (modalView_)
        removeView(modalView_, false); // its creator's
    setCursor(kCursorDefault);
    removeAll();
    releasePlatformFrame();
    forget();
}

void CFrame::releasePlatformFrame() {
    if (!platformFrame_)
        return;
    IPlatformFrame* const platformFrame = platformFrame_;
    platformFrame_ = nullptr;
    platformFrame->frameClosed(); // it may live on in a call that is under way
    platformFrame->forget();
}

void CFrame::idle() {
    const Entered entered(this);
    invalidateDirtyViews();
}

void CFrame::doIdleStuff() {
    if (editor_)
        editor_->doIdleStuff();
}

uint32_t CFrame::getTicks() const {
    return IPlatformFrame::getTicks();
}

int32_t CFrame::getKnobMode() const {
    return editor_ ? editor_->getKnobMode() : kCircularMode;
}

// Size and scale

bool CFrame::setSize(CCoord width, CCoord height) {
    const CRect newSize(0, 0, width, height);
    if (newSize == size || (editor_ && !editor_->beforeSizeChange(newSize, size)) ||
        (platformFrame_ && !platformFrame_->setSize(newSize)))
        return false;
    setMouseableArea(newSize);
    setViewSize(newSize);
    return true;
}

bool CFrame::getSize(CRect& outSize) const {
    outSize = size;
    return !platformFrame_ || platformFrame_->getSize(outSize);
}

bool CFrame::setScaleFactor(double pixelsPerUnit) {
    if (pixelsPerUnit <= 0.0 || (platformFrame_ && !platformFrame_->setScaleFactor(pixelsPerUnit)))
        return false;
    scaleFactor_ = pixelsPerUnit;
    invalid();
    return true;
}

double CFrame::getScaleFactor() const {
    return scaleFactor_;
}

void CFrame::invalidRect(const CRect& rect) {
    CRect visible(rect);
    visible.bound(size);
    if (platformFrame_ && isVisible() && !visible.isEmpty())
        platformFrame_->invalidRect(visible);
}

// Editor and platform

void CFrame::beginEdit(int32_t index) {
    if (editor_)
        editor_->beginEdit(index);
}

void CFrame::endEdit(int32_t index) {
    if (editor_)
        editor_->endEdit(index);
}

VSTGUIEditorInterface* CFrame::getEditor() const {
    return editor_;
}

bool CFrame::getCurrentMouseLocation(CPoint& where) const {
    return platformFrame_ && platformFrame_->getCurrentMousePosition(where);
}

CButtonState CFrame::getCurrentMouseButtons() const {
    CButtonState buttons;
    if (platformFrame_)
        platformFrame_->getCurrentMouseButtons(buttons);
    return buttons;
}

void CFrame::setCursor(CCursorType type) {
    if (platformFrame_)
        platformFrame_->setMouseCursor(type);
}

// Views that come and go

void CFrame::onViewAdded(CView* /*view*/) {}

void CFrame::onViewRemoved(CView* view) {
    const auto hovered = std::find(hovered_.begin(), hovered_.end(), view);
    if (hovered != hovered_.end()) {
        hovered_.erase(hovered);
        view->forget();
    }
    if (modalView_ == view)
        modalView_ = nullptr;
    if (focusWhenActive_ == view)
        focusWhenActive_ = nullptr;
    if (focusView_ == view)
        setFocusView(nullptr);
    if (focusView_ == view) // refused in the middle of another change
        focusView_ = nullptr;
}

bool CFrame::setModalView(CView* view) {
    const CBaseObjectGuard self(this);
    if (!view) {
        if (modalView_)
            removeView(modalView_, false);
        return true;
    }
    if (modalView_ || view->isAttached() || !addView(view))
        return false;
    modalView_ = view;
    leaveHoveredFrom(0, lastMouse_, lastButtons_);
    if (modalView_ != view)
        return true; // closed again by one of the views that were left
    if (view->wantsFocus())
        setFocusView(view);
    else if (!view->isTypeOf("CViewContainer") ||
             !static_cast<CViewContainer*>(view)->advanceNextFocusView(nullptr))
        setFocusView(nullptr);
    return true;
}

CView* CFrame::getModalView() const {
    return modalView_;
}

CView* CFrame::getViewAt(const CPoint& where, bool deep) const {
    if (!modalView_)
        return CViewContainer::getViewAt(where, deep);
    if (!modalView_->getViewSize().pointInside(where))
        return nullptr;
    if (deep && modalView_->isTypeOf("CViewContainer"))
        if (CView* const inner =
                static_cast<const CViewContainer*>(modalView_)->getViewAt(where, true))
            return inner;
    return modalView_;
}

// Keyboard focus

void CFrame::setFocusView(CView* view) {
    // A view that loses the focus may ask for it in the same breath: not while another has it.
    if (view == focusView_ || (changingFocus_ && focusView_) || (view && view->getFrame() != this))
        return;
    if (!active_) {
        focusWhenActive_ = view;
        return;
    }
    const CBaseObjectGuard self(this), held(view);
    const bool outerChange = changingFocus_;
    changingFocus_ = true;
    CView* const old = focusView_;
    focusView_ = view;
    if (old) {
        const CBaseObjectGuard heldOld(old);
        old->invalid();
        old->looseFocus();
    }
    if (view && focusView_ == view && view->wantsFocus())
        view->takeFocus();
    changingFocus_ = outerChange;
}

CView* CFrame::getFocusView() const {
    return focusView_;
}

void CFrame::onActivate(bool state) {
    if (state == active_)
        return;
    const CBaseObjectGuard self(this);
    if (state) {
        active_ = true;
        CView* const view = focusWhenActive_;
        focusWhenActive_ = nullptr;
        if (view)
            setFocusView(view);
        else
            moveFocus(false);
        return;
    }
    CView* const view = focusView_;
    const CBaseObjectGuard held(view);
    setFocusView(nullptr);
    active_ = false;
    focusWhenActive_ = view && view->getFrame() == this ? view : nullptr;
}

bool CFrame::moveFocus(bool reverse) {
    CViewContainer* root = this;
    if (modalView_) {
        if (!modalView_->isTypeOf("CViewContainer"))
            return false;
        root = static_cast<CViewContainer*>(modalView_);
    }
    return root->advanceNextFocusView(focusView_, reverse) ||
           root->advanceNextFocusView(nullptr, reverse); // round the end
}

int32_t CFrame::onKeyDown(VstKeyCode& keyCode) {
    const CBaseObjectGuard self(this);
    if (offerKey(&CView::onKeyDown, keyCode) == 1)
        return 1;
    if (keyCode.virt != VKEY_TAB || closing_)
        return -1;
    return moveFocus((keyCode.modifier & MODIFIER_SHIFT) != 0) ? 1 : -1;
}

int32_t CFrame::onKeyUp(VstKeyCode& keyCode) {
    const CBaseObjectGuard self(this);
    return offerKey(&CView::onKeyUp, keyCode);
}

/// To the focus view, outwards through its parents, last to the modal view, until one uses it.
int32_t CFrame::offerKey(KeyOperation operation, VstKeyCode& keyCode) {
    std::vector<CView*> chain = chainTo(focusView_);
    if (modalView_ && std::find(chain.begin(), chain.end(), modalView_) == chain.end())
        chain.insert(chain.begin(), modalView_);
    const ViewSnapshot views(std::move(chain));
    for (auto view = views.rbegin(); view != views.rend(); ++view)
        if ((*view)->getFrame() == this && (*view)->getMouseEnabled() &&
            ((*view)->*operation)(keyCode) == 1)
            return 1;
    return -1;
}

// Views under the mouse

std::vector<CView*> CFrame::chainTo(CView* view) const {
    std::vector<CView*> chain;
    for (; view && view != this; view = view->getParentView())
        chain.push_back(view);
    std::reverse(chain.begin(), chain.end());
    return chain;
}

void CFrame::noteMouse(const CPoint& where, const CButtonState& buttons) {
    lastMouse_ = where;
    lastButtons_ = buttons;
}

void CFrame::forgetHovered() {
    std::vector<CView*> views;
    views.swap(hovered_);
    for (CView* view : views)
        view->forget();
}

void CFrame::leaveHoveredFrom(std::size_t firstIndex, const CPoint& where,
                              const CButtonState& buttons) {
    while (hovered_.size() > firstIndex) {
        CView* const view = hovered_.back();
        hovered_.pop_back();
        CPoint place = inParentOf(view, where);
        view->onMouseExited(place, buttons);
        view->forget();
    }
}

void CFrame::updateHover(const CPoint& where, const CButtonState& buttons) {
    if (mouseDownView || closing_)
        return;
    CView* target = getViewAt(where, true);
    if (!target && !modalView_)
        target = getContainerAt(where); // an empty place of a container
    const ViewSnapshot chain(chainTo(target));

    std::size_t common = 0;
    while (common < chain.size() && common < hovered_.size() && chain[common] == hovered_[common])
        ++common;
    leaveHoveredFrom(common, where, buttons);
    for (std::size_t i = common; i < chain.size(); ++i) {
        CView* const view = chain[i];
        if (closing_ || hovered_.size() != i || view->getFrame() != this)
            return; // the views changed under the call; the next move sees to it
        view->remember();
        hovered_.push_back(view);
        CPoint place = inParentOf(view, where);
        view->onMouseEntered(place, buttons);
    }
}

CMouseEventResult CFrame::moveOverHovered(const CPoint& where, const CButtonState& buttons) {
    const ViewSnapshot views(hovered_);
    for (auto view = views.rbegin(); view != views.rend(); ++view)
        if ((*view)->getFrame() == this &&
            moveIn(*view, where, buttons.getModifierState()) == kMouseEventHandled)
            return kMouseEventHandled;
    return kMouseEventNotHandled;
}

// Mouse

CMouseEventResult CFrame::pressModalView(CPoint& where, const CButtonState& buttons) {
    CView* const view = modalView_;
    if (!view->hitTest(where, buttons))
        return kMouseEventNotHandled;
    const CBaseObjectGuard held(view);
    const CMouseEventResult result = view->onMouseDown(where, buttons);
    if (result == kMouseEventHandled && modalView_ == view)
        mouseDownView = view;
    return result;
}

CMouseEventResult CFrame::onMouseDown(CPoint& where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    noteMouse(where, buttons);
    if (mouseDownView) // another button ends the drag: what is held gets its release
        endCaptureOf(mouseDownView);
    // Its text is committed before anything else happens: what is pressed may depend on it.
    if (focusView_ && focusView_->isTypeOf("CTextEdit"))
        setFocusView(nullptr);
    if (closing_)
        return kMouseEventHandled;
    return modalView_ ? pressModalView(where, buttons)
                      : CViewContainer::onMouseDown(where, buttons);
}

CMouseEventResult CFrame::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    noteMouse(where, buttons);
    updateHover(where, buttons);
    if (closing_)
        return kMouseEventHandled;
    if (mouseDownView)
        return CViewContainer::onMouseMoved(where, buttons);
    if (!modalView_)
        return moveOverHovered(where, buttons);
    const CBaseObjectGuard held(modalView_);
    return moveIn(modalView_, where, buttons);
}

CMouseEventResult CFrame::onMouseUp(CPoint& where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    noteMouse(where, buttons);
    const CMouseEventResult result = CViewContainer::onMouseUp(where, buttons);
    updateHover(where, buttons);
    return result;
}

CMouseEventResult CFrame::onMouseExited(CPoint& where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    if (!mouseDownView)
        leaveHoveredFrom(0, where, buttons);
    return kMouseEventHandled;
}

bool CFrame::onWheel(const CPoint& where, const float& distance, const CButtonState& buttons) {
    return onWheel(where, kMouseWheelAxisY, distance, buttons);
}

bool CFrame::onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                     const CButtonState& buttons) {
    if (mouseDownView)
        return false; // a wheel in the middle of a drag would be a second edit
    CView* const view = getViewAt(where);
    const CBaseObjectGuard self(this), held(view);
    return view && view->onWheel(where, axis, distance, buttons);
}

// From the platform

bool CFrame::platformDrawRect(CDrawContext* context, const CRect& rect) {
    const Entered entered(this);
    if (!isVisible())
        return false;
    drawRect(context, rect);
    return true;
}

CMouseEventResult CFrame::platformOnMouseDown(CPoint& where, const CButtonState& buttons) {
    const Entered entered(this);
    return onMouseDown(where, buttons);
}

CMouseEventResult CFrame::platformOnMouseMoved(CPoint& where, const CButtonState& buttons) {
    const Entered entered(this);
    return onMouseMoved(where, buttons);
}

CMouseEventResult CFrame::platformOnMouseUp(CPoint& where, const CButtonState& buttons) {
    const Entered entered(this);
    return onMouseUp(where, buttons);
}

CMouseEventResult CFrame::platformOnMouseExited(CPoint& where, const CButtonState& buttons) {
    const Entered entered(this);
    return onMouseExited(where, buttons);
}

bool CFrame::platformOnMouseWheel(const CPoint& where, const CMouseWheelAxis& axis,
                                  const float& distance, const CButtonState& buttons) {
    const Entered entered(this);
    return onWheel(where, axis, distance, buttons);
}

bool CFrame::platformOnKeyDown(VstKeyCode& keyCode) {
    const Entered entered(this);
    return onKeyDown(keyCode) > 0;
}

bool CFrame::platformOnKeyUp(VstKeyCode& keyCode) {
    const Entered entered(this);
    return onKeyUp(keyCode) > 0;
}

void CFrame::platformOnActivate(bool state) {
    const Entered entered(this);
    onActivate(state);
}

} // namespace VSTGUI
