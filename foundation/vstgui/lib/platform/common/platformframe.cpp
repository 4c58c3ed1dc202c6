#include "vstgui/lib/platform/iplatformframe.h"

#include <time.h>

#include "vstgui/lib/platform/linux/x11frame.h"

namespace VSTGUI {

namespace {

uint64_t monotonicMs() {
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<uint64_t>(now.tv_sec) * 1000 + static_cast<uint64_t>(now.tv_nsec) / 1000000;
}

PlatformFrameFactory frameFactory = createX11Frame;
TickSource tickSource = monotonicMs;

} // namespace

void setPlatformFrameFactory(PlatformFrameFactory factory) {
    frameFactory = factory ? factory : createX11Frame;
}

void setTickSource(TickSource source) {
    tickSource = source ? source : monotonicMs;
}

uint64_t currentTickMs() {
    return tickSource();
}

IPlatformFrame* IPlatformFrame::createPlatformFrame(IPlatformFrameCallback* frame,
                                                    const CRect& size, void* parent) {
    return frameFactory(frame, size, parent);
}

uint32_t IPlatformFrame::getTicks() {
    return static_cast<uint32_t>(currentTickMs());
}

} // namespace VSTGUI
