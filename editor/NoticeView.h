#pragma once

#include "vstgui/lib/cframe.h"

#include <string>

namespace pedl {

/// A small message in the middle of the frame, with or without a caption. A click takes it away, as
/// the next one does.
class NoticeView : public VSTGUI::CView {
public:
    static void show(VSTGUI::CFrame& frame, std::string caption, std::string text);

    void draw(VSTGUI::CDrawContext* context) override;
    VSTGUI::CMouseEventResult onMouseDown(VSTGUI::CPoint& where,
                                          const VSTGUI::CButtonState& buttons) override;
    CLASS_METHODS_NOCOPY(NoticeView, CView)

protected:
    ~NoticeView() override = default;

private:
    NoticeView(const VSTGUI::CRect& place, std::string caption, std::string text);

    std::string caption_;
    std::string text_;
};

} // namespace pedl
