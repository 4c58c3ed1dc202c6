#include "tests/support/toolkit/ToolkitEditor.h"

#include "vstgui/lib/cfileselector.h"
#include "vstgui/lib/controls/cbuttons.h"
#include "vstgui/lib/controls/cknob.h"
#include "vstgui/lib/controls/cmoviebitmap.h"
#include "vstgui/lib/controls/cswitch.h"

#include <array>
#include <cstdio>
#include <memory>
#include <utility>

namespace pedl::test {

using namespace VSTGUI;

namespace {

constexpr CColor kTextColor(225, 225, 225, 255);
constexpr CColor kAmber(250, 178, 66, 255);
constexpr CColor kFieldColor(24, 24, 24, 255);
constexpr CColor kFrameColor(105, 105, 105, 255);
constexpr CCoord kMargin = 14;
constexpr CCoord kTextHeight = 14;

enum Tag : std::int32_t { kPlain, kChooseFile };

struct Forget {
    void operator()(CBaseObject* object) const { object->forget(); }
};
using Bitmap = std::unique_ptr<CBitmap, Forget>;

Bitmap bitmap(Picture picture) {
    return Bitmap(newBitmap(picture));
}

CRect placeOf(Picture picture, CCoord left, CCoord top) {
    const PictureSize size = sizeOf(picture);
    return CRect(CPoint(left, top), CPoint(size.width, size.height));
}

CRect area(CCoord left, CCoord top, CCoord width, CCoord height = kTextHeight) {
    return CRect(CPoint(left, top), CPoint(width, height));
}

/// Hears the end of a file dialog; the dialog keeps it alive.
class NobodyWhoAsked : public CBaseObject {};

} // namespace

ToolkitEditor::ToolkitEditor(void* newEffect) : AEffGUIEditor(newEffect) {
    rect = {0, 0, kHeight, kWidth};
}

ToolkitEditor::~ToolkitEditor() {
    ToolkitEditor::close();
}

bool ToolkitEditor::open(void* window) {
    AEffGUIEditor::open(window);
    useSampleSkin();
    frame = new CFrame(CRect(0, 0, kWidth, kHeight), window, this);
    if (!frame->getPlatformFrame()) {
        close();
        return false;
    }
    frame->setBackground(bitmap(Picture::Background).get());
    CTextLabel* const title = addText(area(kMargin, 6, 300, 26), "Controls of the toolkit");
    title->setFont(kNormalFontVeryBig);
    addText(area(307, 14, 200), "521 by 544 logical pixels", kRightText);
    addKnobs();
    addSwitches();
    addDisplays();
    addLabels();
    addFields();
    addWithAlpha();
    return true;
}

void ToolkitEditor::close() {
    programs_ = nullptr;
    name_ = nullptr;
    splash_ = nullptr;
    if (CFrame* const closing = std::exchange(frame, nullptr))
        closing->close();
    AEffGUIEditor::close();
}

void ToolkitEditor::valueChanged(CControl* control) {
    if (control->getTag() == kChooseFile && control->getValue() == control->getMax())
        askForFile("");
}

void ToolkitEditor::askForFile(const std::string& folder) {
    CNewFileSelector* const selector = CNewFileSelector::create(frame);
    selector->setTitle("Load a bank");
    selector->setInitialDirectory(folder.c_str());
    auto* const nobody = new NobodyWhoAsked;
    selector->run(nobody);
    nobody->forget();
    selector->forget();
}

void ToolkitEditor::addKnobs() {
    addTitle(40, "CAnimKnob, 61 pictures");
    const Bitmap strip = bitmap(Picture::KnobStrip), body = bitmap(Picture::KnobBody);
    const Bitmap handle = bitmap(Picture::KnobHandle);
    const PictureSize size = sizeOf(Picture::KnobStrip);
    constexpr CCoord kTop = 57, kDistance = 62;
    constexpr std::array<double, 8> kValues{0.0, 0.25, 0.5, 0.75, 1.0, 0.0, 0.5, 1.0};
    CCoord left = 22;
    for (std::size_t i = 0; i < kValues.size(); ++i, left += kDistance) {
        const bool isStrip = i < 5;
        CKnob* const knob = isStrip ? new CAnimKnob(placeOf(Picture::KnobStrip, left, kTop), this,
                                                    kPlain, size.count, size.height, strip.get())
                                    : new CKnob(placeOf(Picture::KnobBody, left, kTop), this,
                                                kPlain, body.get(), handle.get(), CPoint(0, 0));
        addControl(knob, kValues[i]);
        std::array<char, 8> text{};
        std::snprintf(text.data(), text.size(), "%.2f", kValues[i]);
        addText(area(left - 10, kTop + 42, 60), text.data(), kCenterText);
    }
    addText(area(22 + 5 * kDistance, 40, 160), "CKnob, body and handle")->setFontColor(kAmber);
}

void ToolkitEditor::addSwitches() {
    addTitle(130, "Switches, buttons and lamps");
    const auto strip = [](Picture picture) { return bitmap(picture); };
    constexpr CCoord kFirst = 122, kRow = 23;
    CCoord top = 147;
    addText(area(kMargin, top + 2, 104), "CHorizontalSwitch");
    const PictureSize across = sizeOf(Picture::HorizontalSwitch);
    for (int i = 0; i < 3; ++i)
        addControl(new CHorizontalSwitch(placeOf(Picture::HorizontalSwitch, kFirst + 66 * i, top),
                                         this, kPlain, across.count, across.height, across.count,
                                         strip(Picture::HorizontalSwitch).get()),
                   i / 2.0);
    top += kRow;
    addText(area(kMargin, top + 2, 104), "CRockerSwitch");
    for (int i = 0; i < 3; ++i)
        addControl(new CRockerSwitch(placeOf(Picture::RockerSwitch, kFirst + 66 * i, top), this,
                                     kPlain, sizeOf(Picture::RockerSwitch).height,
                                     strip(Picture::RockerSwitch).get()),
                   i / 2.0);
    top += kRow;
    addText(area(kMargin, top + 2, 104), "COnOffButton");
    for (int i = 0; i < 2; ++i)
        addControl(new COnOffButton(placeOf(Picture::OnOffButton, kFirst + 46 * i, top), this,
                                    kPlain, strip(Picture::OnOffButton).get()),
                   i);
    addText(area(kFirst + 106, top + 2, 70), "CKickButton");
    for (int i = 0; i < 2; ++i)
        addControl(new CKickButton(placeOf(Picture::KickButton, kFirst + 180 + 46 * i, top), this,
                                   kPlain, sizeOf(Picture::KickButton).height,
                                   strip(Picture::KickButton).get()),
                   i);
    addText(area(326, 149, 84), "CVerticalSwitch");
    const PictureSize down = sizeOf(Picture::VerticalSwitch);
    for (int i = 0; i < 3; ++i)
        addControl(new CVerticalSwitch(placeOf(Picture::VerticalSwitch, 412 + 38 * i, 132), this,
                                       kPlain, down.count, down.height, down.count,
                                       strip(Picture::VerticalSwitch).get()),
                   i / 2.0);
    addText(area(409, 178, 98), "CMovieBitmap", kCenterText);
    const PictureSize lamp = sizeOf(Picture::Lamp);
    for (int i = 0; i < 5; ++i)
        addControl(new CMovieBitmap(placeOf(Picture::Lamp, 412 + 19 * i, 194), this, kPlain,
                                    lamp.count, lamp.height, strip(Picture::Lamp).get()),
                   i / 4.0);
}

void ToolkitEditor::addDisplays() {
    addTitle(226, "CParamDisplay");
    struct Row {
        const char* caption;
        std::int32_t style;
        bool hasBitmap;
    };
    constexpr std::array<Row, 6> kRows{{{"with a frame", 0, false},
                                        {"kNoFrame", kNoFrame, false},
                                        {"kShadowText", kShadowText, false},
                                        {"kNoTextStyle", kNoTextStyle, false},
                                        {"bitmap", 0, true},
                                        {"own text", 0, true}}};
    CCoord left = kMargin;
    for (const Row& row : kRows) {
        const Bitmap back = bitmap(Picture::Display);
        auto* const display = new CParamDisplay(placeOf(Picture::Display, left, 242),
                                                row.hasBitmap ? back.get() : nullptr, row.style);
        display->setBackColor(kFieldColor);
        display->setFrameColor(kFrameColor);
        display->setFontColor(kTextColor);
        display->setShadowColor(CColor(150, 70, 0, 255));
        if (&row == &kRows.back())
            display->setValueToStringProc([](float value, char text[256], void*) {
                return std::snprintf(text, 256, "%.1f kHz", static_cast<double>(value) * 20) > 0;
            });
        addControl(display, 0.32);
        addText(area(left, 263, 76), row.caption, kCenterText);
        left += 83;
    }
}

void ToolkitEditor::addLabels() {
    addTitle(292, "CTextLabel");
    struct Size {
        CFontRef font;
        const char* text;
        CCoord height;
    };
    CCoord top = 308;
    for (const Size& row :
         {Size{kNormalFontVeryBig, "Very big, 18", 22}, Size{kNormalFontBig, "Big, 14", 17},
          Size{kNormalFont, "Normal, 12", 15}, Size{kNormalFontSmall, "Small, 11", 14},
          Size{kNormalFontSmaller, "Smaller, 10", 13},
          Size{kNormalFontVerySmall, "Very small, 9", 12}}) {
        addText(area(kMargin, top, 150, row.height), row.text)->setFont(row.font);
        top += row.height;
    }
    constexpr std::array<std::pair<std::int32_t, const char*>, 6> kStyles{
        {{kNormalFace, "Regular Resonance"},
         {kBoldFace, "Bold Resonance"},
         {kItalicFace, "Italic Resonance"},
         {kBoldFace | kItalicFace, "Bold italic Resonance"},
         {kUnderlineFace, "Underlined Resonance"},
         {kStrikethroughFace, "Struck through"}}};
    top = 308;
    for (const auto& [style, text] : kStyles) {
        const std::unique_ptr<CFontDesc, Forget> font(new CFontDesc("Arial", 12, style));
        addText(area(172, top, 150, 15), text)->setFont(font.get());
        top += 15.5;
    }
    constexpr std::array<std::pair<CHoriTxtAlign, const char*>, 3> kAligns{
        {{kLeftText, "kLeftText"}, {kCenterText, "kCenterText"}, {kRightText, "kRightText"}}};
    top = 308;
    for (const auto& [align, text] : kAligns) {
        CTextLabel* const label = addText(area(340, top, 167, 15), text, align);
        label->setTransparency(false);
        label->setBackColor(kFieldColor);
        label->setFrameColor(kFrameColor);
        label->setTextInset(CPoint(4, 0));
        top += 17;
    }
    addText(area(340, top, 167), "without antialiasing")->setAntialias(false);
    addText(area(340, top + 14, 167), "Größe µ · Ελληνικά");
    addText(area(340, top + 28, 167), "Кириллица · −12 dB ½ …");
}

void ToolkitEditor::addFields() {
    addTitle(414, "CTextEdit, COptionMenu, CNewFileSelector, CSplashScreen");
    const auto dress = [](CParamDisplay* display) {
        display->setBackColor(kFieldColor);
        display->setFrameColor(kFrameColor);
        display->setFontColor(kTextColor);
        display->setHoriAlign(kLeftText);
        display->setTextInset(CPoint(5, 0));
    };
    addText(area(kMargin, 434, 60), "closed");
    auto* const closed = new CTextEdit(area(72, 432, 176, 18), this, kPlain, "Slow Sweep");
    dress(closed);
    addControl(closed);
    addText(area(kMargin, 458, 60), "open");
    name_ = new CTextEdit(area(72, 456, 176, 18), this, kPlain, "Glass Bells Über");
    dress(name_);
    addControl(name_);
    addText(area(268, 434, 60), "programs");
    programs_ =
        new COptionMenu(area(330, 432, 177, 18), this, kPlain, nullptr, nullptr, kCheckStyle);
    dress(programs_);
    programs_->setNbItemsPerColumn(kProgramsPerColumn);
    constexpr std::array<const char*, 7> kNames{"Slow Sweep", "Glass Bells",  "Wah Pedal",
                                                "Formant",    "Tape Flutter", "Sub Ring",
                                                "Late Night"};
    for (int i = 0; i < kNumPrograms; ++i) {
        std::array<char, 32> title{};
        std::snprintf(title.data(), title.size(), "%03d %s", i + 1,
                      kNames[static_cast<std::size_t>(i) % kNames.size()]);
        programs_->addEntry(title.data());
    }
    frame->addView(programs_);
    programs_->setValue(30);
    addText(area(268, 458, 60), "file …");
    addControl(new CKickButton(placeOf(Picture::KickButton, 330, 456), this, kChooseFile,
                               sizeOf(Picture::KickButton).height,
                               bitmap(Picture::KickButton).get()));
    addText(area(388, 458, 50), "picture");
    const CRect button = area(440, 456, 67, 18);
    CTextLabel* const back = addText(button, "press", kCenterText);
    back->setTransparency(false);
    back->setBackColor(kFieldColor);
    back->setFrameColor(kFrameColor);
    const PictureSize picture = sizeOf(Picture::Splash);
    splash_ = new CSplashScreen(button, this, kPlain, bitmap(Picture::Splash).get(),
                                area((kWidth - picture.width) / 2, (kHeight - picture.height) / 2,
                                     picture.width, picture.height));
    frame->addView(splash_);
}

void ToolkitEditor::addWithAlpha() {
    const PictureSize size = sizeOf(Picture::KnobStrip);
    addText(area(kMargin, 500, 80), "alpha value");
    CCoord left = 100;
    for (const float alpha : {1.0F, 0.75F, 0.5F, 0.25F}) {
        CControl* const knob =
            new CAnimKnob(placeOf(Picture::KnobStrip, left, 486), this, kPlain, size.count,
                          size.height, bitmap(Picture::KnobStrip).get());
        knob->setAlphaValue(alpha);
        addControl(knob, 0.7);
        std::array<char, 8> text{};
        std::snprintf(text.data(), text.size(), "%.2f", static_cast<double>(alpha));
        addText(area(left + 44, 500, 40), text.data());
        left += 102;
    }
}

CTextLabel* ToolkitEditor::addText(const CRect& place, const char* text, CHoriTxtAlign align) {
    auto* const label = new CTextLabel(place, text);
    label->setTransparency(true);
    label->setFont(kNormalFontSmall);
    label->setFontColor(kTextColor);
    label->setHoriAlign(align);
    label->setMouseEnabled(false);
    frame->addView(label);
    return label;
}

void ToolkitEditor::addTitle(CCoord top, const char* text) {
    addText(area(kMargin, top, 400), text)->setFontColor(kAmber);
}

void ToolkitEditor::addControl(CControl* control, double normalised) {
    if (control->getMax() > control->getMin() && normalised > 0.0)
        control->setValueNormalized(static_cast<float>(normalised));
    frame->addView(control);
}

} // namespace pedl::test
