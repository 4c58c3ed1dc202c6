// Draws the editor's controls in their states, with the skin, on the ground that each stands on: at
// scale 1 and below it at scale 2.
// Usage: controls-gallery FILE

#include "editor/ControlBuilder.h"
#include "editor/pictures/PictureSurroundings.h"
#include "parameters/ParameterCatalogue.h"
#include "resources/SkinResources.h"
#include "resources/SkinTable.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"
#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include "controls/CEcncoderKnob03.h"
#include "controls/ValueLabel.h"

#include <cstdio>
#include <set>
#include <string>
#include <vector>

namespace {

using namespace pedl;
using namespace VSTGUI;

constexpr double kWidth = 640;
constexpr double kHeight = 1000;
constexpr double kGap = 10;
constexpr double kLabelRoom = 16; // below a picture whose value stands there

enum class Ground { Plate, Panel, Bar };
constexpr std::array kGroundColours{CColor(233, 224, 203), CColor(27, 52, 57), CColor(38, 32, 27)};

/// How a control is shown once.
struct Look {
    float value = 0.0F;
    bool isUnderMouse = false;
    bool isOpen = false;
};

std::vector<Look> looksOf(ControlKind kind) {
    switch (kind) {
    case ControlKind::LabelledKnob:
    case ControlKind::Knob:
        return {{0.0F}, {0.35F}, {1.0F}};
    case ControlKind::Encoder:
        return {{0.0F}, {0.3F}};
    case ControlKind::LabelledSwitch:
    case ControlKind::CyclingSwitch:
        return {{0.0F}, {0.5F}, {1.0F}};
    case ControlKind::MeterLamp:
    case ControlKind::IndicatorLamp:
        return {{0.0F}, {0.3F}, {0.7F}, {0.85F}, {1.0F}};
    case ControlKind::Counter:
    case ControlKind::DotCounter:
    case ControlKind::SyncDisplay:
    case ControlKind::CutoffSlider:
        return {{14.0F / 31.0F}};
    case ControlKind::WaveSelector:
        return {{0.0F}, {0.5F, true, true}};
    case ControlKind::Rocker:
        return {{0.0F}, {0.0F, true}, {-1.0F}, {1.0F}};
    case ControlKind::RelativeMix:
        return {{0.5F}, {0.5F, true}};
    case ControlKind::FileButton:
    case ControlKind::KickButton:
    case ControlKind::ToggleButton:
        return {{0.0F}, {0.0F, true}, {1.0F}};
    case ControlKind::OnOffButton:
    case ControlKind::HoldButton:
    case ControlKind::ActivityLamp:
        return {{0.0F}, {1.0F}};
    case ControlKind::Overlay:
        return {{0.0F}};
    default: // texts and areas that only listen
        return {};
    }
}

Ground groundOf(const ControlRow& row, bool isOfBar) {
    if (isOfBar)
        return Ground::Bar;
    const bool isInPanel = row.place.bottom < 225 || row.place.top > 415; // or on glass
    return isInPanel ? Ground::Panel : Ground::Plate;
}

void writeOwnValue(float value, char* text, void* /*userData*/, std::int32_t tag) {
    const DisplayText shown = parameterText(tag, value);
    shown.view().copy(text, shown.view().size());
}

/// Fills a ground with controls from left to right, line by line.
class Page {
public:
    Page(CFrame& frame, const ControlMakings& makings) : frame_(frame), makings_(makings) {}

    void begin(Ground ground) {
        top_ += lineHeight_ + (top_ > 0 ? kGap : 0);
        auto* const area = new CViewContainer(CRect(0, top_, kWidth, kHeight));
        area->setBackgroundColor(kGroundColours[static_cast<std::size_t>(ground)]);
        frame_.addView(area);
        top_ += kGap;
        left_ = kGap;
        lineHeight_ = 0;
    }

