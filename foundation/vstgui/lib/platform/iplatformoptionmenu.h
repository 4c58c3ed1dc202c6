#pragma once

#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

class COptionMenu;

/// What was chosen: a menu (a submenu, possibly) and an entry of it; null and -1 for nothing.
struct PlatformOptionMenuResult {
    COptionMenu* menu;
    int32_t index;
};

/// A menu on the screen. Those of this layer open at once and report later, through
/// `COptionMenu::popupEnded`: the result of `popup` says only that it opened, by a menu and the
/// index -1. One that waits for the choice returns that.
class IPlatformOptionMenu : public CBaseObject {
public:
    virtual PlatformOptionMenuResult popup(COptionMenu* optionMenu) = 0;
    /// Closes without a choice and without a report.
    virtual void dismiss() {}
};

} // namespace VSTGUI
