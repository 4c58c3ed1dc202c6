#pragma once

#include <vector>

#include "vstgui/lib/platform/common/bufferedframe.h"

namespace VSTGUI {

/// A window without a display, for tests and pictures: the caller is mouse, keyboard and clock.
///
/// ```
/// setPlatformFrameFactory(OffscreenFrame::create);
/// auto* frame = new CFrame(size, anyNonNullPointer, editor);
/// auto& window = OffscreenFrame::of(*frame);
/// window.mouseDown(20, 30, kLButton);
/// window.mouseUp(20, 30);
/// window.turn();
/// ```
/// Buttons and modifiers of an event are those given; what the frame asks for between events is
/// what the last one left: a released button is up, modifiers stay until an event has others.
class OffscreenFrame : public BufferedFrame {
public:
    OffscreenFrame(IPlatformFrameCallback* callback, const CRect& size);

    /// A `PlatformFrameFactory`.
    static IPlatformFrame* create(IPlatformFrameCallback* callback, const CRect& size,
                                  void* parent);
    /// The window of a frame that was made by `create`.
    static OffscreenFrame& of(const CFrame& frame);

    // The mouse, in logical pixels
    CMouseEventResult mouseDown(CCoord x, CCoord y, CButtonState buttons = kLButton);
    CMouseEventResult mouseMove(CCoord x, CCoord y, CButtonState buttons = 0);
    /// @param buttons  what is still held, and the modifiers
    CMouseEventResult mouseUp(CCoord x, CCoord y, CButtonState buttons = 0);
    CMouseEventResult mouseExit(CCoord x, CCoord y, CButtonState buttons = 0);
    bool wheel(CCoord x, CCoord y, float distance, CButtonState buttons = 0,
               CMouseWheelAxis axis = kMouseWheelAxisY);

    // The keyboard: a key with a name, or one that writes `text` (UTF-8, its first character is the
    // key's)
    bool keyDown(VstVirtualKey key, int32_t modifiers = 0);
    bool keyUp(VstVirtualKey key, int32_t modifiers = 0);
    bool typeText(UTF8StringPtr text, int32_t modifiers = 0);
    void activate(bool state);

    /// What an editor's idle does: due timers, dirty views, drawing. False when the frame is gone.
    bool turn();

    /// The rectangles drawn by the last `paintInvalid`.
    const std::vector<CRect>& lastPainted() const { return lastPainted_; }
    CCursorType cursor() const { return cursor_; }

    bool getGlobalPosition(CPoint& pos) const override;
    bool getCurrentMousePosition(CPoint& where) const override;
    bool getCurrentMouseButtons(CButtonState& buttons) const override;
    bool setMouseCursor(CCursorType type) override;
    void* getPlatformRepresentation() const override;
    IPlatformOptionMenu* createPlatformOptionMenu() override;
    void paintInvalid() override;

protected:
    ~OffscreenFrame() override;

private:
    void note(CCoord x, CCoord y, CButtonState buttons);

    CFrame* frame_; // what `turn` is for; null when a callback of another kind made the window
    CPoint mouse_;
    CButtonState buttons_;
    CCursorType cursor_ = kCursorDefault;
    std::vector<CRect> lastPainted_;
};

} // namespace VSTGUI
