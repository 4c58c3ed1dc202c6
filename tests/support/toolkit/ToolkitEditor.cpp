#include "tests/support/toolkit/ToolkitEditor.h"

#include "vstgui/lib/cfileselector.h"
#include "vstgui/lib/controls/cbuttons.h"
#include "vstgui/lib/controls/cknob.h"
#include "vstgui/lib/controls/cmoviebitmap.h"
#include "vstgui/lib/controls/csplashscreen.h"
#include "vstgui/lib/controls/cswitch.h"

#include <cstdio>
#include <memory>
#include <tuple>
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

CRect area(CCoord left, CCoord top, CCoord width, CCoord height = kTextHeight) {
    return CRect(CPoint(left, top), CPoint(width, height));
}

CRect placeOf(Picture picture, CCoord left, CCoord top) {
    return area(left, top, sizeOf(picture).width, sizeOf(picture).height);
}

/// Where a control of pictures goes, and what it shows.
struct Spot {
    CRect place;
    std::int32_t count;
    CCoord height;
    CBitmap* strip;
};

template <typename Display> Display* dressed(Display* display) {
    display->setBackColor(kFieldColor);
    display->setFrameColor(kFrameColor);
    display->setFontColor(kTextColor);
    return display;
}

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
    addText(area(kMargin, 6, 300, 26), "Controls of the toolkit")->setFont(kNormalFontVeryBig);
    addPictures();
    addDisplays();
    addLabels();
    addFields();
    return true;
}

void ToolkitEditor::close() {
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
    const std::unique_ptr<CBaseObject, Forget> nobody(new CBaseObject); // the dialog keeps it alive
    selector->run(nobody.get());
    selector->forget();
}

/// One control of a kind beside the other, each at a value of its own; its name in front.
template <typename Make>
void ToolkitEditor::addRow(const char* name, Picture picture, CCoord left, CCoord top, int count,
                           Make make) {
    addText(area(kMargin, top + 2, 104), name);
    const PictureSize size = sizeOf(picture);
    const Bitmap strip = bitmap(picture);
    for (int i = 0; i < count; ++i)
        addControl(make(Spot{placeOf(picture, left + i * (size.width + 8), top), size.count,
                             static_cast<CCoord>(size.height), strip.get()}),
                   static_cast<double>(i) / (count - 1));
}

void ToolkitEditor::addPictures() {
    addText(area(kMargin, 40, 400), "Knobs, switches, buttons and lamps")->setFontColor(kAmber);
    const Bitmap handle = bitmap(Picture::KnobHandle);
    addRow("CAnimKnob", Picture::KnobStrip, 122, 57, 8, [&](const Spot& s) {
        CControl* const knob = new CAnimKnob(s.place, this, kPlain, s.count, s.height, s.strip);
        knob->setAlphaValue(s.place.left < 300 ? 1.0F : 0.4F);
        return knob;
    });
    addRow("CKnob", Picture::KnobBody, 122, 100, 5, [&](const Spot& s) {
        return new CKnob(s.place, this, kPlain, s.strip,
                         s.place.left < 200 ? nullptr : handle.get());
    });
    addRow("CHorizontalSwitch", Picture::HorizontalSwitch, 122, 147, 3, [&](const Spot& s) {
        return new CHorizontalSwitch(s.place, this, kPlain, s.count, s.height, s.count, s.strip);
    });
    addRow("", Picture::VerticalSwitch, 410, 110, 3, [&](const Spot& s) {
        return new CVerticalSwitch(s.place, this, kPlain, s.count, s.height, s.count, s.strip);
    });
    addRow("CRockerSwitch", Picture::RockerSwitch, 122, 170, 3, [&](const Spot& s) {
        return new CRockerSwitch(s.place, this, kPlain, s.height, s.strip);
    });
    addRow("", Picture::Lamp, 370, 170, 5, [&](const Spot& s) {
        return new CMovieBitmap(s.place, this, kPlain, s.count, s.height, s.strip);
    });
    addRow("COnOffButton", Picture::OnOffButton, 122, 193, 2,
           [&](const Spot& s) { return new COnOffButton(s.place, this, kPlain, s.strip); });
    addRow("", Picture::KickButton, 370, 193, 2, [&](const Spot& s) {
        return new CKickButton(s.place, this, kPlain, s.height, s.strip);
    });
}

