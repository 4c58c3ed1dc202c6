#pragma once

#include "vstgui/lib/controls/ccontrol.h"

namespace VSTGUI {

/// An invisible area that opens a picture over the frame when it is pressed.
///
/// The picture is the frame's modal view until it is pressed itself.
class CSplashScreen : public CControl, public CControlListener {
public:
    /// @param toDisplay  where the picture goes, in the frame
    CSplashScreen(const CRect& size, CControlListener* listener, int32_t tag, CBitmap* background,
                  const CRect& toDisplay, const CPoint& offset = CPoint(0, 0));
    /// Shows `splashView`, whose reference it takes over.
    CSplashScreen(const CRect& size, CControlListener* listener, int32_t tag, CView* splashView);
    CSplashScreen(const CSplashScreen& splashScreen);

    void draw(CDrawContext* context) override;
    bool hitTest(const CPoint& where, const CButtonState& buttons = -1) override; // left alone
    /// Closes the picture; another modal view than its own stays.
    virtual void unSplash();
    virtual void setDisplayArea(const CRect& rect) { toDisplay = rect; }
    virtual CRect& getDisplayArea(CRect& rect) const;
    CMouseEventResult onMouseDown(CPoint& where, const CButtonState& buttons) override;
    bool removed(CView* parent) override; // the picture goes too
    CLASS_METHODS(CSplashScreen, CControl)

protected:
    ~CSplashScreen() override;
    using CControl::valueChanged; // the splash's own; below it is a listener
    /// The picture was pressed.
    void valueChanged(CControl* control) override;

    CRect toDisplay, keepSize;
    CPoint offset;
    CView* modalView;
};

} // namespace VSTGUI
