// What a musician does with the window in an hour, as one story, at both scales.

#include "tests/support/EventList.h"
#include "tests/support/OpenEditor.h"
#include "tests/support/TemporaryFolder.h"
#include "vstgui/lib/platform/common/filedialogbackend.h"

#include <cmath>

namespace pedl {
namespace {

using namespace test;
using namespace VSTGUI;

/// The user chooses the same file in every dialog, at once.
class SureUser : public FileDialogBackend {
public:
    static inline std::string file;

    bool start(const FileDialogRequest& /*request*/) override { return true; }
    State poll(std::vector<std::string>& paths) override {
        paths = {file};
        return State::Ended;
    }
};

class UserSession : public testing::TestWithParam<double> {
protected:
    UserSession() {
        setFileDialogFactory([](std::int32_t) -> std::unique_ptr<FileDialogBackend> {
            return std::make_unique<SureUser>();
        });
        SureUser::file = folder_ / "mine.zmt";
    }
    ~UserSession() override {
        setFileDialogFactory(nullptr);
        EXPECT_TRUE(log_.isBalanced());
        EXPECT_EQ(log_.valuesOutsideRange(), 0);
    }

    /// Every control of a parameter that is in the window has the effect's value.
    void expectAllShown(OpenEditor& instance) {
        for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
            const CControl* const control = instance.control(parameter);
            if (!control)
                continue;
            const bool isLevel = parameter == kDry || parameter == kWet;
            EXPECT_EQ(control->getValue(), isLevel ? instance.effect.effectiveDryWetLevel(parameter)
                                                   : instance.effect.getParameter(parameter))
                << parameter;
        }
    }
    static std::string nameOf(const ZMTpedlFilterEffect& effect) {
        const ProgramName name = effect.bank().name(effect.currentSlot());
        return std::string(nameText(name));
    }

    // The story's chapters, in this order.
    void chooseAndTurn(OpenEditor& mine);
    void renameAndKeep(OpenEditor& mine);
    void loadAndRecall(OpenEditor& mine, OpenEditor& other);
    void setATempo(OpenEditor& mine);
    void holdCloseAndOpen(OpenEditor& mine);

    const TemporaryFolder folder_;
    ManualClock clock_;
    MemorySettings settings_;
    EditLog log_;
};

/// A program from the menu, another knob, and a controller for a third.
void UserSession::chooseAndTurn(OpenEditor& mine) {
    mine.click(kPresetMenu);
    for (int entry = 0; entry < 4; ++entry)
        mine.window().keyDown(VKEY_DOWN);
    mine.window().keyDown(VKEY_RETURN);
    mine.idle();
    EXPECT_EQ(nameOf(mine.effect), "Cry Baby");
    expectAllShown(mine);
    const float resonance = mine.effect.getParameter(kFilterReso);
    mine.drag(kFilterReso, 0, 25);
    EXPECT_NEAR(mine.effect.getParameter(kFilterReso), resonance + 0.1F, 0.001F);
    mine.click(kMidiLearn);
    mine.drag(kGain, 10, 0);
    EXPECT_EQ(mine.effect.processEvents(EventList().addMidi(0xB0, 20, 100).list()), 1);
    mine.idle();
    EXPECT_EQ(mine.effect.midiMap().controllerOf(kGain), 20);
    EXPECT_EQ(mine.control(kMidiLearn)->getValue(), 0.0F);
    expectAllShown(mine);
}

/// A new name, and a file.
void UserSession::renameAndKeep(OpenEditor& mine) {
    mine.click(kPresetNameEdit);
    mine.window().keyDown(VKEY_END);
    mine.window().typeText("!");
    mine.window().keyDown(VKEY_RETURN);
    mine.idle();
    EXPECT_EQ(nameOf(mine.effect), "Cry Baby!");
    mine.click(kPresetSave);
    ASSERT_TRUE(std::filesystem::exists(SureUser::file));
}

/// The file in another instance; what was turned since comes back from A.
void UserSession::loadAndRecall(OpenEditor& mine, OpenEditor& other) {
    other.click(kPresetLoad);
    EXPECT_EQ(nameOf(other.effect), "Cry Baby!");
    EXPECT_EQ(other.effect.getParameter(kFilterReso), mine.effect.getParameter(kFilterReso));
    expectAllShown(other);

    mine.click(kSlotASave);
    mine.drag(kFilterReso, 0, -60);
    mine.click(kSlotARecall);
    EXPECT_EQ(mine.effect.getParameter(kFilterReso), other.effect.getParameter(kFilterReso));
}

/// A tempo of one's own: its digits while Alt is held over the encoder, a tenth by the wheel.
void UserSession::setATempo(OpenEditor& mine) {
    mine.click(kLFOSyncMode);
    EXPECT_EQ(mine.effect.getParameter(kLFOSyncMode), 0.5F);
    EXPECT_NE(mine.control(kLFOSynchroRate), nullptr);
    const CPoint encoder = mine.middleOf(kLFOEncoder);
    mine.window().mouseMove(encoder.x, encoder.y, kAlt);
    mine.idle(3);
    ASSERT_NE(mine.control(kTempoSetup), nullptr);
    const CRect digits = mine.control(kTempoSetup)->getViewSize();
    const float tempo = mine.effect.getParameter(kTempoSetup);
    mine.window().wheel(digits.right - 10, digits.getCenter().y, 1.0F);
    mine.idle();
    EXPECT_NEAR(mine.effect.getParameter(kTempoSetup) - tempo, 0.1F / 585.0F, 1e-6F);
    expectAllShown(mine);
}

/// Held by a toggle, closed and opened again.
void UserSession::holdCloseAndOpen(OpenEditor& mine) {
    const CRect modes = mine.control(kFreezMode)->getViewSize();
    mine.click(CPoint(modes.right - 14, modes.top + 25));
    mine.click(kFreez);
    EXPECT_EQ(mine.effect.getParameter(kFreezMode), 1.0F);
    EXPECT_EQ(mine.effect.getParameter(kFreez), 1.0F);
    mine.editor.close();
    mine.effect.setParameter(kWet, 0.25F);
    const int edits = log_.edits();
    mine.open();
    EXPECT_EQ(log_.edits(), edits) << "opening is no gesture";
    expectAllShown(mine);
    EXPECT_EQ(mine.control(kFreezStatusLED)->getValue(), 1.0F);
}

INSTANTIATE_TEST_SUITE_P(, UserSession, testing::Values(1.0, 2.0),
                         [](const auto& scale) { return scale.param == 1.0 ? "once" : "twice"; });

TEST_P(UserSession, EveryControlShowsTheEffectFromTheFirstClickToTheLastOpening) {
    OpenEditor mine(clock_, settings_, GetParam());
    expectAllShown(mine);
    chooseAndTurn(mine);
    renameAndKeep(mine);
    OpenEditor other(clock_, settings_, GetParam());
    loadAndRecall(mine, other);
    setATempo(mine);
    holdCloseAndOpen(mine);
}

} // namespace
} // namespace pedl
