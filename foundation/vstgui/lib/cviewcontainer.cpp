#include "vstgui/lib/cviewcontainer.h"

#include <algorithm>

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/ccontrol.h"
#include "vstgui/lib/viewsnapshot.h"

namespace VSTGUI {

IdStringPtr kMsgLooseFocus = "a text field closed";

namespace {

/// A press with one of these goes to the control's listener first.
constexpr int32_t kModifierClick = kShift | kControl | kAlt | kApple | kRButton;

CViewContainer* asContainer(CView* view) {
    return view->isTypeOf("CViewContainer") ? static_cast<CViewContainer*>(view) : nullptr;
}

bool lies(CView* view, const CPoint& where) {
    return view->isVisible() && view->getMouseableArea().pointInside(where);
}

bool listenerTakesClick(CView* view, const CButtonState& buttons) {
    if ((buttons & kModifierClick) == 0 || !view->isTypeOf("CControl"))
        return false;
    auto* const control = static_cast<CControl*>(view);
    CControlListener* const listener = control->getListener();
    return listener && listener->controlModifierClicked(control, buttons) != 0;
}

} // namespace

CViewContainer::CViewContainer(const CRect& viewSize, CFrame* parent, CBitmap* background)
    : CView(viewSize) {
    pParentFrame = parent;
    if (background)
        CView::setBackground(background);
}

CViewContainer::CViewContainer(const CViewContainer& container)
    : CView(container), backgroundColor_(container.backgroundColor_) {
    for (const CView* child : container.children_)
        if (CBaseObject* const copy = child->newCopy())
            if (!CViewContainer::addView(static_cast<CView*>(copy)))
                copy->forget();
}

CViewContainer::~CViewContainer() {
    CViewContainer::removeAll();
}

// Children

bool CViewContainer::insert(CView* view, std::size_t index) {
    if (!view || view == this || view->isAttached() || CViewContainer::isChild(view))
        return false;
    children_.insert(children_.begin() + static_cast<std::ptrdiff_t>(index), view);
    view->remember(); // the list's; the creator's, which comes over too, is the second
    if (isAttached()) {
        const CBaseObjectGuard held(view);
        view->attached(this);
        view->invalid();
    }
    return true;
}

bool CViewContainer::addView(CView* view) {
    return insert(view, children_.size());
}

bool CViewContainer::addView(CView* view, const CRect& area, bool mouseEnabled) {
    if (!addView(view))
        return false;
    view->setMouseEnabled(mouseEnabled);
    view->setMouseableArea(area);
    return true;
}

bool CViewContainer::addView(CView* view, CView* before) {
    const auto place = std::find(children_.begin(), children_.end(), before);
    return insert(view, static_cast<std::size_t>(place - children_.begin()));
}

bool CViewContainer::removeView(CView* view, bool withForget) {
    if (!CViewContainer::isChild(view))
        return false;
    const CBaseObjectGuard self(this), held(view);
    endCaptureOf(view);
    if (view->isVisible() && view->isAttached())
        invalidRect(view->getViewSize());
    view->removed(this);

    // Last, and looked up anew: a callback above may have taken the view out already.
    const auto place = std::find(children_.begin(), children_.end(), view);
    if (place == children_.end())
        return true;
    children_.erase(place);
    view->forget();
    if (withForget)
        view->forget();
    return true;
}

bool CViewContainer::removeAll(bool withForget) {
    const CBaseObjectGuard self(this);
    while (!children_.empty())
        CViewContainer::removeView(children_.front(), withForget);
    return true;
}

/// Without the release that ends its drag, a control taken away under the mouse would leave the
/// host's edit open.
void CViewContainer::endCaptureOf(CView* view) {
    if (mouseDownView != view)
        return;
    mouseDownView = nullptr;
    if (!pParentFrame || !isAttached())
        return;
    CPoint where(pParentFrame->lastMouse_);
    frameToLocal(where);
    view->onMouseUp(where, pParentFrame->lastButtons_.getModifierState());
}

bool CViewContainer::isChild(CView* view) const {
    return view && std::find(children_.begin(), children_.end(), view) != children_.end();
}

bool CViewContainer::isChild(CView* view, bool deep) const {
    if (!deep || isChild(view))
        return isChild(view);
    return std::any_of(children_.begin(), children_.end(), [view](CView* child) {
        const CViewContainer* const container = asContainer(child);
        return container && container->isChild(view, true);
    });
}

int32_t CViewContainer::getNbViews() const {
    return static_cast<int32_t>(children_.size());
}

CView* CViewContainer::getView(int32_t index) const {
    return index >= 0 && index < getNbViews() ? children_[static_cast<std::size_t>(index)]
                                              : nullptr;
}

// Mouse-enabled or not: a hint line asks for what lies there, not for who answers.
CView* CViewContainer::getViewAt(const CPoint& where, bool deep) const {
    const CPoint local = toChildren(where);
    for (auto child = children_.rbegin(); child != children_.rend(); ++child) {
        if (!lies(*child, local))
            continue;
        const CViewContainer* const container = deep ? asContainer(*child) : nullptr;
        return container ? container->getViewAt(local, true) : *child;
    }
    return nullptr;
}

CViewContainer* CViewContainer::getContainerAt(const CPoint& where, bool deep) const {
    const CPoint local = toChildren(where);
    for (auto child = children_.rbegin(); child != children_.rend(); ++child) {
        CViewContainer* const container = asContainer(*child);
        if (container && lies(container, local))
            return deep ? container->getContainerAt(local, true) : container;
    }
    return const_cast<CViewContainer*>(this); // a view hands itself out to who may change it
}

bool CViewContainer::attached(CView* parent) {
    if (!CView::attached(parent))
        return false;
    const ViewSnapshot children(children_);
    for (CView* child : children)
        if (CViewContainer::isChild(child))
            child->attached(this);
    return true;
}

bool CViewContainer::removed(CView* parent) {
    if (!isAttached())
        return false;
    const CBaseObjectGuard self(this);
    mouseDownView = nullptr;
    const ViewSnapshot children(children_);
    for (CView* child : children)
        child->removed(this);
    return CView::removed(parent);
}

// Focus

void CViewContainer::collectFocusViews(std::vector<CView*>& views) const {
    for (CView* child : children_) {
        if (!child->isVisible())
            continue;
        if (child->wantsFocus() && child->getMouseEnabled())
            views.push_back(child);
        if (const CViewContainer* const container = asContainer(child))
            container->collectFocusViews(views);
    }
}

bool CViewContainer::advanceNextFocusView(CView* oldFocus, bool reverse) {
    if (!pParentFrame)
        return false;
    std::vector<CView*> views;
    collectFocusViews(views);
    if (reverse)
        std::reverse(views.begin(), views.end());
    const auto old = std::find(views.begin(), views.end(), oldFocus);
    const auto next = old == views.end() ? views.begin() : old + 1;
    if (next == views.end())
        return false;
    pParentFrame->setFocusView(*next);
    return true;
}

// Drawing

void CViewContainer::setBackgroundColor(const CColor& color) {
    backgroundColor_ = color;
    setDirty();
}

CColor CViewContainer::getBackgroundColor() const {
    return backgroundColor_;
}

void CViewContainer::setViewSize(const CRect& rect, bool markDirty) {
    if (getViewSize() == rect)
        return;
    CView::setViewSize(rect, markDirty);
    const ViewSnapshot children(children_);
    for (CView* child : children)
        child->parentSizeChanged();
}

void CViewContainer::draw(CDrawContext* context) {
    drawRect(context, size);
}

void CViewContainer::drawRect(CDrawContext* context, const CRect& updateRect) {
    const CBaseObjectGuard self(this);
    const CPoint outerOffset = context->getOffset();
    CRect outerClip;
    context->getClipRect(outerClip);

    CRect clip(updateRect);
    clip.bound(size);
    clip.bound(outerClip);
    clip.offset(-size.left, -size.top);
    context->setOffset(outerOffset + size.getTopLeft());
    context->setClipRect(clip);
    drawBackground(context);
    // By index: drawing may add and remove views, and a snapshot at each paint costs references.
    for (std::size_t i = 0; i < children_.size(); ++i)
        drawChild(context, children_[i], clip);

    context->setOffset(outerOffset);
    context->setClipRect(outerClip);
    CView::setDirty(false);
}

void CViewContainer::drawBackground(CDrawContext* context) {
    const CRect whole(CPoint(0, 0), size.getSize());
    if (CBitmap* const background = getBackground()) {
        background->draw(context, whole);
    } else if (!getTransparency()) {
        context->setFillColor(backgroundColor_);
        context->drawRect(whole, kDrawFilled);
    }
}

void CViewContainer::drawChild(CDrawContext* context, CView* view, const CRect& clip) {
    CRect visible(view->getViewSize());
    visible.bound(clip);
    if (!view->isVisible() || visible.isEmpty() || !view->checkUpdate(clip))
        return;
    const CBaseObjectGuard held(view);
    const float outerAlpha = context->getGlobalAlpha();
    context->setGlobalAlpha(outerAlpha * view->getAlphaValue());
    context->setClipRect(visible);
    view->drawRect(context, visible);
    context->setGlobalAlpha(outerAlpha);
}

bool CViewContainer::isDirty() const {
    return CView::isDirty() ||
           std::any_of(children_.begin(), children_.end(),
                       [](const CView* view) { return view->isVisible() && view->isDirty(); });
}

bool CViewContainer::invalidateDirtyViews() {
    if (!isVisible())
        return true;
    if (CView::isDirty()) { // its own looks changed: that is all of its children's area too
        invalid();
        return true;
    }
    for (std::size_t i = 0; i < children_.size(); ++i) {
        CView* const child = children_[i];
        if (!child->isVisible() || !child->isDirty())
            continue;
        if (CViewContainer* const container = asContainer(child))
            container->invalidateDirtyViews();
        else
            child->invalid();
    }
    return true;
}

void CViewContainer::invalidRect(const CRect& rect) {
    CRect inParent(rect);
    inParent.offset(size.left, size.top);
    inParent.bound(size);
    if (!inParent.isEmpty())
        CView::invalidRect(inParent);
}

void CViewContainer::invalid() {
    CView::setDirty(false);
    invalidRect(CRect(CPoint(0, 0), size.getSize()));
}

CPoint& CViewContainer::frameToLocal(CPoint& point) const {
    point -= size.getTopLeft();
    return CView::frameToLocal(point);
}

CPoint& CViewContainer::localToFrame(CPoint& point) const {
    point += size.getTopLeft();
    return CView::localToFrame(point);
}

// Events

CMouseEventResult CViewContainer::onMouseDown(CPoint& where, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    const bool wasAttached = isAttached();
    const CPoint local = toChildren(where);
    mouseDownView = nullptr;
    const ViewSnapshot children(children_);
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        CView* const view = *child;
        if (!CViewContainer::isChild(view) || !view->isVisible() || !view->getMouseEnabled() ||
            !view->hitTest(local, buttons))
            continue;
        const CMouseEventResult result = pressChild(view, local, buttons);
        if (result == kMouseEventHandled ||
            result == kMouseDownEventHandledButDontNeedMovedOrUpEvents ||
            !view->getTransparency() || isAttached() != wasAttached)
            return result;
    }
    return kMouseEventNotHandled;
}