    void add(const ControlRow& row, bool isOfBar) {
        for (const Look& look : looksOf(row.kind))
            add(row, isOfBar, look);
    }

private:
    void add(const ControlRow& row, bool isOfBar, const Look& look) {
        const double lines = look.isOpen ? 7 : 1;
        const double height = row.place.height() * lines + kLabelRoom;
        if (left_ + row.place.width() + kGap > kWidth) {
            top_ += lineHeight_;
            left_ = kGap;
            lineHeight_ = 0;
        }
        ControlRow moved = row;
        moved.place = {left_, top_, left_ + row.place.width(), top_ + row.place.height()};
        CControl* const control =
            isOfBar ? buildBarControl(moved, makings_) : buildPanelControl(moved, makings_);
        control->setValue(look.value);
        if (auto* const label = dynamic_cast<ValueTextSource*>(control))
            label->taggedValueToStringProc = writeOwnValue;
        if (auto* const encoder = dynamic_cast<CEcncoderKnob03*>(control))
            encoder->setPosition(look.value);
        frame_.addView(control);
        CPoint middle = control->getViewSize().getCenter();
        if (look.isUnderMouse)
            control->onMouseEntered(middle, 0);
        if (look.isOpen)
            control->onMouseDown(middle, kRButton);
        left_ += row.place.width() + kGap;
        lineHeight_ = std::max(lineHeight_, height);
    }

    CFrame& frame_;
    const ControlMakings& makings_;
    double left_ = kGap, top_ = 0, lineHeight_ = 0;
};

/// One control of each drawing, on its ground.
void fill(CFrame& frame, const ControlMakings& makings) {
    Page page(frame, makings);
    for (const Ground ground : {Ground::Plate, Ground::Panel, Ground::Bar}) {
        page.begin(ground);
        std::set<std::pair<ControlKind, skin::Drawing>> shown;
        const auto addRow = [&](const ControlRow& row, bool isOfBar) {
            const skin::SkinBitmap* const strip = skin::findSkinBitmap(row.bitmaps[0]);
            if (strip && groundOf(row, isOfBar) == ground &&
                shown.insert({row.kind, strip->drawing}).second)
                page.add(row, isOfBar);
        };
        for (const ControlRow& row : kPanelRows)
            addRow(row, false);
        for (const ControlRow& row : kBarRows)
            addRow(row, true);
    }
}

/// The page at one scale, copied into `picture` from row `top` on.
void draw(int scale, PixmanSurface& picture, int top) {
    PictureSurroundings surroundings;
    struct Nobody : CControlListener {
        void valueChanged(CControl* /*control*/) override {}
    } nobody;
    const EditorSurroundings none;
    const ControlMakings makings{&nobody,          &surroundings.effect, nullptr,
                                 kNormalFontSmall, kNormalFontSmall,     &none};
    auto* const frame = new CFrame(CRect(0, 0, kWidth, kHeight), &nobody, nullptr);
    frame->setScaleFactor(scale);
    fill(*frame, makings);
    OffscreenFrame& window = OffscreenFrame::of(*frame);
    for (int turns = 0; turns < 3; ++turns)
        window.turn();
    const PixmanSurface& drawn = *window.surface();
    for (int y = 0; y < drawn.heightPixels(); ++y)
        for (int x = 0; x < drawn.widthPixels(); ++x)
            picture.pixels()[(top + y) * picture.strideBytes() / 4 + x] = drawn.pixelAt(x, y);
    frame->close();
}

} // namespace

int main(int count, char** arguments) {
    setPlatformFrameFactory(OffscreenFrame::create);
    pedl::skin::useEmbeddedSkin();
    PixmanSurface picture(2 * static_cast<int>(kWidth), 3 * static_cast<int>(kHeight), 1);
    draw(1, picture, 0);
    draw(2, picture, static_cast<int>(kHeight));
    if (count == 2 && writePng(picture, arguments[1]))
        return 0;
    std::fprintf(stderr, "usage: controls-gallery FILE, which can be written to\n");
    return 1;
}
