#include "vstgui/lib/platform/linux/x11frame.h"

#include <utility>

#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/linux/brokenpipeguard.h"
#include "vstgui/lib/platform/linux/x11menu.h"
#include "vstgui/lib/platform/linux/x11monitors.h"

namespace VSTGUI {

IPlatformFrame* createX11Frame(IPlatformFrameCallback* callback, const CRect& size, void* parent) {
    return X11Frame::open(callback, size,
                          static_cast<xcb_window_t>(reinterpret_cast<uintptr_t>(parent)));
}

X11Frame* X11Frame::open(IPlatformFrameCallback* callback, const CRect& size, xcb_window_t parent) {
    const BrokenPipeGuard guard;
    auto connection = X11Connection::open();
    if (!connection)
        return nullptr;
    const double scale = startingScaleFactor();
    const X11Place place{0, 0, windowPixels(size.width(), scale),
                         windowPixels(size.height(), scale)};
    auto window = X11Window::child(*connection, parent, place);
    if (!window)
        return nullptr;
    auto* const frame =
        new X11Frame(callback, size, std::move(connection), std::move(window), parent);
    frame->BufferedFrame::setScaleFactor(scale);
    return frame;
}

X11Frame::X11Frame(IPlatformFrameCallback* callback, const CRect& size,
                   std::unique_ptr<X11Connection> connection, std::unique_ptr<X11Window> window,
                   xcb_window_t parent)
    : BufferedFrame(callback, size), connection_(std::move(connection)), window_(std::move(window)),
      canvas_(*connection_), cursors_(*connection_), keyboard_(*connection_),
      clipboard_(*connection_, window_->id()), embedding_(*connection_), parent_(parent) {
    embedding_.announce(window_->id());
    window_->map();
    connection_->flush();
}

X11Frame::~X11Frame() {
    const BrokenPipeGuard guard;
    dropSurface(); // before the memory that it draws on
    window_.reset();
    connection_->flush();
}

/// The window goes at once, even if a call that is under way keeps this object.
void X11Frame::frameClosed() {
    const BrokenPipeGuard guard;
    BufferedFrame::frameClosed();
    if (menu_)
        menu_->dismiss();
    window_.reset();
}

// Size

void X11Frame::resizeWindow() {
    if (!isUsable())
        return;
    const BrokenPipeGuard guard;
    CRect size;
    getSize(size);
    window_->resize(windowPixels(size.width(), getScaleFactor()),
                    windowPixels(size.height(), getScaleFactor()));
    connection_->flush();
}

bool X11Frame::setSize(const CRect& newSize) {
    BufferedFrame::setSize(newSize);
    resizeWindow();
    return true;
}

bool X11Frame::setScaleFactor(double pixelsPerUnit) {
    cancelMenu();
    BufferedFrame::setScaleFactor(pixelsPerUnit);
    resizeWindow();
    return true;
}

std::unique_ptr<PixmanSurface> X11Frame::makeSurface(CCoord width, CCoord height,
                                                     double pixelsPerUnit) {
    return canvas_.makeSurface(width, height, pixelsPerUnit, *window_);
}

CRect X11Frame::monitorAround() const {
    CPoint corner;
    CRect own;
    if (!getGlobalPosition(corner))
        return {};
    const BrokenPipeGuard guard;
    getSize(own);
    const double scale = getScaleFactor();
    const CPoint middle = corner + own.getCenter();
    CRect area =
        VSTGUI::monitorAround(*connection_, screen(), CPoint(middle.x * scale, middle.y * scale));
    area(area.left / scale, area.top / scale, area.right / scale, area.bottom / scale);
    return area.offset(-corner.x, -corner.y);
}

// What the frame asks for

bool X11Frame::getGlobalPosition(CPoint& pos) const {
    if (!isUsable())
        return false;
    const BrokenPipeGuard guard;
    xcb_connection_t* const xcb = connection_->xcb();
    const auto place = owned(xcb_translate_coordinates_reply(
        xcb, xcb_translate_coordinates(xcb, window_->id(), screen().root, 0, 0), nullptr));
    if (place)
        pos = logical(place->dst_x, place->dst_y);
    return place != nullptr;
}

XcbOwned<xcb_query_pointer_reply_t> X11Frame::queryPointer() const {
    if (isMouseAway_ || !isUsable())
        return nullptr;
    const BrokenPipeGuard guard;
    xcb_connection_t* const xcb = connection_->xcb();
    return owned(xcb_query_pointer_reply(xcb, xcb_query_pointer(xcb, window_->id()), nullptr));
}

bool X11Frame::getCurrentMousePosition(CPoint& where) const {
    const CPoint outside(-1, -1);
    if (isMouseAway_) {
        where = outside;
        return true;
    }
    const auto pointer = queryPointer();
    where = pointer && pointer->same_screen ? logical(pointer->win_x, pointer->win_y) : lastMouse_;
    return true;
}

bool X11Frame::getCurrentMouseButtons(CButtonState& buttons) const {
    const auto pointer = queryPointer();
    buttons = pointer ? buttonsOf(pointer->mask) : lastButtons_;
    return true;
}

bool X11Frame::setMouseCursor(CCursorType type) {
    if (!isUsable())
        return false;
    const BrokenPipeGuard guard;
    cursors_.show(type, window_->id());
    return true;
}

void* X11Frame::getPlatformRepresentation() const {
    return isUsable() ? reinterpret_cast<void*>(uintptr_t{window_->id()}) : nullptr;
}

IPlatformOptionMenu* X11Frame::createPlatformOptionMenu() {
    return isUsable() ? new X11Menu(*this) : nullptr;
}

// Drawing

void X11Frame::exposed(const xcb_expose_event_t& expose) {
    const CPoint corner = logical(expose.x, expose.y);
    exposed_.push_back(CRect(corner, logical(expose.width, expose.height)));
}

void X11Frame::paintInvalid() {
    if (!isUsable()) {
        exposed_.clear();
        return;
    }
    const bool isMenuOpen = menu_ != nullptr;
    if (!isMenuOpen && exposed_.empty() && dirtyRegion().isEmpty())
        return;
    const CBaseObjectGuard self(this);
    const BrokenPipeGuard guard;
    std::vector<CRect> rects;
    if (!dirtyRegion().isEmpty()) {
        canvas_.waitUntilRead();
        rects = paintBuffer();
    }
    const std::vector<CRect> shown = std::exchange(exposed_, {});
    rects.insert(rects.end(), shown.begin(), shown.end());
    if (isUsable() && surface()) {
        for (const CRect& rect : rects)
            canvas_.send(*surface(), rect, *window_);
        connection_->flush();
    }
    if (menu_)
        menu_->paint();
}

} // namespace VSTGUI
