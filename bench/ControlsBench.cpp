// What a control of the editor costs when it is redrawn through the views of a window: the new
// value, the dirty area, the drawing, without a display.

#include "bench/NumberedStrips.h"
#include "controls/CAnimKnobWithLabel.h"
#include "controls/ZMTIndicatorLED.h"
#include "controls/ZMTPedlNotDotCounter.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"

#include <benchmark/benchmark.h>

namespace pedl::bench {
namespace {

using namespace VSTGUI;

/// A frame with one control, which is redrawn with a new value.
class Window : public VSTGUIEditorInterface {
public:
    explicit Window(double scale) {
        setPlatformFrameFactory(OffscreenFrame::create);
        frame_ = new CFrame(CRect(0, 0, 521, 544), this, this);
        frame_->setScaleFactor(scale);
    }
    ~Window() override {
        frame_->close();
        setPlatformFrameFactory(nullptr);
    }
    void measure(benchmark::State& state, CControl* control) {
        frame_->addView(control);
        OffscreenFrame& window = OffscreenFrame::of(*frame_);
        window.turn();
        float value = 0.0F;
        for (auto _ : state) {
            value = value > 0.9F ? 0.0F : value + 0.01F;
            control->setValue(value);
            window.turn();
        }
    }

private:
    CFrame* frame_;
};

void knobWithLabel(benchmark::State& state) {
    Window(static_cast<double>(state.range(0)))
        .measure(state, new CAnimKnobWithLabel(CRect(36, 337, 88, 386), nullptr, 1, 101, 52, 49,
                                               numberedStrip(101, 52, 49), 12));
}

void counter(benchmark::State& state) {
    Window(static_cast<double>(state.range(0)))
        .measure(state, new ZMTPedlNotDotCounter(CRect(193, 58, 328, 99), nullptr, 21, 27.0F,
                                                 numberedStrip(13, 27, 41), 5, 0,
                                                 numberedStrip(1, 135, 41), nullptr));
}

void lampStep(benchmark::State& state) {
    Window(static_cast<double>(state.range(0)))
        .measure(state, new ZMTIndicatorLED(CRect(34, 295, 46, 307), nullptr, 113,
                                            numberedStrip(1, 12, 12), numberedStrip(1, 12, 12)));
}

BENCHMARK(knobWithLabel)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(counter)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);
BENCHMARK(lampStep)->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

} // namespace
} // namespace pedl::bench

BENCHMARK_MAIN();
