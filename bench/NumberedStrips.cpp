#include "bench/NumberedStrips.h"

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/plainmutex.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

#include <map>
#include <memory>
#include <string>

namespace pedl::bench {

using namespace VSTGUI;

namespace {

constexpr CColor kPlate(44, 58, 62, 255);
constexpr CColor kInk(236, 226, 196, 255);
constexpr int32_t kMost = 1000; // pixels of a frame; a number says frames, width and height

struct Forget {
    void operator()(CBitmap* bitmap) const { bitmap->forget(); }
};

void drawFrames(PixmanSurface& surface, int32_t frames, const CPoint& size) {
    CDrawContext* const context = createPixmanContext(surface);
    for (int32_t i = 0; i < frames; ++i) {
        const CRect frame(CPoint(0, i * size.y), size);
        context->setFillColor(kPlate);
        context->setFrameColor(kInk);
        context->drawRect(frame, kDrawFilledAndStroked);
        context->setFont(kNormalFontVerySmall);
        context->setFontColor(kInk);
        context->drawString(std::to_string(i).c_str(), frame);
    }
    context->forget();
}

bool findStrip(const CResourceDescription& resource, int32_t scale, ResourceImage& image) {
    static constinit PlainMutex mutex; // every editor's thread asks
    static std::map<std::pair<int32_t, int32_t>, PixmanSurface> drawn;
    const PlainLock lock(mutex);
    const int32_t frames = resource.u.id / kMost / kMost;
    const CPoint size(resource.u.id / kMost % kMost, resource.u.id % kMost);
    const auto [strip, isNew] =
        drawn.try_emplace({resource.u.id, scale}, size.x, size.y * frames, scale);
    if (isNew)
        drawFrames(strip->second, frames, size);
    PixmanSurface& surface = strip->second;
    image = {surface.pixels(), surface.widthPixels(), surface.heightPixels()};
    return true;
}

} // namespace

CBitmap* numberedStrip(int32_t frames, int32_t width, int32_t frameHeight) {
    static constinit PlainMutex mutex;
    static std::map<int32_t, std::unique_ptr<CBitmap, Forget>> made;
    const PlainLock lock(mutex);
    setResourceLookup(findStrip);
    const int32_t number = (frames * kMost + width) * kMost + frameHeight;
    auto& bitmap = made[number];
    if (!bitmap)
        bitmap.reset(new CBitmap(number));
    return bitmap.get();
}

} // namespace pedl::bench
