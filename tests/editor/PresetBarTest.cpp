// The preset bar: programs, files, user defaults, memories, MIDI links, hints, manual, web page.

#include "controls/CZMParamDisplay.h"
#include "controls/CZMRockerSwitch.h"
#include "controls/CZMTHitHintLabel2.h"
#include "controls/CZMTTextEdit.h"
#include "presets/SettingsText.h"
#include "tests/editor/EditorWindow.h"
#include "tests/support/TemporaryFolder.h"
#include "vstgui/lib/controls/coptionmenu.h"
#include "vstgui/lib/platform/common/filedialogbackend.h"

namespace pedl::test {
namespace {

using namespace VSTGUI;

/// Answers at the next look with what the test has chosen.
class ScriptedDialog : public FileDialogBackend {
public:
    static std::unique_ptr<FileDialogBackend> make(int32_t index) {
        return index == 0 ? std::make_unique<ScriptedDialog>() : nullptr;
    }
    bool start(const FileDialogRequest& request) override {
        asked = request;
        return true;
    }
    State poll(std::vector<std::string>& paths) override {
        paths = chosen;
        return State::Ended;
    }
    inline static FileDialogRequest asked;
    inline static std::vector<std::string> chosen;
};

constexpr CPoint kOutside(5, 5);
constexpr const char* kIdleText = "zmt-sonics.example";

class PresetBar : public EditorWindow {
protected:
    PresetBar() { setFileDialogFactory(ScriptedDialog::make); }
    ~PresetBar() override { setFileDialogFactory(nullptr); }

    FileDialogRequest choose(std::int32_t tag, const std::vector<std::string>& paths,
                             std::int32_t buttons = kLButton) {
        ScriptedDialog::chosen = paths;
        click(middleOf(tag), buttons);
        idle();
        idle();
        return ScriptedDialog::asked;
    }
    void doubleClick(std::int32_t tag, std::int32_t modifiers = 0) {
        click(middleOf(tag), kLButton | kDoubleClick | modifiers);
    }
    void step(std::int32_t tag, CCoord direction) {
        const CPoint middle = middleOf<CZMRockerSwitch>(tag);
        click({middle.x + 5 * direction, middle.y});
        idle(200); // the rocker is at rest again
    }
    std::string line() { return find<CZMTHitHintLabel2>(kHintLabel)->getText(); }
    std::string lineOver(CPoint where) {
        hover(where);
        idle();
        return line();
    }
    bool isKept(const char* name) { return journal.settings.values.contains(name); }

