// What drawing costs: a whole frame, one knob with its label, the first text after loading.

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/iplatformbitmap.h"

#include <array>
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace pedl::bench {

using namespace VSTGUI;

namespace {

constexpr int kFrameWidth = 521;
constexpr int kFrameHeight = 544;
constexpr int kKnobSide = 40;
constexpr int kKnobFrames = 60;
constexpr int kNumKnobs = 70;
constexpr int kKnobsPerRow = 10;
constexpr int kKnobDistance = 52;
constexpr int kRowDistance = 76;

enum Resource : int32_t { kBackground = 1, kKnobStrip = 2, kKnobStripWithoutTwofold = 3 };

/// The skin's pictures: an opaque background and a strip of discs with soft edges.
class Skin {
public:
    Skin() {
        for (int scale = 1; scale <= 2; ++scale) {
            backgrounds_[index(scale)].assign(pixels(kFrameWidth, kFrameHeight, scale),
                                              0xFF303438U);
            strips_[index(scale)] = strip(kKnobSide * scale);
        }
    }

    bool find(int32_t id, int32_t scale, ResourceImage& image) const {
        if (id == kBackground)
            image = {backgrounds_[index(scale)].data(), kFrameWidth * scale, kFrameHeight * scale};
        else
            image = {strips_[index(scale)].data(), kKnobSide * scale,
                     kKnobSide * kKnobFrames * scale};
        return scale == 1 || id != kKnobStripWithoutTwofold;
    }

private:
    static std::size_t index(int scale) { return static_cast<std::size_t>(scale - 1); }
    static std::size_t pixels(int width, int height, int scale) {
        return static_cast<std::size_t>(width * scale) * static_cast<std::size_t>(height * scale);
    }

    static std::vector<uint32_t> strip(int side) {
        std::vector<uint32_t> disc;
        const double radius = side / 2.0 - 1.0;
        for (int y = 0; y < side * kKnobFrames; ++y)
            for (int x = 0; x < side; ++x) {
                const double dx = x + 0.5 - side / 2.0;
                const double dy = y % side + 0.5 - side / 2.0;
                const double distance = dx * dx + dy * dy - radius * radius;
                disc.push_back(distance > side ? 0 : distance > 0 ? 0x80404040U : 0xFF8090A0U);
            }
        return disc;
    }

    std::array<std::vector<uint32_t>, 2> backgrounds_;
    std::array<std::vector<uint32_t>, 2> strips_;
};

bool lookUp(const CResourceDescription& resource, int32_t scale, ResourceImage& image) {
    static const Skin skin;
    return skin.find(resource.u.id, scale, image);
}

/// An editor's picture without its views.
class Editor {
public:
    Editor(double scale, Resource strip)
        : surface_(kFrameWidth, kFrameHeight, scale), background_(resource(kBackground)),
          strip_(resource(strip)) {}

    PixmanSurface& surface() { return surface_; }

    void drawAll() {
        CDrawContext* context = createPixmanContext(surface_);
        background_.draw(context, CRect(0, 0, kFrameWidth, kFrameHeight));
        for (int knob = 0; knob < kNumKnobs; ++knob)
            drawKnob(context, knob);
        context->forget();
    }

    void redrawKnob(int knob) {
        CDrawContext* context = createPixmanContext(surface_);
        const CRect place = placeOf(knob);
        context->setClipRect(place);
        background_.draw(context, place, place.getTopLeft());
        drawKnob(context, knob);
        context->forget();
    }

private:
    static CBitmap resource(int32_t id) {
        setResourceLookup(lookUp);
        return CBitmap(CResourceDescription(id));
    }

    static CRect placeOf(int knob) {
        const CPoint corner(knob % kKnobsPerRow * kKnobDistance,
                            knob / kKnobsPerRow * kRowDistance);
        return CRect(corner, CPoint(kKnobDistance, kKnobSide + 16));
    }

    void drawKnob(CDrawContext* context, int knob) {
        const CRect place = placeOf(knob);
        CRect image = place;
        image.offset(6, 0);
        image.setSize(CPoint(kKnobSide, kKnobSide));
        frame_ = (frame_ + 1) % kKnobFrames;
        strip_.draw(context, image, CPoint(0, frame_ * kKnobSide));
        CRect label = place;
        label.top += kKnobSide;
        context->setFont(kNormalFontSmall);
        context->drawString(kLabels[static_cast<std::size_t>(knob) % kLabels.size()], label);
    }

    static constexpr std::array<const char*, 7> kLabels{
        "Cutoff", "Resonance", "1250 Hz", "LFO Depth", "-12.5 dB", "Envelope", "Attack 3 ms"};

    PixmanSurface surface_;
    CBitmap background_;
    CBitmap strip_;
    int frame_ = 0;
};

void wholeFrame(benchmark::State& state) {
    Editor editor(static_cast<double>(state.range(0)), static_cast<Resource>(state.range(1)));
    editor.drawAll();
    for (auto _ : state)
        editor.drawAll();
}
BENCHMARK(wholeFrame)
    ->ArgNames({"scale", "strip"})
    ->Args({1, kKnobStrip})
    ->Args({2, kKnobStrip})
    ->Args({2, kKnobStripWithoutTwofold})
    ->Unit(benchmark::kMicrosecond);

void oneKnobWithItsLabel(benchmark::State& state) {
    Editor editor(static_cast<double>(state.range(0)), kKnobStrip);
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

} // namespace

} // namespace pedl::bench

BENCHMARK_MAIN();
