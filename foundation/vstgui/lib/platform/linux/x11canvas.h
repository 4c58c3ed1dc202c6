#pragma once

#include <memory>
#include <optional>
#include <vector>

#include <xcb/shm.h>

#include "vstgui/lib/crect.h"
#include "vstgui/lib/platform/linux/x11connection.h"

namespace VSTGUI {

class PixmanSurface;
class X11Window;

/// The picture of a window in memory, and its way to the screen.
///
/// The memory is shared with the server where both see the same memory: then a copy is a request of
/// a few bytes, and the picture must not be drawn on before the server has read it, see
/// `waitUntilRead`. Else the pixels are sent in pieces.
class X11Canvas {
public:
    explicit X11Canvas(X11Connection& connection) : connection_(connection) {}
    ~X11Canvas();
    X11Canvas(const X11Canvas&) = delete;
    X11Canvas& operator=(const X11Canvas&) = delete;

    /// Opaque black, on new memory: the surface made before must be gone. Valid until the next one
    /// is made. @param window  where it will be sent
    std::unique_ptr<PixmanSurface> makeSurface(CCoord width, CCoord height, double pixelsPerUnit,
                                               const X11Window& window);

    /// Call it before drawing on the surface.
    void waitUntilRead();

    /// Copies a part to the same place of the window. @param part  logical pixels
    void send(const PixmanSurface& surface, const CRect& part, const X11Window& window);

    bool isShared() const { return segment_ != XCB_NONE; }

private:
    struct Part {
        int x, y, width, height;
    };

    bool share(std::size_t sizeBytes, const X11Window& window);
    bool isReadBack(const X11Window& window);
    void release();
    void sendShared(const PixmanSurface& surface, const Part& part, const X11Window& window);
    void sendPieces(const PixmanSurface& surface, const Part& part, const X11Window& window);

    X11Connection& connection_;
    xcb_shm_seg_t segment_ = XCB_NONE;
    void* shared_ = nullptr;
    std::vector<uint32_t> own_;   // where nothing is shared
    std::vector<uint32_t> piece_; // on its way
    /// Answered when everything sent before has been read.
    std::optional<xcb_get_input_focus_cookie_t> fence_;
};

} // namespace VSTGUI
