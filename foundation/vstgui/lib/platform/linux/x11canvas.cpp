#include "vstgui/lib/platform/linux/x11canvas.h"

#include <algorithm>
#include <array>
#include <bit>
#include <chrono>
#include <cmath>
#include <cstring>
#include <sys/ipc.h>
#include <sys/shm.h>

#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/iplatformframe.h"
#include "vstgui/lib/platform/linux/x11window.h"

namespace VSTGUI {

namespace {

constexpr uint32_t kOpaqueBlack = 0xFF000000;
/// What every server takes in one request, the large ones being an extension.
constexpr std::size_t kLargestPieceBytes = 65535 * 4 - 64;

bool hasOurByteOrder(const X11Connection& connection) {
    const bool isServerLittle =
        xcb_get_setup(connection.xcb())->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    return isServerLittle == (std::endian::native == std::endian::little);
}

void copyPixels(const uint32_t* from, int count, bool swapBytes, uint32_t* to) {
    if (swapBytes)
        std::transform(from, from + count, to,
                       [](uint32_t pixel) { return __builtin_bswap32(pixel); });
    else
        std::copy_n(from, count, to);
}

} // namespace

X11Canvas::~X11Canvas() {
    release();
}

void X11Canvas::release() {
    if (fence_)
        xcb_discard_reply(connection_.xcb(), fence_->sequence);
    fence_.reset();
    if (segment_ != XCB_NONE)
        xcb_shm_detach(connection_.xcb(), segment_);
    if (shared_)
        shmdt(shared_);
    segment_ = XCB_NONE;
    shared_ = nullptr;
    own_.clear();
}

/// Whether the server reads what we write. One on another machine, or outside the container that
/// the host runs in, knows the number of our segment as another program's or not at all.
bool X11Canvas::isReadBack(const X11Window& window) {
    constexpr uint16_t kPixels = 4;
    constexpr uint32_t kSpread = 2654435761U; // odd: different times stay different
    const auto now = std::chrono::steady_clock::now().time_since_epoch().count();
    std::array<uint32_t, kPixels> written{};
    for (std::size_t i = 0; i < written.size(); ++i)
        written[i] = kOpaqueBlack | (static_cast<uint32_t>(now >> (8 * i)) * kSpread >> 8);
    std::copy(written.begin(), written.end(), static_cast<uint32_t*>(shared_));

    xcb_connection_t* const xcb = connection_.xcb();
    const xcb_pixmap_t copy = xcb_generate_id(xcb);
    xcb_create_pixmap(xcb, window.depth(), copy, window.id(), kPixels, 1);
    xcb_shm_put_image(xcb, copy, window.gc(), kPixels, 1, 0, 0, kPixels, 1, 0, 0, window.depth(),
                      XCB_IMAGE_FORMAT_Z_PIXMAP, 0, segment_, 0);
    const auto asked = xcb_get_image(xcb, XCB_IMAGE_FORMAT_Z_PIXMAP, copy, 0, 0, kPixels, 1, ~0U);
    xcb_free_pixmap(xcb, copy);
    const auto image = owned(xcb_get_image_reply(xcb, asked, nullptr));
    if (!image || xcb_get_image_data_length(image.get()) != sizeof(written))
        return false;
    std::array<uint32_t, kPixels> read;
    std::memcpy(read.data(), xcb_get_image_data(image.get()), sizeof(read));
    constexpr uint32_t kColour = 0xFFFFFF;
    return std::equal(read.begin(), read.end(), written.begin(),
                      [](uint32_t a, uint32_t b) { return (a & kColour) == (b & kColour); });
}

/// The segment is marked for removal as soon as both sides have it, so that it cannot outlive them.
bool X11Canvas::share(std::size_t sizeBytes, const X11Window& window) {
    xcb_connection_t* const xcb = connection_.xcb();
    const xcb_query_extension_reply_t* const extension = xcb_get_extension_data(xcb, &xcb_shm_id);
    if (!extension || !extension->present || !hasOurByteOrder(connection_))
        return false;
    const int memory = shmget(IPC_PRIVATE, sizeBytes, IPC_CREAT | 0600);
    if (memory < 0)
        return false;
    void* const address = shmat(memory, nullptr, 0);
    if (address != reinterpret_cast<void*>(-1)) {
        shared_ = address;
        segment_ = xcb_generate_id(xcb);
        constexpr uint8_t kReadOnly = 1;
        xcb_shm_attach(xcb, segment_, static_cast<uint32_t>(memory), kReadOnly);
    }
    const bool isShared = shared_ && isReadBack(window); // waits until the server has it
    shmctl(memory, IPC_RMID, nullptr);
    if (!isShared)
        release();
    return isShared;
}

std::unique_ptr<PixmanSurface>
X11Canvas::makeSurface(CCoord width, CCoord height, double pixelsPerUnit, const X11Window& window) {
    release();
    const int widthPixels = windowPixels(width, pixelsPerUnit);
    const int heightPixels = windowPixels(height, pixelsPerUnit);
    const std::size_t count =
        static_cast<std::size_t>(widthPixels) * static_cast<std::size_t>(heightPixels);
    if (!share(count * sizeof(uint32_t), window))
        own_.resize(count);
    uint32_t* const pixels = shared_ ? static_cast<uint32_t*>(shared_) : own_.data();
    std::fill_n(pixels, count, kOpaqueBlack);
    return std::make_unique<PixmanSurface>(pixels, widthPixels, heightPixels,
                                           widthPixels * static_cast<int>(sizeof(uint32_t)),
                                           pixelsPerUnit);
}

void X11Canvas::waitUntilRead() {
    if (!fence_)
        return;
    owned(xcb_get_input_focus_reply(connection_.xcb(), *fence_, nullptr));
    fence_.reset();
}

void X11Canvas::send(const PixmanSurface& surface, const CRect& part, const X11Window& window) {
    const double scale = surface.scale();
    const int left = std::max(0, static_cast<int>(std::floor(part.left * scale)));
    const int top = std::max(0, static_cast<int>(std::floor(part.top * scale)));
    const int right =
        std::min(surface.widthPixels(), static_cast<int>(std::ceil(part.right * scale)));
    const int bottom =
        std::min(surface.heightPixels(), static_cast<int>(std::ceil(part.bottom * scale)));
    if (left >= right || top >= bottom)
        return;
    const Part pixels{left, top, right - left, bottom - top};
    if (isShared())
        sendShared(surface, pixels, window);
    else
        sendPieces(surface, pixels, window);
}

void X11Canvas::sendShared(const PixmanSurface& surface, const Part& part,
                           const X11Window& window) {
    xcb_connection_t* const xcb = connection_.xcb();
    const auto x = static_cast<int16_t>(part.x);
    const auto y = static_cast<int16_t>(part.y);
    xcb_shm_put_image(xcb, window.id(), window.gc(), static_cast<uint16_t>(surface.widthPixels()),
                      static_cast<uint16_t>(surface.heightPixels()), static_cast<uint16_t>(x),
                      static_cast<uint16_t>(y), static_cast<uint16_t>(part.width),
                      static_cast<uint16_t>(part.height), x, y, window.depth(),
                      XCB_IMAGE_FORMAT_Z_PIXMAP, 0, segment_, 0);
    if (fence_)
        xcb_discard_reply(xcb, fence_->sequence);
    fence_ = xcb_get_input_focus(xcb);
}

void X11Canvas::sendPieces(const PixmanSurface& surface, const Part& part,
                           const X11Window& window) {
    const int rowBytes = part.width * static_cast<int>(sizeof(uint32_t));
    const int rowsAPiece = std::max(1, static_cast<int>(kLargestPieceBytes) / rowBytes);
    const bool swapBytes = !hasOurByteOrder(connection_);
    for (int done = 0; done < part.height; done += rowsAPiece) {
        const int rows = std::min(rowsAPiece, part.height - done);
        piece_.resize(static_cast<std::size_t>(rows) * static_cast<std::size_t>(part.width));
        for (int row = 0; row < rows; ++row)
            copyPixels(surface.pixels() +
                           static_cast<std::ptrdiff_t>(part.y + done + row) *
                               surface.widthPixels() +
                           part.x,
                       part.width, swapBytes,
                       piece_.data() + static_cast<std::ptrdiff_t>(row) * part.width);
        xcb_put_image(connection_.xcb(), XCB_IMAGE_FORMAT_Z_PIXMAP, window.id(), window.gc(),
                      static_cast<uint16_t>(part.width), static_cast<uint16_t>(rows),
                      static_cast<int16_t>(part.x), static_cast<int16_t>(part.y + done), 0,
                      window.depth(), static_cast<uint32_t>(rows * rowBytes),
                      reinterpret_cast<const uint8_t*>(piece_.data()));
    }
}

} // namespace VSTGUI
