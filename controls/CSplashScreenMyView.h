#pragma once

#include "controls/Counted.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/controls/ccontrol.h"

namespace pedl {

class CAbout;

/// The about picture with the version written on it, and the link to the product's page where
/// there is a bitmap for it. Any left click closes it. Belongs to the `CAbout` that opened it.
class CSplashScreenMyView : public VSTGUI::CControl {
public:
    CSplashScreenMyView(const VSTGUI::CRect& toDisplay, CAbout* owner,
                        const VSTGUI::CPoint& anchorA, const VSTGUI::CPoint& versionAnchor);

    virtual void setLinkBitmap(VSTGUI::CBitmap* bitmap);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseMoved(VSTGUI::CPoint& where,
                                           const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseEntered(VSTGUI::CPoint& where,
                                             const VSTGUI::CButtonState& buttons) override;
    VSTGUI::CMouseEventResult onMouseExited(VSTGUI::CPoint& where,
                                            const VSTGUI::CButtonState& buttons) override;

    CAbout* owner;
    VSTGUI::CPoint anchorA; // nothing is drawn there
    VSTGUI::CPoint versionAnchor;
    bool hover = false; // over a link area
    Counted<VSTGUI::CBitmap> linkBitmap;
    VSTGUI::CRect linkImageRect{70, 132, 456, 419};
    VSTGUI::CRect linkAreaA{78, 140, 445, 185};
    VSTGUI::CRect linkAreaB{166, 185, 356, 405};
    CLASS_METHODS_NOCOPY(CSplashScreenMyView, CControl)

protected:
    ~CSplashScreenMyView() override = default;

private:
    [[nodiscard]] bool isOverLink(const VSTGUI::CPoint& where) const {
        return linkAreaA.pointInside(where) || linkAreaB.pointInside(where);
    }
};

} // namespace pedl
