#pragma once

#include <cstddef>
#include <vector>

#include "vstgui/lib/ccolor.h"
#include "vstgui/lib/cview.h"

namespace VSTGUI {

/// Sent up the parents by a text field that closed, until one answers `kMessageNotified`.
extern IdStringPtr kMsgLooseFocus;

/// A view that holds others, drawn in their order: a later one is on top.
///
/// `addView` takes over the creator's reference and adds the list's own. Children may be added and
/// removed at any time, in the middle of an event that one of them handles too.
class CViewContainer : public CView {
public:
    CViewContainer(const CRect& size, CFrame* parent = nullptr, CBitmap* background = nullptr);
    /// With copies of the children.
    CViewContainer(const CViewContainer& container);

    /// False for null and for a view that has a parent: the caller still owns it then.
    virtual bool addView(CView* view);
    virtual bool addView(CView* view, const CRect& mouseableArea, bool mouseEnabled = true);
    virtual bool addView(CView* view, CView* before);

    /// @param withForget  false: the caller holds the creator's reference again
    virtual bool removeView(CView* view, bool withForget = true);
    virtual bool removeAll(bool withForget = true);
    virtual bool isChild(CView* view) const;
    virtual bool isChild(CView* view, bool deep) const;
    virtual int32_t getNbViews() const;
    virtual CView* getView(int32_t index) const; // null outside

    /// The topmost visible child whose mouse area holds `where`, mouse-enabled or not.
    virtual CView* getViewAt(const CPoint& where, bool deep = false) const;
    /// The container at `where`, this one when no child is.
    virtual CViewContainer* getContainerAt(const CPoint& where, bool deep = true) const;

    virtual void setBackgroundColor(const CColor& color);
    virtual CColor getBackgroundColor() const;
    /// Moves the keyboard focus on from `oldFocus`. False when no other view wants it.
    virtual bool advanceNextFocusView(CView* oldFocus, bool reverse = false);
    /// Asks for the redraw of every dirty view below.
    virtual bool invalidateDirtyViews();

    void draw(CDrawContext* context) override;
    void drawRect(CDrawContext* context, const CRect& updateRect) override;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseUp(CPoint& where, const CButtonState& buttons) override;
    CMouseEventResult onMouseMoved(CPoint& where, const CButtonState& buttons) override;
    bool onWheel(const CPoint& where, const float& distance, const CButtonState& buttons) override;
    bool onWheel(const CPoint& where, const CMouseWheelAxis& axis, const float& distance,
                 const CButtonState& buttons) override;
    void invalidRect(const CRect& rect) override;
    void invalid() override;
    bool isDirty() const override;
    CPoint& frameToLocal(CPoint& point) const override;
    CPoint& localToFrame(CPoint& point) const override;
    void setViewSize(const CRect& rect, bool invalid = true) override;
    bool attached(CView* parent) override;
    bool removed(CView* parent) override;
    CLASS_METHODS(CViewContainer, CView)

protected:
    ~CViewContainer() override;

    /// From the space of this view's rectangle to that of its children.
    CPoint toChildren(const CPoint& where) const { return where - size.getTopLeft(); }

    /// Gives a child that has the mouse its release, as another button's press and its removal do.
    void endCaptureOf(CView* view);

    CView* mouseDownView = nullptr; // the child that has the mouse between press and release

private:
    bool insert(CView* view, std::size_t index);
    void collectFocusViews(std::vector<CView*>& views) const;
    void drawBackground(CDrawContext* context);
    void drawChild(CDrawContext* context, CView* view, const CRect& clip);
    CMouseEventResult pressChild(CView* view, const CPoint& where, const CButtonState& buttons);

    std::vector<CView*> children_;
    CColor backgroundColor_ = CColor(0, 0, 0, 255);
};

} // namespace VSTGUI
