#include "editor/Panel.h"

namespace pedl {

using namespace VSTGUI;

MouseState mouseIn(const CFrame& frame) {
    MouseState mouse{CPoint(-1, -1), frame.getCurrentMouseButtons()};
    frame.getCurrentMouseLocation(mouse.where);
    return mouse;
}

void Panel::closeListBeside(const MouseState& mouse) const {
    CControl* const waves = controls.find(kLFOType);
    if (waves && mouse.isAnyButtonDown() && !mouse.isIn(waves))
        waves->looseFocus();
}

TickMs Panel::now() const {
    return IPlatformFrame::getTicks();
}

} // namespace pedl
