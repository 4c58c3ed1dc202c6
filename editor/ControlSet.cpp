#include "editor/ControlSet.h"

namespace pedl {

using namespace VSTGUI;

void ControlSet::add(std::int32_t tag, CControl* control) {
    controls_.push_back({tag, adopted(control)});
}

void ControlSet::setValue(std::int32_t tag, float value) const {
    for (const Entry& entry : controls_)
        if (entry.tag == tag)
            entry.control->setValue(value);
}

void showIn(CFrame* frame, CControl* control) {
    if (!frame || !control)
        return;
    control->setVisible(true);
    if (control->getParentView())
        return;
    control->remember(); // the frame's
    frame->addView(control);
    control->setDirty();
}

void takeOut(CFrame* frame, CControl* control) {
    if (frame && control && control->getFrame() == frame)
        frame->removeView(control);
}

} // namespace pedl
