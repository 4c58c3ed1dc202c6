#pragma once

#include "vstgui/lib/cpoint.h"
#include "vstgui/lib/crect.h"
#include "vstgui/lib/cview.h"
#include "vstgui/lib/vstguibase.h"
#include "vstgui/lib/vstkeycode.h"

namespace VSTGUI {

class CDrawContext;
class COffscreenContext;
class IPlatformOptionMenu;
class IPlatformTextEdit;
class IPlatformTextEditCallback;

/// What a platform's window tells the frame in it. Places are logical pixels from the window's
/// corner, the end of a call may be the end of the window: see `IPlatformFrame::frameClosed`.
class IPlatformFrameCallback {
public:
    virtual ~IPlatformFrameCallback() = default;
    virtual bool platformDrawRect(CDrawContext* context, const CRect& rect) = 0;
    virtual CMouseEventResult platformOnMouseDown(CPoint& where, const CButtonState& buttons) = 0;
    virtual CMouseEventResult platformOnMouseMoved(CPoint& where, const CButtonState& buttons) = 0;
    virtual CMouseEventResult platformOnMouseUp(CPoint& where, const CButtonState& buttons) = 0;
    virtual CMouseEventResult platformOnMouseExited(CPoint& where, const CButtonState& buttons) = 0;
    virtual bool platformOnMouseWheel(const CPoint& where, const CMouseWheelAxis& axis,
                                      const float& distance, const CButtonState& buttons) = 0;
    virtual bool platformOnKeyDown(VstKeyCode& keyCode) = 0;
    virtual bool platformOnKeyUp(VstKeyCode& keyCode) = 0;
    virtual void platformOnActivate(bool state) = 0;
};

/// A window of the platform.
class IPlatformFrame : public CBaseObject {
public:
    /// By the registered factory, else a child of the system's window `parent`. Null when it fails.
    static IPlatformFrame* createPlatformFrame(IPlatformFrameCallback* frame, const CRect& size,
                                               void* parent);
    /// The scale factor that a new frame's window has: the user's where the system makes it.
    static double startingScaleFactor();
    /// Milliseconds since some moment, monotonic; tests set it with `setTickSource`.
    static uint32_t getTicks();

    virtual bool getGlobalPosition(CPoint& pos) const = 0;
    virtual bool setSize(const CRect& newSize) = 0;
    virtual bool getSize(CRect& size) const = 0;
    virtual bool getCurrentMousePosition(CPoint& where) const = 0;
    virtual bool getCurrentMouseButtons(CButtonState& buttons) const = 0;
    virtual bool setMouseCursor(CCursorType type) = 0;
    virtual bool invalidRect(const CRect& rect) = 0;
    virtual void* getPlatformRepresentation() const = 0;
    virtual IPlatformTextEdit*
    createPlatformTextEdit(class IPlatformTextEditCallback* textEdit) = 0;
    virtual IPlatformOptionMenu* createPlatformOptionMenu() = 0;
    virtual COffscreenContext* createOffscreenContext(CCoord width, CCoord height) = 0;

    // Additions of this layer

    virtual bool setScaleFactor(double /*pixelsPerUnit*/) { return false; }
    virtual double getScaleFactor() const { return 1.0; }
    /// Takes what has happened to the window since and tells the frame.
    virtual void pumpEvents() {}
    /// Redraws what was invalidated and shows it. Nothing is drawn at any other time.
    virtual void paintInvalid() {}
    /// Offers a key that came through the host to an open text field.
    /// @return whether it was used
    virtual bool filterKeyDown(VstKeyCode& /*keyCode*/) { return false; }
    /// The frame is gone: it must not be called any more, even if this object lives on in a call
    /// that is under way.
    virtual void frameClosed() {}
};

/// Whole window pixels for a logical length, at least one.
uint16_t windowPixels(CCoord length, double pixelsPerUnit);

/// Makes every frame's window from now on, in whatever thread; null stands for the system's. For
/// tests and pictures.
using PlatformFrameFactory = IPlatformFrame* (*)(IPlatformFrameCallback* frame, const CRect& size,
                                                 void* parent);
void setPlatformFrameFactory(PlatformFrameFactory factory);

/// Milliseconds that timers and ticks of all threads go by; null is the system's monotonic clock.
using TickSource = uint64_t (*)();
void setTickSource(TickSource source);
uint64_t currentTickMs();

} // namespace VSTGUI
