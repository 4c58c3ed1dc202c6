#include "vstgui/lib/platform/iplatformframe.h"

#include <time.h>

#include <algorithm>
#include <atomic>
#include <cmath>

#include "vstgui/lib/platform/systemplatform.h"

namespace VSTGUI {

namespace {

uint64_t monotonicMs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_nsec) / 1000000;
}

// Null for the system's own
constinit std::atomic<PlatformFrameFactory> frameFactory{nullptr};
constinit std::atomic<TickSource> tickSource{nullptr};

} // namespace

void setPlatformFrameFactory(PlatformFrameFactory factory) {
    frameFactory.store(factory, std::memory_order_relaxed);
}

void setTickSource(TickSource source) {
    tickSource.store(source, std::memory_order_relaxed);
}

uint64_t currentTickMs() {
    const TickSource source = tickSource.load(std::memory_order_relaxed);
    return source ? source() : monotonicMs();
}

IPlatformFrame* IPlatformFrame::createPlatformFrame(IPlatformFrameCallback* frame,
                                                    const CRect& size, void* parent) {
    const PlatformFrameFactory factory = frameFactory.load(std::memory_order_relaxed);
    return factory ? factory(frame, size, parent)
                   : kSystemPlatform.createFrame(frame, size, parent);
}

double IPlatformFrame::startingScaleFactor() {
    const bool isSystems = frameFactory.load(std::memory_order_relaxed) == nullptr;
    return isSystems ? kSystemPlatform.scaleFactor() : 1.0;
}

uint16_t windowPixels(CCoord length, double pixelsPerUnit) {
    constexpr double kRounding = 1e-6; // 10 at 1.1 is 11 pixels, whatever the product's last bit
    constexpr double kLargest = 32000.0;
    return static_cast<uint16_t>(
        std::clamp(std::ceil(length * pixelsPerUnit - kRounding), 1.0, kLargest));
}

uint32_t IPlatformFrame::getTicks() {
    return static_cast<uint32_t>(currentTickMs());
}

} // namespace VSTGUI
