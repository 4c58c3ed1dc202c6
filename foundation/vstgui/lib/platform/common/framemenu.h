#pragma once

#include <memory>

#include "vstgui/lib/platform/common/bufferedframe.h"
#include "vstgui/lib/platform/common/menulist.h"
#include "vstgui/lib/platform/iplatformoptionmenu.h"

namespace VSTGUI {

/// An open menu of a frame, apart from the surface on which it is seen.
///
/// A platform derives from it, shows the list on a window or an image of its own, and sends in what
/// happens there. What happens in the frame comes by itself, as the overlay of the frame: keys go
/// to the menu first, a press closes it, and the button that was pressed to open it may be let go
/// over an entry.
///
/// Closes first and reports then: when the listener hears of the choice, the menu is gone.
class FrameMenu : public IPlatformOptionMenu, public FrameOverlay {
public:
    explicit FrameMenu(BufferedFrame& frame);

    PlatformOptionMenuResult popup(COptionMenu* optionMenu) override;
    void dismiss() override;

    /// While open.
    MenuList* list() { return list_.get(); }

    // Events on the menu's own surface, in logical pixels from its corner. The menu may be gone
    // after each; `list` tells whether it is open.

    void menuMouseMoved(const CPoint& where, const CButtonState& buttons);
    void menuMouseLeft();
    void menuMouseDown(const CPoint& where);
    void menuMouseUp(const CPoint& where);
    void menuWheel(float distance);
    bool menuKeyDown(const VstKeyCode& keyCode);
    /// At each pump.
    void menuPulse();

protected:
    ~FrameMenu() override;

    BufferedFrame& frame() { return frame_; }

    /// The area that a menu may cover, in the frame's space.
    virtual CRect screenArea() const = 0;
    /// Makes the surface; false when there can be none. @param place  in the frame's space
    virtual bool show(const CRect& place) = 0;
    virtual void hide() = 0;
    /// The list looks different now. Draw it at once or at the next paint.
    virtual void listChanged() = 0;

private:
    bool overlayMouseDown(const CPoint& where, const CButtonState& buttons) override;
    bool overlayMouseMoved(const CPoint& where, const CButtonState& buttons) override;
    bool overlayMouseUp(const CPoint& where, const CButtonState& buttons) override;
    bool overlayWheel(const CPoint& where, float distance, const CButtonState& buttons) override;
    bool overlayKeyDown(VstKeyCode& keyCode, UTF8StringPtr text) override;

    void close();
    void followUp();

    BufferedFrame& frame_;        // remembered
    COptionMenu* menu_ = nullptr; // while open; it dismisses this when it goes
    std::unique_ptr<MenuList> list_;
    CRect place_;
};

} // namespace VSTGUI
