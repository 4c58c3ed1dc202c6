// What the editor costs: opening and closing its window, an idle pass while sound moves the lamps
// and while nothing happens; the memory that windows hold. Off screen, and on a display where there
// is one.

#include "bench/HostWindow.h"
#include "bench/ResidentMemory.h"
#include "editor/ZMTpedlFilterEditor.h"
#include "foundation/platform/NoDiagnostics.h"
#include "foundation/platform/NoSettings.h"
#include "foundation/platform/StandingClock.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cmath>
#include <memory>
#include <vector>

namespace pedl::bench {

using namespace VSTGUI;

namespace {

constexpr std::size_t kBlockFrames = 960; // 20 ms, as often as a host idles

VstIntPtr VSTCALLBACK answerHost(AEffect* /*effect*/, VstInt32 opcode, VstInt32 /*index*/,
                                 VstIntPtr /*value*/, void* /*ptr*/, float /*opt*/) {
    constexpr VstInt32 kVstVersion = 2400;
    return opcode == audioMasterVersion ? kVstVersion : 0;
}

/// An effect and its editor.
class Instance {
public:
    explicit Instance(int64_t scale) : scale_(static_cast<double>(scale)) {
        effect_.setSampleRate(48000.0F);
        effect_.resume();
        effect_.setParameter(kDryDefeat, 1.0F);
        effect_.setParameter(kLFOFreq, 0.3F);
    }

    /// To the first complete picture.
    bool open(void* window) {
        if (!editor_.open(window))
            return false;
        frame().setScaleFactor(scale_);
        editor_.idle();
        return true;
    }
    void close() { editor_.close(); }
    void idle() { editor_.idle(); }
    CFrame& frame() { return *editor_.getFrame(); }

    /// A beat whose levels light every lamp.
    void play() {
        const double level = 0.1 + 0.9 * std::abs(std::sin(0.4 * ++blocks_));
        for (std::size_t i = 0; i < kBlockFrames; ++i)
            samples_[0][i] = samples_[1][i] =
                static_cast<float>(level * std::sin(0.05 * static_cast<double>(i)));
        float* channels[]{samples_[0].data(), samples_[1].data()};
        effect_.processReplacing(channels, channels, kBlockFrames);
    }

private:
    StandingClock time_;
    NoDiagnostics diagnostics_;
    NoSettings settings_;
    ZMTpedlFilterEffect effect_{answerHost, {time_, diagnostics_, settings_}};
    ZMTpedlFilterEditor editor_{&effect_};
    const double scale_;
    std::array<std::array<float, kBlockFrames>, 2> samples_{};
    double blocks_ = 0;
};

/// Where windows open: without a display, or in a host's window on one.
class Desk {
public:
    Desk(bool isOffscreen, int64_t scale) {
        if (isOffscreen) {
            setPlatformFrameFactory(OffscreenFrame::create);
            return;
        }
        const auto size = [scale](double length) {
            return static_cast<std::uint16_t>(length * static_cast<double>(scale));
        };
        host_ = std::make_unique<HostWindow>(size(kFaceWidth), size(kFaceHeight));
    }
    ~Desk() { setPlatformFrameFactory(nullptr); }
    Desk(const Desk&) = delete;
    Desk& operator=(const Desk&) = delete;

    [[nodiscard]] bool isThere() const { return !host_ || host_->isOpen(); }
    void* window() { return host_ ? host_->handle() : this; }

private:
    std::unique_ptr<HostWindow> host_;
};

/// Memory of four windows beside what one frame's picture needs, and when all are closed again. The
/// first benchmark: the heap has nothing to give yet.
void memoryHeld(benchmark::State& state) {
    Desk desk(true, state.range(0));
    const auto scale = static_cast<double>(state.range(0));
    const double pictures = 4 * kFaceWidth * kFaceHeight * 4e-6 * scale * scale;
    std::vector<std::unique_ptr<Instance>> instances;
    for (int i = 0; i < 4; ++i)
        instances.push_back(std::make_unique<Instance>(state.range(0)));
    for (auto _ : state) {
        const double before = residentMegabytes();
        for (const auto& instance : instances)
            instance->open(desk.window());
        state.counters["openMB"] = residentMegabytes() - before - pictures;
        for (const auto& instance : instances)
            instance->close();
        state.counters["closedMB"] = residentMegabytes() - before;
    }
}

template <bool kIsOffscreen> void openFirst(benchmark::State& state) {
    Desk desk(kIsOffscreen, state.range(0));
    Instance instance(state.range(0));
    if (!desk.isThere())
        return state.SkipWithError("no display");
    for (auto _ : state) {
        instance.open(desk.window());
        state.PauseTiming();
        instance.close(); // the last window: what was unpacked for it goes
        state.ResumeTiming();
    }
}

template <bool kIsOffscreen> void openAgain(benchmark::State& state) {
    Desk desk(kIsOffscreen, state.range(0));
    Instance other(state.range(0)), instance(state.range(0));
    if (!desk.isThere() || !other.open(desk.window()))
        return state.SkipWithError("no display");
    for (auto _ : state) {
        instance.open(desk.window());
        state.PauseTiming();
        instance.close();
        state.ResumeTiming();
    }
}

void close(benchmark::State& state) {
    Desk desk(true, state.range(0));
    Instance other(state.range(0)), instance(state.range(0));
    other.open(desk.window());
    for (auto _ : state) {
        state.PauseTiming();
        instance.open(desk.window());
        state.ResumeTiming();
        instance.close();
    }
}

template <bool kIsOffscreen> void idleWithLamps(benchmark::State& state) {
    Desk desk(kIsOffscreen, state.range(0));
    Instance instance(state.range(0));
    if (!desk.isThere() || !instance.open(desk.window()))
        return state.SkipWithError("no display");
    for (auto _ : state) {
        state.PauseTiming();
        instance.play();
        state.ResumeTiming();
        instance.idle();
    }
}

template <bool kIsOffscreen> void idleAtRest(benchmark::State& state) {
    Desk desk(kIsOffscreen, 1);
    Instance instance(1);
    if (!desk.isThere() || !instance.open(desk.window()))
        return state.SkipWithError("no display");
    constexpr int kUntilAllIsShown = 1000;
    for (int turn = 0; turn < kUntilAllIsShown; ++turn)
        instance.idle();
    for (auto _ : state)
        instance.idle();
    if (kIsOffscreen && !OffscreenFrame::of(instance.frame()).lastPainted().empty())
        state.SkipWithError("something was drawn");
}

void bothScales(benchmark::internal::Benchmark* bench) {
    bench->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMillisecond);
}

BENCHMARK(memoryHeld)->Apply(bothScales)->Iterations(1);
BENCHMARK(openFirst<true>)->Name("openFirst")->Apply(bothScales);
BENCHMARK(openFirst<false>)->Name("x11OpenFirst")->Apply(bothScales);
BENCHMARK(openAgain<true>)->Name("openAgain")->Apply(bothScales);
BENCHMARK(openAgain<false>)->Name("x11OpenAgain")->Apply(bothScales);
BENCHMARK(close)->Apply(bothScales);
BENCHMARK(idleWithLamps<true>)->Name("idleWithLamps")->Apply(bothScales);
BENCHMARK(idleWithLamps<false>)->Name("x11IdleWithLamps")->Apply(bothScales);
BENCHMARK(idleAtRest<true>)->Name("idleAtRest")->Unit(benchmark::kMicrosecond);
BENCHMARK(idleAtRest<false>)->Name("x11IdleAtRest")->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace pedl::bench

BENCHMARK_MAIN();
