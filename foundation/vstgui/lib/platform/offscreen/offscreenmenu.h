#pragma once

#include <memory>

#include "vstgui/lib/platform/common/framemenu.h"

namespace VSTGUI {

class OffscreenFrame;
class PixmanSurface;

/// A menu that draws into an image of its own. Tests look at it and drive it through
/// `FrameMenu`'s events; keys sent to the frame reach it too.
class OffscreenMenu : public FrameMenu {
public:
    /// The largest menu, larger than any frame: 1280 by 800 from the frame's corner.
    static constexpr CCoord kScreenWidth = 1280;
    static constexpr CCoord kScreenHeight = 800;

    explicit OffscreenMenu(OffscreenFrame& frame);

    /// The open one of the frame, null when there is none.
    static OffscreenMenu* of(OffscreenFrame& frame);

    /// In the frame's space.
    const CRect& place() const { return place_; }
    /// As it looks now.
    const PixmanSurface& image();

protected:
    ~OffscreenMenu() override;

    CRect screenArea() const override { return {0, 0, kScreenWidth, kScreenHeight}; }
    bool show(const CRect& place) override;
    void hide() override;
    void listChanged() override {} // `image` draws

private:
    CRect place_;
    std::unique_ptr<PixmanSurface> image_;
};

/// One reference, the caller's.
IPlatformOptionMenu* createOffscreenOptionMenu(OffscreenFrame& frame);

} // namespace VSTGUI
