#include "tests/support/gallery/GalleryEditor.h"

#include "controls/CAnimKnob3.h"
#include "controls/CAnimKnobWithLabel.h"
#include "controls/CEcncoderKnob03.h"
#include "controls/CHorizontalSwitchSeq.h"
#include "controls/CHorizontalSwitchWithDynamicLabel.h"
#include "controls/CLFOWaveSelector2.h"
#include "controls/CPedlInvisibleMix2.h"
#include "controls/CSaveLoadButton.h"
#include "controls/CSplashScreenMyView.h"
#include "controls/CZMKickButton.h"
#include "controls/CZMOnOffButton.h"
#include "controls/CZMRockerSwitch.h"
#include "controls/CZMTHitHintLabel2.h"
#include "controls/CZMTParamDisplay.h"
#include "controls/CZMTTextEdit.h"
#include "controls/CpedlFilterRadioSlider.h"
#include "controls/CpedlLFOsyncDisplay.h"
#include "controls/ZMTIndicatorLED.h"
#include "controls/ZMTMeterLED2Colors.h"
#include "controls/ZMTMonoAndBistableButton.h"
#include "controls/ZMTOnOffButton.h"
#include "controls/ZMTPedlNotDotCounter.h"
#include "tests/support/gallery/NumberedStrips.h"
#include "vstgui/lib/cfileselector.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/controls/coptionmenu.h"

#include <string>
#include <utility>

namespace pedl::test {

namespace {

using namespace VSTGUI;

constexpr CColor kPaper(24, 28, 30, 255);
constexpr CColor kInk(236, 226, 196, 255);
constexpr int kNumPrograms = 140; // in the menu
enum Tag : int32_t { kPlain = 1, kChooseFile };
const CPoint kOrigin(0, 0);

/// Puts controls side by side, a kind a line with its name in front.
class Page {
public:
    explicit Page(CFrame& frame) : frame_(frame) {}

