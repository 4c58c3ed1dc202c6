// What drawing costs: a whole frame, one knob with its label, the first text after loading; the
// first two without views and through the views of a window. What an idle costs.

#include "bench/HostWindow.h"
#include "bench/NumberedStrips.h"
#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/controls/cknob.h"
#include "vstgui/lib/controls/ctextlabel.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"
#include "vstgui/plugin-bindings/aeffguieditor.h"

#include <array>
#include <benchmark/benchmark.h>
#include <memory>
#include <utility>

namespace pedl::bench {

using namespace VSTGUI;

namespace {

constexpr int kFrameWidth = 521;
constexpr int kFrameHeight = 544;
constexpr int kKnobSide = 40;
constexpr int kKnobFrames = 61;
constexpr int kNumKnobs = 70;
constexpr int kKnobsPerRow = 10;
constexpr int kKnobDistance = 52;
constexpr int kRowDistance = 76;

constexpr std::array<const char*, 7> kLabels{"Cutoff",   "Resonance", "1250 Hz",    "LFO Depth",
                                             "-12.5 dB", "Envelope",  "Attack 3 ms"};

const char* labelOf(int knob) {
    return kLabels[static_cast<std::size_t>(knob) % kLabels.size()];
}

/// A knob with its label below it.
CRect placeOf(int knob) {
    const int row = knob / kKnobsPerRow;
    const CPoint corner(knob % kKnobsPerRow * kKnobDistance, row * kRowDistance);
    return CRect(corner, CPoint(kKnobDistance, kKnobSide + 16));
}

/// An editor's picture without its views.
class Editor {
public:
    explicit Editor(double scale) : surface_(kFrameWidth, kFrameHeight, scale) {}

    PixmanSurface& surface() { return surface_; }

    void drawAll() {
        CDrawContext* context = createPixmanContext(surface_);
        background_->draw(context, CRect(0, 0, kFrameWidth, kFrameHeight));
        for (int knob = 0; knob < kNumKnobs; ++knob)
            drawKnob(context, knob);
        context->forget();
    }

    void redrawKnob(int knob) {
        CDrawContext* context = createPixmanContext(surface_);
        const CRect place = placeOf(knob);
        context->setClipRect(place);
        background_->draw(context, place, place.getTopLeft());
        drawKnob(context, knob);
        context->forget();
    }

private:
    void drawKnob(CDrawContext* context, int knob) {
        const CRect place = placeOf(knob);
        CRect image = place;
        image.offset(6, 0);
        image.setSize(CPoint(kKnobSide, kKnobSide));
        frame_ = (frame_ + 1) % kKnobFrames;
        strip_->draw(context, image, CPoint(0, frame_ * kKnobSide));
        CRect label = place;
        label.top += kKnobSide;
        context->setFont(kNormalFontSmall);
        context->drawString(labelOf(knob), label);
    }

    PixmanSurface surface_;
    CBitmap* const background_ = numberedStrip(1, kFrameWidth, kFrameHeight);
    CBitmap* const strip_ = numberedStrip(kKnobFrames, kKnobSide, kKnobSide);
    int frame_ = 0;
};

void wholeFrame(benchmark::State& state) {
    Editor editor(static_cast<double>(state.range(0)));
    editor.drawAll();
    for (auto _ : state)
        editor.drawAll();
}
BENCHMARK(wholeFrame)->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

void oneKnobWithItsLabel(benchmark::State& state) {
    Editor editor(static_cast<double>(state.range(0)));
    editor.drawAll();
    int knob = 0;
    for (auto _ : state)
        editor.redrawKnob(knob = (knob + 1) % kNumKnobs);
}
BENCHMARK(oneKnobWithItsLabel)->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

/// Nobody holds the letters in between: faces are opened and letters rasterised anew.
void firstText(benchmark::State& state) {
    for (auto _ : state) {
        PixmanSurface surface(100, 20, 1.0);
        CDrawContext* context = createPixmanContext(surface);
        context->drawString("Resonance", CRect(0, 0, 100, 20));
        context->forget();
    }
}
BENCHMARK(firstText)->Unit(benchmark::kMicrosecond);

/// An editor of 70 knobs with a label each; the benchmark is its host.
class KnobEditor : public AEffGUIEditor {
public:
    KnobEditor() : AEffGUIEditor(nullptr) {}
    ~KnobEditor() override { close(); }

