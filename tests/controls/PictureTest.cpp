// Which frame of its strip each control shows, and where.

#include "controls/CAnimKnob3.h"
#include "controls/CAnimKnobWithLabel.h"
#include "controls/CEcncoderKnob03.h"
#include "controls/CHorizontalSwitchWithDynamicLabel.h"
#include "controls/CLFOWaveSelector2.h"
#include "controls/CPedlInvisibleMix2.h"
#include "controls/CSaveLoadButton.h"
#include "controls/CZMKickButton.h"
#include "controls/CZMOnOffButton.h"
#include "controls/CZMRockerSwitch.h"
#include "controls/CpedlFilterRadioSlider.h"
#include "controls/CpedlLFOsyncDisplay.h"
#include "controls/ZMTIndicatorLED.h"
#include "controls/ZMTMeterLED2Colors.h"
#include "controls/ZMTMonoAndBistableButtonModulator.h"
#include "controls/ZMTOnOffButton.h"
#include "controls/ZMTPedlNotDotCounter.h"
#include "parameters/NoteDivision.h"
#include "tests/controls/Strips.h"
#include "tests/foundation/vstgui/Canvas.h"

#include <gtest/gtest.h>

namespace pedl::test {
namespace {

using namespace VSTGUI;

const CRect kSpot(4, 2, 24, 12);

/// The frame that lies at a point once the control has drawn itself.
uint32_t frameAt(CView& control, int x, int y, double scale = 1.0) {
    Canvas canvas(200, 60, scale);
    control.draw(canvas.context());
    const uint32_t pixel = canvas.at(static_cast<int>(x * scale), static_cast<int>(y * scale));
    const uint32_t frame = pixel & 0x7FFFU;
    return pixel == framePixel(frame, static_cast<uint32_t>(scale)) ? frame : ~0U;
}

template <typename Control> struct Held : std::unique_ptr<Control, Forget> {
    explicit Held(Control* control) : std::unique_ptr<Control, Forget>(control) {}
};

TEST(Picture, KnobsAndSwitchesRoundToTheNearestFrameInSinglePrecision) {
    const Bitmap frames = strip(101, 20, 10);
    const Held knob(new CAnimKnobWithLabel(kSpot, nullptr, 1, 101, 20, 10, frames.get(), 12));
    const Held plain(new CAnimKnob3(kSpot, nullptr, 1, 101, 20, 10, frames.get()));
    const Held encoder(new CEcncoderKnob03(kSpot, nullptr, 1, 101, 20, 10, frames.get()));
    struct Row {
        float value;
        uint32_t frame;
    };
    for (const Row row : {Row{0.0F, 0}, {0.004F, 0}, {0.005F, 1}, {0.5F, 50}, {1.0F, 100}})
        for (const double scale : {1.0, 2.0}) {
            knob->setValue(row.value);
            plain->setValue(row.value);
            encoder->setPosition(row.value);
            EXPECT_EQ(frameAt(*knob, 5, 3, scale), row.frame) << row.value;
            EXPECT_EQ(frameAt(*plain, 23, 11, scale), row.frame) << row.value;
            EXPECT_EQ(frameAt(*encoder, 5, 3, scale), row.frame) << row.value;
        }
    EXPECT_EQ(knob->getViewSize().bottom, 24);
    const Bitmap three = strip(3, 20, 10);
    const Held choice(
        new CHorizontalSwitchWithDynamicLabel(kSpot, nullptr, 1, 3, 10, 0, three.get(), CPoint()));
    choice->setLabelStyle(kNoTextStyle);
    choice->setMin(-1.0F);
    choice->setValue(0.2F);
    EXPECT_EQ(frameAt(*choice, 5, 3), 1U);
}

TEST(Picture, ALabelIsWrittenByTheFirstProcedureThatIsThere) {
    const Bitmap frames = strip(3, 20, 10);
    const Held knob(new CAnimKnobWithLabel(kSpot, nullptr, 7, 3, 20, 10, frames.get(), 12));
    const auto width = [&] {
        Canvas canvas(40, 40);
        knob->draw(canvas.context());
        int columns = 0;
        for (int x = 0; x < 40; ++x)
            for (int y = 13; y < 26; ++y)
                if (canvas.at(x, y) >> 24) {
                    ++columns;
                    break;
                }
        return columns;
    };
    const int number = width();
    EXPECT_GT(number, 8) << "0.00";
    knob->setValueToStringProc([](float, char* text) { text[0] = 'I'; });
    EXPECT_LT(width(), number / 2);
    knob->setTaggedValueToStringProc([](float, char*, void*, int32_t) {}, nullptr);
    EXPECT_EQ(width(), 0) << "an empty text";
    knob->setTag(-1);
    EXPECT_GT(width(), 0) << "without a tag the next one is asked";
    knob->setLabelStyle(kNoDrawStyle);
    EXPECT_EQ(width(), 0);
    EXPECT_TRUE(knob->isDirty()) << "and stays so";
}

TEST(Picture, ButtonsShowPressAndHover) {
    const Bitmap two = strip(2, 20, 10), three = strip(3, 20, 10), five = strip(5, 20, 10);
    const Held onOff(new ZMTOnOffButton(kSpot, nullptr, 1, two.get()));
    onOff->setValue(0.49F);
    EXPECT_EQ(frameAt(*onOff, 5, 3), 0U);
    onOff->setValue(0.5F);
    EXPECT_EQ(frameAt(*onOff, 5, 3), 1U);

    const Held freeze(new ZMTMonoAndBistableButtonModulator(kSpot, nullptr, 1, two.get()));
    const Held button(new ZMTMonoAndBistableButton(kSpot, nullptr, 1, two.get()));
    for (const int32_t mode : {0, 1, 2}) {
        freeze->setMode(mode);
        button->setMode(mode);
        EXPECT_EQ(frameAt(*freeze, 5, 3), 0U) << mode;
        EXPECT_EQ(frameAt(*button, 5, 3), mode == 2 ? 1U : 0U) << "a toggle starts on";
    }
    CPoint left(6, 5), right(20, 5);
    const Held toggle(new CZMOnOffButton(kSpot, nullptr, 1, three.get()));
    const Held kick(new CZMKickButton(kSpot, nullptr, 1, 10, three.get(), CPoint(), false));
    const Held file(new CSaveLoadButton(kSpot, nullptr, 1, 10, three.get()));
    const Held rocker(new CZMRockerSwitch(kSpot, nullptr, 1, 10, five.get()));
    for (CControl* const control :
         {static_cast<CControl*>(toggle.get()), static_cast<CControl*>(kick.get()),
          static_cast<CControl*>(file.get()), static_cast<CControl*>(rocker.get())}) {
        EXPECT_EQ(frameAt(*control, 5, 3), 0U);
        control->onMouseEntered(left, 0);
        EXPECT_EQ(frameAt(*control, 5, 3), 1U);
    }
    rocker->onMouseMoved(right, 0);
    EXPECT_EQ(frameAt(*rocker, 5, 3), 2U);
    rocker->setValue(-1.0F);
    EXPECT_EQ(frameAt(*rocker, 5, 3), 3U);
    toggle->setValue(1.0F);
    EXPECT_EQ(frameAt(*toggle, 5, 3), 2U);
    kick->onMouseDown(left, kLButton);
    EXPECT_EQ(frameAt(*kick, 5, 3), 2U);
    kick->onMouseExited(left, 0);
    kick->onMouseUp(left, 0);
    EXPECT_EQ(frameAt(*kick, 5, 3), 0U);
    const Bitmap four = strip(4, 20, 10);
    const Held mix(new CPedlInvisibleMix2(kSpot, nullptr, 1, four.get()));
    mix->setActive(true);
    mix->onMouseEntered(left, 0);
    EXPECT_EQ(frameAt(*mix, 5, 3), 3U);
}

TEST(Picture, CountersShowTheNumberAndTheNoteDisplayItsFraction) {
    const Bitmap digits = strip(13, 27, 41);
    const CRect place(0, 0, 135, 41);
    const auto cells = [](CControl& display) {
        std::string text;
        for (int cell = 0; cell < 5; ++cell) {
            const uint32_t frame = frameAt(display, cell * 27 + 3, 3);
            text += frame < 10 ? static_cast<char>('0' + frame) : frame == 12 ? '/' : ' ';
        }
        return text;
    };
    const Held cutoff(
        new ZMTPedlNotDotCounter(place, nullptr, 21, 27.0F, digits.get(), 5, 0, nullptr, nullptr));
    cutoff->setRange(20, 20000);
    cutoff->scaleMode = ZMTPedlOneDotCounter::kFrequency;
    cutoff->setValue(0.0F);
    EXPECT_EQ(cells(*cutoff), "00020");
    cutoff->setValue(1.0F);
    EXPECT_EQ(cells(*cutoff), "20000");
    EXPECT_EQ(cutoff->displayedNumberToValue(1e9F), 1.0F);
    cutoff->blanked = true;
    EXPECT_EQ(cells(*cutoff), "     ");

    const Held rate(new ZMTPedlOneDotCounter(place, nullptr, 8, 27.0F, digits.get(), 5, 2, 1,
                                             nullptr, nullptr, true));
    rate->setDisplayedNumber(1.25F);
    EXPECT_EQ(cells(*rate), " 0 13") << "the point lies over the third cell from the right";
    EXPECT_EQ(frameAt(*rate, 2 * 27 + 3, 3), 11U);

    const Held note(
        new CpedlLFOsyncDisplay(place, nullptr, 9, 27.0F, digits.get(), nullptr, nullptr));
    for (std::size_t i = 0; i < kNoteDivisions.size(); ++i) {
        note->setValue(static_cast<float>(i) / 31.0F);
        const std::string shown = cells(*note);
        EXPECT_EQ(shown[1] - '0', kNoteDivisions[i].numerator) << i;
        EXPECT_EQ(std::atoi(shown.c_str() + 3), kNoteDivisions[i].denominator) << i;
    }
    note->blanked = true;
    EXPECT_EQ(cells(*note), "  /  ");
}

TEST(Picture, LampsFadeByTheValue) {
    const Bitmap lit = strip(1, 20, 10), clear(new CBitmap(20, 10));
    const auto alphaAt = [](CControl* lamp, float value) {
        const Held held(lamp);
        lamp->setValue(value);
        Canvas canvas(40, 40);
        lamp->draw(canvas.context());
        return static_cast<double>(canvas.at(6, 5) >> 24) / 255.0;
    };
    const auto meter = [&](CBitmap* first, CBitmap* second) {
        return new ZMTMeterLED2Colors(kSpot, nullptr, 1, first, second, nullptr);
    };
    EXPECT_NEAR(alphaAt(new ZMTIndicatorLED(kSpot, nullptr, 1, lit.get(), nullptr), 0.3F), 0.3,
                0.01);
    EXPECT_NEAR(alphaAt(meter(lit.get(), clear.get()), 0.5F), 0.706, 0.01);
    EXPECT_NEAR(alphaAt(meter(clear.get(), lit.get()), 0.7F), 0.0, 0.01);
    EXPECT_NEAR(alphaAt(meter(clear.get(), lit.get()), 0.9F), 0.658, 0.01);
}

TEST(Picture, TheSliderKeepsItsHandleOnItsWay) {
    const Bitmap handle = strip(1, 17, 18), back = strip(2, 100, 9);
    const Held slider(new CpedlFilterRadioSlider(CRect(20, 0, 120, 18), nullptr, 1, 7, 60,
                                                 handle.get(), nullptr, CPoint()));
    const auto handleLeft = [&] {
        for (int x = 0; x < 150; ++x)
            if (frameAt(*slider, x, 3) == 0U)
                return x;
        return -1;
    };
    EXPECT_EQ(handleLeft(), 27);
    slider->setValue(0.5F);
    EXPECT_EQ(handleLeft(), 27 + 26);
    slider->setValueScale(2.0F);
    EXPECT_EQ(handleLeft(), 27 + 53);
    slider->setSecondOverlay(back.get());
    slider->setOverlaySelector(1);
    EXPECT_EQ(frameAt(*slider, 100, 12), 1U) << "over the whole view";
}

TEST(Picture, TheOpenWaveListShowsItsRows) {
    const Bitmap waves = strip(7, 40, 8), mark = strip(12, 40, 1);
    const Held list(new CLFOWaveSelector2(CRect(0, 0, 40, 8), CRect(0, 0, 40, 56), nullptr, 4,
                                          waves.get(), nullptr, mark.get(), 6, 6));
    list->setValue(5.0F / 6.0F);
    EXPECT_EQ(frameAt(*list, 3, 3), 5U);
    CPoint where(20, 4);
    list->onMouseDown(where, kRButton);
    EXPECT_EQ(frameAt(*list, 3, 27), 3U) << "the strip itself";
    EXPECT_EQ(frameAt(*list, 3, 43), 3U) << "and the mark on the sixth row";
    list->looseFocus();
    EXPECT_EQ(frameAt(*list, 3, 27), ~0U);
}

} // namespace
} // namespace pedl::test
