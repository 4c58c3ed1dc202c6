#pragma once

#include "vstgui/lib/controls/ctextlabel.h"

namespace pedl {

/// The hint line: one line of text, or a link that a double click within `linkRect` follows (the
/// listener is told 1). Who shows hints sets them again and again; nothing is redrawn for a text
/// and a colour that stand there already.
class CZMTHitHintLabel2 : public VSTGUI::CTextLabel {
public:
    CZMTHitHintLabel2(const VSTGUI::CRect& size, VSTGUI::CControlListener* listener, int32_t tag,
                      const VSTGUI::CRect& linkRect, const char* text, VSTGUI::CBitmap* background,
                      int32_t style);

    // Both set the style of the font itself, which others may share: it is meant so
    virtual void showLinkHint(const char* text, const VSTGUI::CColor& colour);
    virtual void showPlainHint(const char* text, const VSTGUI::CColor& colour);
    virtual void getLinkRect(VSTGUI::CRect& rect) { rect = linkRect; }

    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;

    VSTGUI::CRect linkRect;
    bool linkActive = false; // the text is the link's
    CLASS_METHODS(CZMTHitHintLabel2, CTextLabel)

protected:
    ~CZMTHitHintLabel2() override = default;

private:
    void show(const char* text, const VSTGUI::CColor& colour, int32_t fontStyle);
};

} // namespace pedl
