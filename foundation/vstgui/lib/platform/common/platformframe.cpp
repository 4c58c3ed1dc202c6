#include "vstgui/lib/platform/iplatformframe.h"

#include <time.h>

#include <atomic>

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

uint32_t IPlatformFrame::getTicks() {
    return static_cast<uint32_t>(currentTickMs());
}

} // namespace VSTGUI
