// Whatever is done to them, and whatever their listener does in any call: controls stay in their
// range and the host hears the end of every edit.

#include "controls/CAbout.h"
#include "controls/CAnimKnobWithLabel.h"
#include "controls/CEcncoderKnob03.h"
#include "controls/CHorizontalSwitchSeq.h"
#include "controls/CHorizontalSwitchWithDynamicLabel.h"
#include "controls/CLFOWaveSelector2.h"
#include "controls/CPedlInvisibleMix2.h"
#include "controls/CSaveLoadButton.h"
#include "controls/CZMKickButton.h"
#include "controls/CZMOnOffButton.h"
#include "controls/CZMRockerSwitch.h"
#include "controls/CZMTTextEdit.h"
#include "controls/CpedlFilterRadioSlider.h"
#include "controls/CpedlLFOsyncDisplay.h"
#include "controls/ZMTMonoAndBistableButton.h"
#include "controls/ZMTOnOffButton.h"
#include "controls/ZMTPedlOneDotCounter.h"
#include "tests/controls/Strips.h"
#include "vstgui/lib/cframe.h"
#include "vstgui/lib/platform/offscreen/manualclock.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"

#include <gtest/gtest.h>
#include <random>

namespace pedl::test {
namespace {

using namespace VSTGUI;

constexpr int32_t kKinds = 16;
constexpr int32_t kAboutKind = 15;
constexpr int kNamedKeys = VKEY_EQUALS + 1;

CControl* makeControl(int32_t kind, CControlListener* l) {
    const double left = kind % 4 * 50, top = kind / 4 * 50.0;
    const CRect r(left, top, left + 45, top + 45), high(left, top, left + 45, top + 200);
    const Bitmap s = strip(13, 9, 9);
    const CPoint o(0, 0);
    switch (kind) {
    case 0:
        return new CAnimKnobWithLabel(r, l, 0, 13, 9, 9, s.get(), 12, o);
    case 1:
        return new CEcncoderKnob03(r, l, 1, 13, 9, 9, s.get(), o);
    case 2:
        return new CHorizontalSwitchWithDynamicLabel(r, l, 2, 3, 9, 3, s.get(), o);
    case 3:
        return new CHorizontalSwitchSeq(r, l, 3, 3, 9, 3, s.get(), o);
    case 4:
        return new CLFOWaveSelector2(r, high, l, 4, s.get(), s.get(), s.get(), 6, 6);
    case 5:
        return new ZMTOnOffButton(r, l, 5, s.get());
    case 6:
        return new ZMTMonoAndBistableButton(r, l, 6, s.get());
    case 7:
        return new CZMOnOffButton(r, l, 7, s.get());
    case 8:
        return new CZMKickButton(r, l, 8, 9, s.get(), o, false);
    case 9:
        return new CSaveLoadButton(r, l, 9, 9, s.get(), o);
    case 10:
        return new CZMRockerSwitch(r, l, 10, 9, s.get(), o);
    case 11:
        return new CPedlInvisibleMix2(r, l, 11, s.get());
    case 12:
        return new CpedlFilterRadioSlider(r, l, 12, 3, 30, s.get(), s.get(), o);
    case 13:
        return new ZMTPedlOneDotCounter(r, l, 13, 9.0F, s.get(), 5, 1, 1, s.get(), nullptr, true);
    case 14:
        return new CpedlLFOsyncDisplay(r, l, 14, 9.0F, s.get(), nullptr, nullptr);
    default:
        return new CAbout(r, l, kAboutKind, s.get(), CRect(0, 0, 200, 200), o, o, o, nullptr);
    }
}

class RandomGestures : public ::testing::Test,
                       public VSTGUIEditorInterface,
                       public CControlListener {
protected:
    void open() {
        setPlatformFrameFactory(OffscreenFrame::create);
        frame = new CFrame(CRect(0, 0, 200, 200), this, this);
        for (int32_t kind = 0; kind < kKinds; ++kind)
            frame->addView(controls[static_cast<std::size_t>(kind)] = makeControl(kind, this));
    }
    void close() {
        controls = {};
        if (CFrame* const closing = std::exchange(frame, nullptr))
            closing->close();
    }
    void TearDown() override {
        close();
        setPlatformFrameFactory(nullptr);
    }
    int below(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }

    /// Now and then a listener takes away the control that calls it, another one, or the window.
    void interfere(CControl* control) {
        const int what = mayInterfere ? below(60) : 59;
        if (what > 2 || !frame)
            return;
        if (what == 0)
            close();
        else
            remove(what == 1 ? control->getTag() : below(kKinds));
    }
    void remove(int32_t kind) {
        CControl*& control = controls[static_cast<std::size_t>(kind)];
        if (frame && control)
            frame->removeView(std::exchange(control, nullptr));
    }
    void valueChanged(CControl* control) override { interfere(control); }
    void controlBeginEdit(CControl* control) override { interfere(control); }
    void controlEndEdit(CControl* control) override { interfere(control); }
    void beginEdit(int32_t index) override { ++openEdits[static_cast<std::size_t>(index)]; }
    void endEdit(int32_t index) override { --openEdits[static_cast<std::size_t>(index)]; }

    void act() {
        OffscreenFrame& window = OffscreenFrame::of(*frame);
        const double x = below(220) - 10, y = below(220) - 10;
        const int32_t modifiers = below(4) ? 0 : below(2) ? kShift : below(2) ? kControl : kAlt;
        switch (below(9)) {
        case 0:
            held = below(4) ? kLButton : kRButton;
            window.mouseDown(x, y, held | modifiers | (below(5) ? 0 : kDoubleClick));
            break;
        case 1:
        case 2:
        case 3:
            window.mouseMove(x, y, held | modifiers);
            break;
        case 4:
            window.mouseUp(x, y, std::exchange(held, 0) & 0);
            break;
        case 5:
            window.wheel(x, y, static_cast<float>(below(7) - 3), modifiers);
            break;
        case 6:
            pressOrRelease(window,
                           static_cast<VstVirtualKey>(below(2) ? VKEY_LEFT + below(4) // the arrows
                                                      : below(2) ? VKEY_RETURN
                                                                 : below(kNamedKeys)));
            break;
        case 7:
            clock.advance(static_cast<uint64_t>(below(120)));
            [[fallthrough]];
        default:
            window.turn();
            break;
        }
    }

    void pressOrRelease(OffscreenFrame& window, VstVirtualKey key) {
        const int32_t modifiers = below(4) ? 0 : MODIFIER_SHIFT;
        if (below(2))
            window.keyDown(key, modifiers);
        else
            window.keyUp(key, modifiers);
    }

    std::mt19937 random{1};
    ManualClock clock;
    CFrame* frame = nullptr;
    std::array<CControl*, kKinds> controls{};
    std::array<int, kKinds> openEdits{};
    int32_t held = 0;
    bool mayInterfere = true;
};

TEST_F(RandomGestures, LeaveNoEditOpenAndNothingOutOfRange) {
    for (int round = 0; round < 3000; ++round) {
        SCOPED_TRACE(round);
        openEdits = {};
        held = 0;
        mayInterfere = true;
        open();
        for (int event = 0; event < 20 && frame; ++event)
            act();
        mayInterfere = false;
        if (frame && round % 2) { // all let go: timers come to rest
            OffscreenFrame::of(*frame).mouseUp(0, 0);
            clock.advance(200);
            OffscreenFrame::of(*frame).turn();
            for (int key = 0; key < kNamedKeys; ++key)
                OffscreenFrame::of(*frame).keyUp(static_cast<VstVirtualKey>(key));
            for (CControl* const control : controls) {
                if (!control || control->getTag() == 1) // an increment is no setting
                    continue;
                ASSERT_GE(control->getValue(), control->getMin()) << control->getTag();
                ASSERT_LE(control->getValue(), control->getMax()) << control->getTag();
            }
        } else {
            close(); // with whatever is going on
        }
        for (std::size_t tag = 0; tag < openEdits.size(); ++tag)
            ASSERT_LE(openEdits[tag], 0) << "an edit is open of " << tag;
        openEdits[6] = 0; // its Return key ends what it did not begin
        for (std::size_t tag = 0; tag < openEdits.size(); ++tag)
            ASSERT_EQ(openEdits[tag], 0) << "an end without a begin of " << tag;
        close();
    }
}

} // namespace
} // namespace pedl::test
