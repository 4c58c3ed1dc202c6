// What the skin costs: one frame of a knob that nobody has seen, and the memory that is held when
// every frame of every strip was. `EditorBench` has what a whole face costs.

#include "bench/ResidentMemory.h"
#include "editor/ControlLayout.h"
#include "resources/SkinResources.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/common/pixmansurface.h"

#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace pedl::bench {

using namespace VSTGUI;

namespace {

/// A window's picture. What was unpacked for the last of them goes with it.
class Window {
public:
    explicit Window(int64_t scale)
        : surface_(kFaceWidth, kFaceHeight, static_cast<double>(scale)),
          context_(createPixmanContext(surface_)) {
        skin::useEmbeddedSkin();
    }
    ~Window() { context_->forget(); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void drawFrame(std::int32_t id, int frame, double height) {
        CBitmap strip{CResourceDescription(id)};
        strip.draw(context_, CRect(0, 0, strip.getWidth(), height), CPoint(0, frame * height));
    }

    /// Every frame of every picture, as after an hour at all knobs.
    void drawEverything() {
        for (const skin::PictureRow& picture : skin::embeddedSkin().pictures())
            for (int frame = 0; picture.scale == 1 && frame < picture.frames; ++frame)
                drawFrame(static_cast<std::int32_t>(picture.id), frame, picture.height);
    }

private:
    PixmanSurface surface_;
    CDrawContext* context_;
};

/// Four windows hold what one does, but for their own pictures. The first benchmark, while the heap
/// has nothing to give that others left.
void memoryHeld(benchmark::State& state) {
    const int64_t scale = state.range(0);
    const double windowMegabytes =
        kFaceWidth * kFaceHeight * 4e-6 * static_cast<double>(scale * scale);
    for (auto _ : state) {
        std::vector<std::unique_ptr<Window>> windows;
        const double before = residentMegabytes();
        for (int i = 0; i < 4; ++i) {
            windows.push_back(std::make_unique<Window>(scale));
        }
        windows.front()->drawEverything();
        state.counters["everyFrameMB"] = residentMegabytes() - before - 4 * windowMegabytes;
    }
}
BENCHMARK(memoryHeld)
    ->ArgName("scale")
    ->Arg(1)
    ->Arg(2)
    ->Iterations(1)
    ->Unit(benchmark::kMillisecond);

/// A knob's picture that nobody has seen, with those that it builds on.
void oneKnobFrame(benchmark::State& state) {
    constexpr std::int32_t kLargeKnob = 12179;
    constexpr double kHeight = 49;
    int frame = 0;
    for (auto _ : state) {
        Window window(state.range(0));
        window.drawFrame(kLargeKnob, frame = (frame + 7) % 101, kHeight);
    }
}
BENCHMARK(oneKnobFrame)->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace pedl::bench

BENCHMARK_MAIN();