    const TemporaryFolder folder;
};

TEST_F(PresetBar, ArrowsAndMenuSelectPrograms) {
    step(kPresetPrevNext, -1);
    EXPECT_EQ(effect.currentSlot(), 0);
    EXPECT_EQ(heard(), "wait 100, update display, begin 0, end 0, update display") << "sent again";
    step(kPresetPrevNext, 1);
    click(middleOf(kPresetMenu));
    EXPECT_TRUE(find<COptionMenu>(kPresetMenu)->isCheckEntry(1)) << "where the arrows have gone";
    window().keyDown(VKEY_DOWN);
    window().keyDown(VKEY_RETURN);
    idle();
    EXPECT_EQ(std::string(find<CZMTTextEdit>(kPresetNameEdit)->getText()), "Envelope Filter");
}

TEST_F(PresetBar, FilesGoThroughDialogsAndProblemsAreTold) {
    FileDialogRequest asked = choose(kPresetSave, {folder / "mine.zmt"});
    EXPECT_EQ(asked.title + asked.saveName, "Save presetDefault.zmt");
    effect.setParameter(kGain, 0.9F);
    asked = choose(kPresetLoad, {folder / "mine.zmt"});
    EXPECT_EQ(asked.title + asked.directory, "Load preset" + folder.path() + "/");
    EXPECT_EQ(effect.getParameter(kGain), 0.5F);
    EXPECT_EQ(choose(kPresetSave, {}).saveName, "mine.zmt");
    EXPECT_EQ(choose(kBankLoad, {}, kRButton).title, "Load bank (endian-reversed)");
    EXPECT_EQ(choose(kMidiSettingsLoad, {}, kRButton | kShift).title, "Load MIDI settings");

    writeText(folder / "foreign.zmt", "something else altogether");
    heard();
    choose(kPresetLoad, {folder / "foreign.zmt"});
    EXPECT_NE(heard().find("line "), std::string::npos) << "in the diagnostic stream";
    hover(kOutside);
    idle(4900);
    EXPECT_NE(line().find("foreign.zmt"), std::string::npos);
    idle(100);
    EXPECT_EQ(line().find("foreign.zmt"), std::string::npos);
    choose(kBankSave, {folder / "missing/mine.zmb"});
    EXPECT_NE(line().find("not saved"), std::string::npos);
}

TEST_F(PresetBar, DefaultsAndMemoriesAreTheUsers) {
    for (const auto& [tag, name] : {std::pair(kBankDefault, "DefaultBank"),
                                    {kPresetDefault, "DefaultPreset"},
                                    {kMidiSettingsDefault, "DefaultMidi"}}) {
        click(middleOf(tag));
        EXPECT_FALSE(isKept(name)) << "a single click is none";
        doubleClick(tag);
        EXPECT_TRUE(isKept(name));
        doubleClick(tag, kControl);
        EXPECT_FALSE(isKept(name));
    }
    click(middleOf(kSlotBSave));
    effect.setParameter(kGain, 0.9F);
    click(middleOf(kSlotARecall));
    EXPECT_EQ(valueOf(kGain), 0.9F) << "nothing is kept there";
    click(middleOf(kSlotBRecall));
    EXPECT_EQ(valueOf(kGain), 0.5F);
}

TEST_F(PresetBar, LearningAndForgettingExcludeEachOther) {
    click(middleOf(kMidiLearn));
    click(middleOf(kMidiForget));
    EXPECT_FALSE(effect.learnState().isLearning());
    EXPECT_EQ(valueOf(kMidiLearn), 0.0F);
    EXPECT_TRUE(effect.learnState().isForgetting());
    effect.midiMap().link(kGain, 7);
    doubleClick(kMidiSettingsDefault);
    step(kMidiChannel, -1);
    EXPECT_EQ(effect.midiMap().channel(), 16);
    EXPECT_EQ(valueOf<CZMParamDisplay>(kMidiChannel), effect.getParameter(kMidiChannel));
    doubleClick(kMidiReset, kControl);
    EXPECT_EQ(effect.midiMap().controllerOf(kGain), 7) << "as the user keeps it";
    EXPECT_EQ(effect.midiMap().channel(), MidiMap::kAllChannels);
    doubleClick(kMidiReset);
    EXPECT_EQ(effect.midiMap().controllerOf(kGain), MidiMap::kNone);
}

TEST_F(PresetBar, HintsFollowTheMouseAndRestAfterItHasLeft) {
    EXPECT_EQ(lineOver(middleOf(kPower)), "Bypasses all audio processes: OFF");
    lineOver(kOutside);
    idle(1470);
    EXPECT_EQ(line(), "");
    idle(20);
    EXPECT_EQ(line(), kIdleText);

    lineOver(middleOf(kGain));
    window().mouseDown(middleOf(kGain).x, middleOf(kGain).y);
    window().mouseMove(300, 530, kLButton);
    idle();
    EXPECT_EQ(line(), "Input. Sets the input level") << "a drag keeps its hint";
    click(middleOf(kHintsOnOff));
    EXPECT_EQ(lineOver(middleOf(kPower)), kIdleText);
}

TEST_F(PresetBar, NamesTheControllerUnderTheMouse) {
    effect.midiMap().link(kFilterCutoffFreq, 74);
    const auto entryOver = [&](CPoint where) {
        lineOver(where);
        return std::floor(valueOf(kMidiCCDisplay) * 131.0F);
    };
    EXPECT_EQ(entryOver(middleOf(kFilterFreqSlider)), 74);
    EXPECT_EQ(entryOver(middleOf(kGain)), 128) << "not assigned";
    EXPECT_EQ(entryOver(middleOf(kAbout)), 129) << "not available";
    EXPECT_EQ(entryOver(kOutside), 130) << "nothing";

    VstMidiEvent event{};
    event.type = kVstMidiType;
    event.midiData[0] = static_cast<char>(0xB0);
    VstEvents events{1, 0, {reinterpret_cast<VstEvent*>(&event)}};
    effect.processEvents(&events);
    idle();
    EXPECT_EQ(valueOf(kMidiActivityLED), 1.0F);
    idle(151);
    EXPECT_EQ(valueOf(kMidiActivityLED), 0.0F);
}

TEST_F(PresetBar, ManualAndWebPageOpenOrSayWhyNot) {
    const std::int32_t views = editor.getFrame()->getNbViews();
    click(middleOf(kManual));
    EXPECT_EQ(editor.getFrame()->getNbViews(), views + 1) << "a notice: there is no manual";
    EXPECT_TRUE(opener.opened.empty());
    click({260, 272});
    EXPECT_EQ(editor.getFrame()->getNbViews(), views) << "a press takes it away";
    writeText(folder / "manual.html", "");
    journal.settings.write("ManualPath", settingsTextBytes(folder / "manual.html"));
    click(middleOf(kManual));
    idle(); // the link is shown once the mouse is over the line
    hover(middleOf(kHintLabel));
    idle();
    doubleClick(kHintLabel);
    EXPECT_EQ(opener.opened,
              (std::vector<std::string>{folder / "manual.html", "https://zmt-sonics.example/"}));
}

} // namespace
} // namespace pedl::test
