#pragma once

#include "vstgui/lib/ccolor.h"
#include "vstgui/lib/platform/common/frametextedit.h"

#include <optional>

namespace pedl {

/// How the field of a name looks: what its control says of it.
struct SystemBoxLook {
    bool forceArial = false;                  // else the face of the control's font
    VSTGUI::CPoint offset;                    // from the control
    std::optional<VSTGUI::CColor> fontColour; // else the control's
};

/// The open field of a `CZMTTextEdit`: as high as one line of the control's font, in the middle of
/// the control, without a margin, so that the text stands where the control writes it. What lies
/// behind is the control's own drawing.
class ZMTSystemBox : public VSTGUI::FrameTextEdit {
public:
    ZMTSystemBox(VSTGUI::BufferedFrame& frame, VSTGUI::IPlatformTextEditCallback* callback,
                 const SystemBoxLook& look);

protected:
    ~ZMTSystemBox() override;
    [[nodiscard]] VSTGUI::CRect fieldArea() const override;
    [[nodiscard]] VSTGUI::CFontRef fieldFont() const override { return font_; }
    [[nodiscard]] VSTGUI::CColor textColor() const override;

private:
    const SystemBoxLook look_;
    const VSTGUI::CFontRef font_; // a regular one of its own
};

} // namespace pedl
