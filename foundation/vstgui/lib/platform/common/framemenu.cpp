#include "vstgui/lib/platform/common/framemenu.h"

#include "vstgui/lib/coffscreencontext.h"
#include "vstgui/lib/controls/coptionmenu.h"

namespace VSTGUI {

FrameMenu::FrameMenu(BufferedFrame& frame) : frame_(frame) {
    frame_.remember();
}

FrameMenu::~FrameMenu() {
    if (frame_.overlay() == this)
        frame_.setOverlay(nullptr);
    frame_.forget();
}

PlatformOptionMenuResult FrameMenu::popup(COptionMenu* optionMenu) {
    const PlatformOptionMenuResult refused{nullptr, -1};
    if (list_ || frame_.overlay()) // an open text field has the frame's keys
        return refused;
    COffscreenContext* measure = frame_.createOffscreenContext(1, 1);
    if (!measure)
        return refused;
    list_ = std::make_unique<MenuList>(*optionMenu);
    const CRect screen = screenArea();
    list_->layOut(*measure, screen.getSize());
    measure->forget();

    CPoint corner = optionMenu->getViewSize().getTopLeft();
    optionMenu->localToFrame(corner);
    const CRect control(corner, optionMenu->getViewSize().getSize());
    const bool isOnCorner = (optionMenu->getStyle() & kPopupStyle) != 0;
    place_ = list_->placedAt(
        control, isOnCorner ? MenuList::Place::OnCorner : MenuList::Place::Below, screen);
    if (!show(place_)) {
        list_.reset();
        return refused;
    }
    menu_ = optionMenu;
    frame_.setOverlay(this);
    return {optionMenu, -1};
}

void FrameMenu::dismiss() {
    if (list_)
        close();
}

void FrameMenu::close() {
    menu_ = nullptr;
    list_.reset();
    if (frame_.overlay() == this)
        frame_.setOverlay(nullptr);
    hide();
}

/// After each event: the choice is told, or the change shown.
void FrameMenu::followUp() {
    if (list_->outcome() == MenuList::Outcome::Open) {
        if (list_->needsRedraw())
            listChanged();
        return;
    }
    const CBaseObjectGuard guard(this); // the control gives it back
    const int32_t chosen = list_->chosen();
    COptionMenu* menu = menu_;
    close();
    menu->popupEnded(chosen);
}

// On the menu

void FrameMenu::menuMouseMoved(const CPoint& where, const CButtonState& buttons) {
    if (!list_)
        return;
    list_->mouseMoved(where, buttons.getButtonState() != 0 ? MenuList::Button::Held
                                                           : MenuList::Button::Up);
    followUp();
}

void FrameMenu::menuMouseLeft() {
    if (!list_)
        return;
    list_->mouseLeft();
    followUp();
}

void FrameMenu::menuMouseDown(const CPoint& where) {
    if (!list_)
        return;
    list_->mouseDown(where);
    followUp();
}

void FrameMenu::menuMouseUp(const CPoint& where) {
    if (!list_)
        return;
    list_->mouseUp(where);
    followUp();
}

void FrameMenu::menuWheel(float distance) {
    if (!list_)
        return;
    list_->wheel(distance);
    followUp();
}

bool FrameMenu::menuKeyDown(const VstKeyCode& keyCode) {
    if (!list_)
        return false;
    list_->keyDown(keyCode);
    followUp();
    return true; // an open menu has every key
}

void FrameMenu::menuPulse() {
    if (!list_)
        return;
    list_->pulse();
    followUp();
}

// In the frame

bool FrameMenu::overlayMouseDown(const CPoint& where, const CButtonState& /*buttons*/) {
    menuMouseDown(where - place_.getTopLeft());
    return true;
}

bool FrameMenu::overlayMouseMoved(const CPoint& where, const CButtonState& buttons) {
    menuMouseMoved(where - place_.getTopLeft(), buttons);
    return true;
}

bool FrameMenu::overlayMouseUp(const CPoint& where, const CButtonState& /*buttons*/) {
    menuMouseUp(where - place_.getTopLeft());
    return true;
}

bool FrameMenu::overlayWheel(const CPoint& /*where*/, float distance,
                             const CButtonState& /*buttons*/) {
    menuWheel(distance);
    return true;
}

bool FrameMenu::overlayKeyDown(VstKeyCode& keyCode, UTF8StringPtr /*text*/) {
    return menuKeyDown(keyCode);
}

} // namespace VSTGUI