    void line(const char* name, double height) {
        top_ += height_ + 8;
        height_ = height;
        left_ = 190;
        auto* const label = new CTextLabel(CRect(6, top_, 186, top_ + 14), name);
        label->setTransparency(true);
        label->setFont(kNormalFontSmall);
        label->setHoriAlign(kLeftText);
        frame_.addView(label);
    }
    CRect next(double width) {
        const CRect place(CPoint(left_, top_), CPoint(width, height_));
        left_ += width + 10;
        return place;
    }
    template <typename Control> Control* add(Control* control, float value) {
        control->setValue(value);
        frame_.addView(control);
        return control;
    }
    static void enter(CView* view) {
        CPoint middle = view->getViewSize().getCenter();
        view->onMouseEntered(middle, 0);
    }

private:
    CFrame& frame_;
    double top_ = 0, left_ = 0, height_ = 0;
};

void addKnobsAndSwitches(Page& page) {
    page.line("CAnimKnobWithLabel, CAnimKnob3", 36);
    for (const float value : {0.0F, 0.25F, 0.5F, 1.0F}) {
        auto* const knob = page.add(new CAnimKnobWithLabel(page.next(36), nullptr, 1, 101, 36, 36,
                                                           numberedStrip(101, 36, 36), 12, kOrigin),
                                    value);
        knob->setLabelFontColor(kInk);
        page.add(new CAnimKnob3(page.next(36), nullptr, 1, 101, 36, 36, numberedStrip(101, 36, 36)),
                 value);
    }
    page.line("", 4);
    page.line("CEcncoderKnob03", 36);
    for (const float turn : {0.0F, 0.3F, 1.0F})
        page.add(new CEcncoderKnob03(page.next(36), nullptr, 1, 101, 36, 36,
                                     numberedStrip(101, 36, 36)),
                 0)
            ->setPosition(turn);
    page.line("CHorizontalSwitch...", 36);
    for (const float value : {0.0F, 0.5F, 1.0F}) {
        page.add(new CHorizontalSwitchWithDynamicLabel(page.next(48), nullptr, 1, 3, 36, 3,
                                                       numberedStrip(3, 48, 36), kOrigin),
                 value)
            ->setLabelYOffset(20);
        page.add(new CHorizontalSwitchSeq(page.next(48), nullptr, 1, 3, 36, 3,
                                          numberedStrip(3, 48, 36), kOrigin),
                 value);
    }
}

void addButtons(Page& page) {
    page.line("on/off, momentary", 20);
    for (const float value : {0.0F, 1.0F}) {
        page.add(new ZMTOnOffButton(page.next(30), nullptr, 1, numberedStrip(2, 30, 20)), value);
        page.add(new ZMTMonoAndBistableButton(page.next(30), nullptr, 1, numberedStrip(2, 30, 20)),
                 value);
    }
    for (const bool isHovered : {false, true}) {
        page.line(isHovered ? "under the mouse" : "buttons of the preset bar", 20);
        for (const float value : {0.0F, 1.0F}) {
            CControl* const controls[] = {
                new CZMOnOffButton(page.next(24), nullptr, 1, numberedStrip(3, 24, 20)),
                new CZMKickButton(page.next(24), nullptr, 1, 20, numberedStrip(3, 24, 20), kOrigin,
                                  false),
                new CSaveLoadButton(page.next(24), nullptr, 1, 20, numberedStrip(3, 24, 20)),
                new CZMRockerSwitch(page.next(24), nullptr, 1, 20, numberedStrip(5, 24, 20))};
            for (CControl* const control : controls) {
                page.add(control, value);
                if (isHovered)
                    Page::enter(control);
            }
        }
    }
    page.line("mix keys", 20);
    for (const bool isActive : {false, true}) {
        page.add(new CPedlInvisibleMix2(page.next(24), nullptr, 1, numberedStrip(4, 24, 20)), 0.5F)
            ->setActive(isActive);
        auto* const hovered = page.add(
            new CPedlInvisibleMix2(page.next(24), nullptr, 1, numberedStrip(4, 24, 20)), 0.5F);
        hovered->setActive(isActive);
        Page::enter(hovered);
    }
}

void addDisplays(Page& page) {
    CBitmap* const digits = numberedStrip(13, 27, 40);
    page.line("counters, note display", 40);
    auto* const cutoff =
        new ZMTPedlNotDotCounter(page.next(135), nullptr, 1, 27.0F, digits, 5, 0, nullptr, nullptr);
    cutoff->scaleMode = ZMTPedlOneDotCounter::kFrequency;
    page.add(cutoff, 0.6F);
    auto* const rate = new ZMTPedlOneDotCounter(page.next(135), nullptr, 1, 27.0F, digits, 5, 2, 1,
                                                nullptr, nullptr, true);
    rate->setRange(0.1F, 150.0F);
    page.add(rate, 0.5F);
    page.add(new CpedlLFOsyncDisplay(page.next(135), nullptr, 1, 27.0F, digits, nullptr, nullptr),
             14.0F / 31.0F);
    page.line("lamps", 16);
    for (const float value : {0.0F, 0.3F, 0.7F, 0.85F, 1.0F}) {
        page.add(new ZMTIndicatorLED(page.next(16), nullptr, 1, numberedStrip(1, 16, 16), nullptr),
                 value);
        page.add(new ZMTMeterLED2Colors(page.next(16), nullptr, 1, numberedStrip(1, 16, 16),
                                        numberedStrip(2, 16, 8), nullptr),
                 value);
    }
    page.line("CpedlFilterRadioSlider", 18);
    for (const float value : {0.0F, 0.5F, 1.0F})
        page.add(new CpedlFilterRadioSlider(page.next(130), nullptr, 1, 7, 106,
                                            numberedStrip(1, 17, 18), numberedStrip(1, 130, 18),
                                            kOrigin),
                 value);
}

void addTexts(Page& page, CControlListener* listener) {
    page.line("texts", 16);
    page.add(new CZMTParamDisplay(page.next(60), kInk, nullptr), 0.5F)->setTransparency(true);
    page.add(new CZMTTextEdit(page.next(120), listener, kPlain, "Glass Bells", nullptr, 0, true),
             0.0F);
    page.add(new CZMTHitHintLabel2(page.next(200), nullptr, 1, CRect(), "Sets the input level",
                                   nullptr, 0),
             0.0F)
        ->setTransparency(true);
    page.line("CLFOWaveSelector2", 12);
    for (const bool isOpen : {false, true}) {
        const CRect place = page.next(42);
        CRect list = place;
        list.bottom += 6 * 12;
        auto* const waves =
            page.add(new CLFOWaveSelector2(place, list, nullptr, 1, numberedStrip(7, 42, 12),
                                           nullptr, numberedStrip(1, 42, 12), 6, 6),
                     0.5F);
        CPoint where = place.getCenter();
        if (isOpen)
            waves->onMouseDown(where, kRButton);
    }
    page.add(new CSplashScreenMyView(page.next(140), nullptr, kOrigin, kOrigin), 0.0F)
        ->setBackground(numberedStrip(1, 140, 12));
    auto* const menu =
        new COptionMenu(page.next(90), listener, kPlain, nullptr, nullptr, kCheckStyle);
    for (int i = 1; i <= kNumPrograms; ++i)
        menu->addEntry(("Program " + std::to_string(i)).c_str());
    page.add(menu, 30.0F);
    page.add(
        new CSaveLoadButton(page.next(24), listener, kChooseFile, 12, numberedStrip(3, 24, 12)),
        0.0F);
}

} // namespace

GalleryEditor::GalleryEditor(void* newEffect) : AEffGUIEditor(newEffect) {
    rect = {0, 0, kHeight, kWidth};
}

GalleryEditor::~GalleryEditor() {
    GalleryEditor::close();
}

bool GalleryEditor::open(void* window) {
    AEffGUIEditor::open(window);
    frame = new CFrame(CRect(0, 0, kWidth, kHeight), window, this);
    if (!frame->getPlatformFrame()) {
        close();
        return false;
    }
    frame->setBackgroundColor(kPaper);
    Page page(*frame);
    addKnobsAndSwitches(page);
    addButtons(page);
    addDisplays(page);
    addTexts(page, this);
    return true;
}

void GalleryEditor::close() {
    if (CFrame* const closing = std::exchange(frame, nullptr))
        closing->close();
    AEffGUIEditor::close();
}

void GalleryEditor::valueChanged(CControl* control) {
    if (control->getTag() != kChooseFile)
        return;
    CNewFileSelector* const selector = CNewFileSelector::create(frame);
    CBaseObject* const nobody = new CBaseObject; // the dialog keeps it alive
    selector->setTitle("Load a bank");
    selector->run(nobody);
    nobody->forget();
    selector->forget();
}

} // namespace pedl::test
