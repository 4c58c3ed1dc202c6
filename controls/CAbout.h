#pragma once

#include "controls/Counted.h"
#include "foundation/platform/DocumentOpener.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/controls/csplashscreen.h"

#include <string>

namespace pedl {

class CSplashScreenMyView;

/// The invisible area over the name: a click shows the about picture over the whole editor, as the
/// frame's modal view. The value is 1 while it is shown.
class CAbout : public VSTGUI::CSplashScreen {
public:
    /// @param picture        over `toDisplay`
    /// @param anchorA        handed to the picture's view, not drawn
    /// @param versionAnchor  where the version stands in it
    /// @param linkBitmap     two frames, plain and under the mouse; null for no link
    CAbout(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
           VSTGUI::CBitmap* picture, const VSTGUI::CRect& toDisplay, const VSTGUI::CPoint& offset,
           const VSTGUI::CPoint& anchorA, const VSTGUI::CPoint& versionAnchor,
           VSTGUI::CBitmap* linkBitmap);
    CAbout(const CAbout& other);

    /// Who opens the product's page, and where that is. Outlives this.
    void setLink(DocumentOpener* opener, std::string address);
    void openLink();

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    void unSplash() override;
    bool removed(VSTGUI::CView* parent) override;

    VSTGUI::CPoint anchorA;
    VSTGUI::CPoint versionAnchor;
    Counted<VSTGUI::CBitmap> linkBitmap;
    CLASS_METHODS(CAbout, CSplashScreen)

protected:
    ~CAbout() override = default;

private:
    void dropView();

    DocumentOpener* opener_ = nullptr;
    std::string address_;
};

} // namespace pedl