void ToolkitEditor::addDisplays() {
    addText(area(kMargin, 226, 400), "CParamDisplay")->setFontColor(kAmber);
    const Bitmap back = bitmap(Picture::Display);
    CCoord left = kMargin;
    for (const std::int32_t style : {0, +kNoFrame, +kShadowText, +kNoTextStyle, +k3DIn}) {
        auto* const display = dressed(new CParamDisplay(placeOf(Picture::Display, left, 242)));
        display->setStyle(style);
        display->setShadowColor(CColor(150, 70, 0, 255));
        if (style == k3DIn) {
            display->setBackground(back.get());
            display->setValueToStringProc([](float value, char text[256], void*) {
                return std::snprintf(text, 256, "%.1f kHz", static_cast<double>(value) * 20) > 0;
            });
        }
        addControl(display, 0.32);
        left += 83;
    }
}

void ToolkitEditor::addLabels() {
    addText(area(kMargin, 272, 400), "CTextLabel")->setFontColor(kAmber);
    CCoord top = 288;
    for (const auto& [size, style, text] :
         {std::tuple{18, +kNormalFace, "Regular Resonance"},
          {14, +kBoldFace, "Bold Resonance"},
          {12, +kItalicFace, "Italic Resonance"},
          {11, kBoldFace | kItalicFace, "Bold italic"},
          {10, +kUnderlineFace, "Underlined Größe µ · Ελληνικά"},
          {9, +kStrikethroughFace, "Struck through −12 dB ½ …"}}) {
        const std::unique_ptr<CFontDesc, Forget> font(new CFontDesc("Arial", size, style));
        addText(area(kMargin, top, 240, size + 4), text)->setFont(font.get());
        top += size + 4.5;
    }
    top = 288;
    for (const CHoriTxtAlign align : {kLeftText, kCenterText, kRightText}) {
        CTextLabel* const label = dressed(addText(area(280, top, 227, 15), "aligned", align));
        label->setTransparency(false);
        label->setTextInset(CPoint(4, 0));
        addText(area(280, top + 55, 227), "without antialiasing", align)->setAntialias(false);
        top += 17;
    }
}

void ToolkitEditor::addFields() {
    addText(area(kMargin, 414, 400), "CTextEdit, COptionMenu, CNewFileSelector, CSplashScreen")
        ->setFontColor(kAmber);
    name_ = dressed(new CTextEdit(area(kMargin, 432, 234, 18), this, kPlain, "Glass Bells Über"));
    name_->setHoriAlign(kLeftText);
    name_->setTextInset(CPoint(5, 0));
    addControl(name_);
    programs_ = dressed(
        new COptionMenu(area(268, 432, 239, 18), this, kPlain, nullptr, nullptr, kCheckStyle));
    programs_->setNbItemsPerColumn(kProgramsPerColumn);
    for (int i = 0; i < kNumPrograms; ++i)
        programs_->addEntry(("Program " + std::to_string(i + 1)).c_str());
    programs_->getEntry(1)->setEnabled(false);
    addControl(programs_);
    programs_->setValue(30);
    addText(area(kMargin, 458, 60), "file …");
    const PictureSize kick = sizeOf(Picture::KickButton);
    addControl(new CKickButton(placeOf(Picture::KickButton, 72, 456), this, kChooseFile,
                               kick.height, bitmap(Picture::KickButton).get()));
    const CRect button = area(268, 456, 239, 18);
    dressed(addText(button, "picture", kCenterText))->setTransparency(false);
    addControl(new CSplashScreen(button, this, kPlain, bitmap(Picture::Splash).get(),
                                 placeOf(Picture::Splash, 140, 212)));
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

void ToolkitEditor::addControl(CControl* control, double normalised) {
    if (control->getMax() > control->getMin() && normalised > 0.0)
        control->setValueNormalized(static_cast<float>(normalised));
    frame->addView(control);
}

} // namespace pedl::test
