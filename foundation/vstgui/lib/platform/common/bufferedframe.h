#pragma once

#include <memory>

#include "vstgui/lib/platform/common/clipboard.h"
#include "vstgui/lib/platform/common/dirtyregion.h"
#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

class PixmanSurface;

/// Something that lies over a frame's views: drawn last, asked first. An open text field is one.
///
/// Places are logical pixels in the frame. Each operation returns whether the event was used; the
/// frame does not see it then. May end its own life, and the window's, in any of them.
class FrameOverlay {
public:
    virtual ~FrameOverlay() = default;
    virtual void drawOver(CDrawContext* /*context*/, const CRect& /*updateRect*/) {}
    virtual bool overlayMouseDown(const CPoint& /*where*/, const CButtonState& /*buttons*/) {
        return false;
    }
    virtual bool overlayMouseMoved(const CPoint& /*where*/, const CButtonState& /*buttons*/) {
        return false;
    }
    virtual bool overlayMouseUp(const CPoint& /*where*/, const CButtonState& /*buttons*/) {
        return false;
    }
    virtual bool overlayWheel(const CPoint& /*where*/, float /*distance*/,
                              const CButtonState& /*buttons*/) {
        return false;
    }
    /// @param text  what the key writes, UTF-8; null when it is to be derived from the code
    virtual bool overlayKeyDown(VstKeyCode& /*keyCode*/, UTF8StringPtr /*text*/) { return false; }
    /// The window goes before the overlay: it must not be touched any more.
    virtual void overlayFrameClosed() {}
};

/// What the windows of all platforms share: a back buffer, the areas to be redrawn, the scale, and
/// the way of an event to the overlay or the frame.
///
/// A platform derives from it, sends events in and shows the buffer. Every `send...` holds this
/// object; after one, look at `isClosed` before touching the window.
class BufferedFrame : public IPlatformFrame {
public:
    BufferedFrame(IPlatformFrameCallback* callback, const CRect& size);

    bool setSize(const CRect& newSize) override;
    bool getSize(CRect& size) const override;
    bool invalidRect(const CRect& rect) override;
    bool setScaleFactor(double pixelsPerUnit) override;
    double getScaleFactor() const override { return scaleFactor_; }
    IPlatformTextEdit* createPlatformTextEdit(IPlatformTextEditCallback* textEdit) override;
    COffscreenContext* createOffscreenContext(CCoord width, CCoord height) override;
    bool filterKeyDown(VstKeyCode& keyCode) override;
    void frameClosed() override;

    /// Where text fields copy to and paste from. Its own text alone, unless a platform has more.
    virtual Clipboard& clipboard() { return ownClipboard_; }

    /// One at a time; not owned. Null when it goes.
    void setOverlay(FrameOverlay* overlay) { overlay_ = overlay; }
    FrameOverlay* overlay() const { return overlay_; }

    bool isClosed() const { return callback_ == nullptr; }
    const DirtyRegion& dirtyRegion() const { return dirty_; }
    const PixmanSurface* surface() const { return surface_.get(); }

protected:
    ~BufferedFrame() override;

    /// A buffer for the whole window. Override to draw into memory of another kind.
    virtual std::unique_ptr<PixmanSurface> makeSurface(CCoord width, CCoord height,
                                                       double pixelsPerUnit);

    CMouseEventResult sendMouseDown(CPoint where, const CButtonState& buttons);
    CMouseEventResult sendMouseMoved(CPoint where, const CButtonState& buttons);
    CMouseEventResult sendMouseUp(CPoint where, const CButtonState& buttons);
    CMouseEventResult sendMouseExited(CPoint where, const CButtonState& buttons);
    bool sendWheel(const CPoint& where, CMouseWheelAxis axis, float distance,
                   const CButtonState& buttons);
    bool sendKeyDown(VstKeyCode keyCode, UTF8StringPtr text);
    bool sendKeyUp(VstKeyCode keyCode);
    void sendActivate(bool state);

    /// Redraws what is dirty into the buffer and returns the rectangles, logical pixels.
    std::vector<CRect> paintBuffer();

    /// Drops the buffer; the next paint makes one and fills it whole.
    void dropSurface();

private:
    CRect bounds() const { return CRect(CPoint(0, 0), size_); }
    void drawInto(const CRect& rect);

    IPlatformFrameCallback* callback_; // null once the frame is gone
    FrameOverlay* overlay_ = nullptr;
    CPoint size_;
    double scaleFactor_ = 1.0;
    DirtyRegion dirty_;
    std::shared_ptr<PixmanSurface> surface_;
    OwnClipboard ownClipboard_;
};

} // namespace VSTGUI