    bool open(void* window) override {
        frame = new CFrame(CRect(0, 0, kFrameWidth, kFrameHeight), window, this);
        if (!frame->getPlatformFrame())
            return false;
        frame->setBackground(numberedStrip(1, kFrameWidth, kFrameHeight));
        CBitmap* const strip = numberedStrip(kKnobFrames, kKnobSide, kKnobSide);
        for (int i = 0; i < kNumKnobs; ++i)
            addKnob(i, strip);
        idle();
        return true;
    }
    void close() override {
        if (CFrame* const closing = std::exchange(frame, nullptr))
            closing->close();
    }

    /// The next position of a knob: its picture and its label change.
    void turnKnob(int index) {
        const auto place = static_cast<std::size_t>(index);
        position_ = (position_ + 1) % kKnobFrames;
        knobs_[place]->setValue(static_cast<float>(position_) / (kKnobFrames - 1));
        labels_[place]->setText(labelOf(position_));
    }

private:
    void addKnob(int index, CBitmap* strip) {
        const auto place = static_cast<std::size_t>(index);
        CRect area = placeOf(index);
        knobs_[place] =
            new CAnimKnob(CRect(area.getTopLeft() + CPoint(6, 0), CPoint(kKnobSide, kKnobSide)),
                          nullptr, index, kKnobFrames, kKnobSide, strip);
        area.top += kKnobSide;
        labels_[place] = new CTextLabel(area, labelOf(index));
        labels_[place]->setTransparency(true);
        labels_[place]->setFont(kNormalFontSmall);
        frame->addView(knobs_[place]);
        frame->addView(labels_[place]);
    }

    std::array<CAnimKnob*, kNumKnobs> knobs_{};
    std::array<CTextLabel*, kNumKnobs> labels_{};
    int position_ = 0;
};

/// The editor on a window without a display.
class OffscreenEditor : public KnobEditor {
public:
    explicit OffscreenEditor(double scale) {
        setPlatformFrameFactory(OffscreenFrame::create);
        open(this);
        frame->setScaleFactor(scale);
        idle();
    }
    ~OffscreenEditor() override {
        close();
        setPlatformFrameFactory(nullptr);
    }
    OffscreenFrame& window() { return OffscreenFrame::of(*frame); }
};

void wholeFrameOfViews(benchmark::State& state) {
    OffscreenEditor editor(static_cast<double>(state.range(0)));
    for (auto _ : state) {
        editor.getFrame()->invalid();
        editor.window().turn();
    }
}
BENCHMARK(wholeFrameOfViews)->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

void oneKnobOfViews(benchmark::State& state) {
    OffscreenEditor editor(static_cast<double>(state.range(0)));
    int knob = 0;
    for (auto _ : state) {
        editor.turnKnob(knob = (knob + 1) % kNumKnobs);
        editor.window().turn();
    }
}
BENCHMARK(oneKnobOfViews)->ArgName("scale")->Arg(1)->Arg(2)->Unit(benchmark::kMicrosecond);

void idleWithNothingToDo(benchmark::State& state) {
    OffscreenEditor editor(1.0);
    editor.idle();
    for (auto _ : state)
        editor.idle();
    if (!editor.window().lastPainted().empty())
        state.SkipWithError("something was drawn");
}
BENCHMARK(idleWithNothingToDo)->Unit(benchmark::kMicrosecond);

void x11IdleWithNothingToDo(benchmark::State& state) {
    const HostWindow host(kFrameWidth, kFrameHeight);
    KnobEditor editor;
    if (!host.isOpen() || !editor.open(host.handle())) {
        state.SkipWithError("no display");
        return;
    }
    constexpr int kUntilAllIsShown = 1000;
    for (int turn = 0; turn < kUntilAllIsShown; ++turn)
        editor.idle();
    for (auto _ : state)
        editor.idle();
}
BENCHMARK(x11IdleWithNothingToDo)->Unit(benchmark::kMicrosecond);

void x11OneKnob(benchmark::State& state) {
    const HostWindow host(kFrameWidth, kFrameHeight);
    KnobEditor editor;
    if (!host.isOpen() || !editor.open(host.handle())) {
        state.SkipWithError("no display");
        return;
    }
    int knob = 0;
    for (auto _ : state) {
        editor.turnKnob(knob = (knob + 1) % kNumKnobs);
        editor.idle();
    }
}
BENCHMARK(x11OneKnob)->Unit(benchmark::kMicrosecond);

} // namespace

} // namespace pedl::bench

BENCHMARK_MAIN();
