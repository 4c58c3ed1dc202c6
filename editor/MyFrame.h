#pragma once

#include "vstgui/lib/cframe.h"

namespace pedl {

/// The editor's frame. A press anywhere in it gives its window the keyboard, so that the keys of a
/// control work after any click: the toolkit's window sees to that before it tells the frame.
class MyFrame : public VSTGUI::CFrame {
public:
    using CFrame::CFrame;
    CLASS_METHODS_NOCOPY(MyFrame, CFrame)

protected:
    ~MyFrame() override = default;
};

} // namespace pedl