/// One child's turn at a press. It may be gone after each of the three steps.
CMouseEventResult CViewContainer::pressChild(CView* view, const CPoint& where,
                                             const CButtonState& buttons) {
    if (listenerTakesClick(view, buttons) || !CViewContainer::isChild(view))
        return kMouseEventHandled;
    if (view->wantsFocus() && pParentFrame)
        pParentFrame->setFocusView(view); // before it sees the press: a text field opens by it
    if (!CViewContainer::isChild(view))
        return kMouseEventHandled;

    CPoint place(where);
    const CMouseEventResult result = view->onMouseDown(place, buttons);
    if (result == kMouseEventHandled && CViewContainer::isChild(view))
        mouseDownView = view;
    return result;
}

CMouseEventResult CViewContainer::onMouseUp(CPoint& where, const CButtonState& buttons) {
    CView* const view = mouseDownView;
    if (!view)
        return kMouseEventNotHandled;
    mouseDownView = nullptr; // first: a view that is removed in its release gets no second one
    const CBaseObjectGuard held(view);
    CPoint place = toChildren(where);
    view->onMouseUp(place, buttons);
    return kMouseEventHandled;
}

CMouseEventResult CViewContainer::onMouseMoved(CPoint& where, const CButtonState& buttons) {
    CView* const view = mouseDownView;
    if (!view)
        return kMouseEventNotHandled;
    const CBaseObjectGuard self(this), held(view);
    CPoint place = toChildren(where);
    const CMouseEventResult result = view->onMouseMoved(place, buttons);
    if (result != kMouseEventHandled && mouseDownView == view)
        mouseDownView = nullptr; // who does not want this move gets no others and no release
    return result;
}

bool CViewContainer::onWheel(const CPoint& where, const float& distance,
                             const CButtonState& buttons) {
    return onWheel(where, kMouseWheelAxisY, distance, buttons);
}

bool CViewContainer::onWheel(const CPoint& where, const CMouseWheelAxis& axis,
                             const float& distance, const CButtonState& buttons) {
    const CBaseObjectGuard self(this);
    const CPoint local = toChildren(where);
    const ViewSnapshot children(children_);
    for (auto child = children.rbegin(); child != children.rend(); ++child) {
        CView* const view = *child;
        if (!CViewContainer::isChild(view) || !lies(view, local))
            continue;
        if (view->onWheel(local, axis, distance, buttons))
            return true;
        if (!view->getTransparency())
            return false;
    }
    return false;
}

} // namespace VSTGUI
