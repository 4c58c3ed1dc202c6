// The preset bar: programs, files, user defaults, memories, MIDI links, manual and web page.

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
    std::string shownName() { return find<CZMTTextEdit>(kPresetNameEdit)->getText(); }
    std::string line() { return find<CZMTHitHintLabel2>(kHintLabel)->getText(); }
    bool isKept(const char* name) { return journal.settings.values.contains(name); }

    const TemporaryFolder folder;
};

TEST_F(PresetBar, ArrowsAndMenuSelectPrograms) {
    step(kPresetPrevNext, -1);
    EXPECT_EQ(effect.currentSlot(), 0);
    EXPECT_EQ(heard(), "wait 100, update display, begin 0, end 0, update display") << "sent again";
    step(kPresetPrevNext, 1);
    EXPECT_EQ(effect.currentSlot(), 1);
    EXPECT_EQ(shownName(), "Auto Wah");
    click(middleOf(kPresetMenu));
    EXPECT_TRUE(find<COptionMenu>(kPresetMenu)->isCheckEntry(1)) << "where the arrows have gone";
    window().keyDown(VKEY_DOWN);
    window().keyDown(VKEY_RETURN);
    idle();
    EXPECT_EQ(effect.currentSlot(), 2);
    EXPECT_EQ(shownName(), "Envelope Filter");
}

TEST_F(PresetBar, FilesGoThroughDialogs) {
    const std::string path = folder / "mine.zmt";
    FileDialogRequest asked = choose(kPresetSave, {path});
    EXPECT_EQ(asked.title, "Save preset");
    EXPECT_EQ(asked.kind, FileDialogRequest::Kind::SaveFile);
    EXPECT_EQ(asked.types.at(0).extension, "zmt");
    EXPECT_EQ(asked.saveName, "Default.zmt");
    ASSERT_EQ(folder.names(), std::vector<std::string>{"mine.zmt"});
    effect.setParameter(kGain, 0.9F);
    asked = choose(kPresetLoad, {path});
    EXPECT_EQ(asked.title, "Load preset");
    EXPECT_EQ(asked.directory, folder.path() + "/");
    EXPECT_EQ(effect.getParameter(kGain), 0.5F);
    EXPECT_EQ(choose(kPresetSave, {}).saveName, "mine.zmt");

    EXPECT_EQ(choose(kPresetLoad, {path}, kRButton).title, "Load preset (endian-reversed)");
    EXPECT_EQ(choose(kPresetLoad, {}, kRButton | kShift).title, "Load preset");
    EXPECT_EQ(choose(kBankLoad, {}, kRButton).title, "Load bank (endian-reversed)");
    EXPECT_EQ(choose(kBankSave, {folder / "mine.zmb"}).title, "Save bank");
    EXPECT_EQ(choose(kMidiSettingsSave, {folder / "mine.zmm"}).title, "Save midi settings as");
    EXPECT_EQ(folder.names().size(), 3U);
}

TEST_F(PresetBar, WhatWentWrongWithAFileStandsInTheHintLineForFiveSeconds) {
    writeText(folder / "foreign.zmt", "something else altogether");
    heard();
    choose(kPresetLoad, {folder / "foreign.zmt"});
    idle();
    EXPECT_NE(line().find("foreign.zmt"), std::string::npos);
    EXPECT_NE(heard().find("line "), std::string::npos) << "and in the diagnostic stream";
    hover({5, 5});
    idle(4900);
    EXPECT_NE(line().find("foreign.zmt"), std::string::npos);
    idle(100);
    EXPECT_EQ(line().find("foreign.zmt"), std::string::npos);
    choose(kBankSave, {folder / "missing/mine.zmb"});
    idle();
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
    click(middleOf(kSlotASave));
    effect.setParameter(kGain, 0.9F);
    click(middleOf(kSlotBSave));
    click(middleOf(kSlotARecall));
    EXPECT_EQ(effect.getParameter(kGain), 0.5F);
    click(middleOf(kSlotBRecall));
    EXPECT_EQ(effect.getParameter(kGain), 0.9F);
    EXPECT_EQ(valueOf(kGain), 0.9F);
}

TEST_F(PresetBar, LearningAndForgettingExcludeEachOther) {
    click(middleOf(kMidiLearn));
    EXPECT_TRUE(effect.learnState().isLearning());
    click(middleOf(kMidiForget));
    EXPECT_FALSE(effect.learnState().isLearning());
    EXPECT_EQ(valueOf(kMidiLearn), 0.0F);
    EXPECT_TRUE(effect.learnState().isForgetting());
    effect.midiMap().link(kGain, 7);
    window().wheel(middleOf(kGain).x, middleOf(kGain).y, 1.0F);
    EXPECT_EQ(effect.midiMap().controllerOf(kGain), MidiMap::kNone);
    EXPECT_EQ(valueOf(kMidiForget), 0.0F);
    effect.startLearn();
    editor.close();
    open();
    EXPECT_FALSE(effect.learnState().isLearning()) << "a window opens with both off";

    effect.midiMap().link(kGain, 7);
    doubleClick(kMidiSettingsDefault);
    effect.midiMap().link(kDry, 8);
    step(kMidiChannel, -1);
    EXPECT_EQ(effect.midiMap().channel(), 16);
    EXPECT_EQ(valueOf<CZMParamDisplay>(kMidiChannel), effect.getParameter(kMidiChannel));
    doubleClick(kMidiReset, kControl);
    EXPECT_EQ(effect.midiMap().controllerOf(kGain), 7) << "as the user keeps it";
    EXPECT_EQ(effect.midiMap().controllerOf(kDry), MidiMap::kNone);
    EXPECT_EQ(effect.midiMap().channel(), MidiMap::kAllChannels);
    doubleClick(kMidiReset);
    EXPECT_EQ(effect.midiMap().controllerOf(kGain), MidiMap::kNone);
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
    opener.succeeds = false;
    click(middleOf(kManual));
    EXPECT_EQ(editor.getFrame()->getNbViews(), views + 1);
}

} // namespace
} // namespace pedl::test
