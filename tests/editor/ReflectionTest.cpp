// The controls show what the effect holds, whoever changed it and on whichever thread.

#include "controls/CZMTTextEdit.h"
#include "controls/CpedlFilterRadioSlider.h"
#include "controls/ZMTIndicatorLED.h"
#include "controls/ZMTMonoAndBistableButton.h"
#include "foundation/vst24/VendorCalls.h"
#include "tests/editor/EditorWindow.h"
#include "vstgui/lib/controls/coptionmenu.h"

#include <thread>

namespace pedl::test {
namespace {

using namespace VSTGUI;

class Reflection : public EditorWindow {
protected:
    static void elsewhere(const std::function<void()>& change) { std::thread(change).join(); }
    /// The name in its field, and that of the menu's mark.
    std::string shownNames() {
        std::string names = find<CZMTTextEdit>(kPresetNameEdit)->getText();
        auto* const menu = find<COptionMenu>(kPresetMenu);
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
            if (menu->isCheckEntry(slot))
                names += std::string(", ") + menu->getEntry(slot)->getTitle();
        return names;
    }
};

TEST_F(Reflection, AppliesChangesAtOnceAndThoseOfOtherThreadsAtTheNextIdle) {
    effect.setParameter(kFilterReso, 0.9F);
    EXPECT_EQ(valueOf(kFilterReso), 0.9F);
    elsewhere([&] {
        effect.setParameter(kFilterReso, 0.2F);
        effect.setParameter(kModulationOnOff, 1.0F);
        effect.setParameter(kPower, 0.7F);
        effect.setParameter(kMidiChannel, 0.3F);
    });
    EXPECT_EQ(valueOf(kFilterReso), 0.9F);
    EXPECT_NE(find(kGainByLFODefeat), nullptr);
    editor.idle();
    EXPECT_EQ(valueOf(kFilterReso), 0.2F);
    EXPECT_EQ(find(kGainByLFODefeat), nullptr);
    EXPECT_EQ(valueOf<ZMTIndicatorLED>(kPowerLED), 1.0F);
    EXPECT_EQ(valueOf(kMidiChannel), effect.getParameter(kMidiChannel));
    effect.setParameter(kFreqNoteScaleSwitch, 1.0F);
    EXPECT_EQ(find<CpedlFilterRadioSlider>(kFilterFreqSlider)->overlaySelector, 1);
}

TEST_F(Reflection, LevelsAreThoseInForce) {
    effect.setParameter(kDryWetGlobal, 1.0F);
    effect.setParameter(kDry, 0.8F);
    effect.selectProgram(1);
    effect.setParameter(kDryWetGlobal, 1.0F);
    editor.close();
    open();
    EXPECT_EQ(valueOf(kDry), 0.8F) << "the bank's";
}

TEST_F(Reflection, AProgramBringsItsFreezeAlong) {
    auto* const button = find<ZMTMonoAndBistableButton>(kFreez);
    effect.setParameter(kFreez, 1.0F);
    effect.selectProgram(3);
    effect.setParameter(kFreezMode, 1.0F);
    effect.selectProgram(0);
    EXPECT_EQ(effect.getParameter(kFreez), 1.0F);
    EXPECT_EQ(button->getValue(), 1.0F);
    elsewhere([&] { effect.selectProgram(3); });
    effect.setParameter(kFreez, 0.0F);
    elsewhere([&] { effect.selectProgram(0); });
    idle();
    EXPECT_EQ(effect.getParameter(kFreez), 1.0F);
    effect.setParameter(kFreezMode, 0.0F); // a change of the mode alone
    EXPECT_EQ(effect.getParameter(kFreez), 0.0F);
}

TEST_F(Reflection, NamesFollowALoadedBankAndAHost) {
    effect.selectProgram(7);
    char seventh[] = "Seventh";
    effect.setProgramName(seventh);
    const std::vector<std::byte> bank = effect.stored(FileKind::Bank);
    effect.selectProgram(0);
    for (const bool isElsewhere : {false, true}) {
        effect.vendorSpecific(kVendorCallId, kVendorCallSelectSlot, nullptr, 1.0F);
        EXPECT_EQ(shownNames(), "Auto Wah, Auto Wah");
        const std::function<void()> load = [&] {
            effect.load(FileKind::Bank, bank, OrderDecision::AsFound);
        };
        isElsewhere ? elsewhere(load) : load();
        idle();
        EXPECT_EQ(shownNames(), "Seventh, Seventh");
    }
}

} // namespace
} // namespace pedl::test
