#include "presets/UserDefaults.h"

#include "presets/SettingsText.h"
#include "tests/presets/Journal.h"
#include "tests/presets/PlainEffect.h"
#include "tests/support/StoredBytes.h"

#include <gtest/gtest.h>
#include <string>

namespace pedl {
namespace {

using test::Journal;
using test::PlainEffect;
using test::StoredBytes;

constexpr std::array kKinds{FileKind::Bank, FileKind::Program, FileKind::MidiSettings};

class UserDefaultsOfAnInstance : public testing::Test {
protected:
    void keep(const char* name, const StoredBytes& bytes) {
        journal.settings.values[name] = {bytes.view().begin(), bytes.view().end()};
    }

    Journal journal;
    PlainEffect effect{journal};
    UserDefaults& defaults = effect.userDefaults();
};

TEST_F(UserDefaultsOfAnInstance, ComeInOrderWithTheFirstProgramPlayedBetween) {
    keep("DefaultBank", StoredBytes()
                            .header({.records = 2, .slot = 130, .recordBytes = 168 + 32})
                            .programHead(0, "My first")
                            .value(0, kGain, 0.25F));
    keep("DefaultPreset",
         StoredBytes().header({.kind = 34, .records = 1, .recordBytes = 32}).value(3, kGain, 1.0F));
    keep("DefaultMidi", StoredBytes()
                            .header({.kind = 13, .records = 1, .recordBytes = 32})
                            .link(kWet, 0.5F, 3.5F / 18.0F));
    journal.lines.clear();
    effect.startPresetSystem();

    std::vector<std::string> steps;
    for (const std::string& line : journal.lines)
        if (line.starts_with("wait ") || line.starts_with("set 1 ") || line.starts_with("set 149 "))
            steps.push_back(line);
    // The bank's own current program first, then the first one, alone and with the user's values
    EXPECT_EQ(steps,
              (std::vector<std::string>{"set 1 0.5", "wait 100", "set 1 0.25", "wait 100",
                                        "set 1 1", "wait 100", "set 149 1", "set 149 0.194444"}));
    EXPECT_EQ(effect.currentSlot(), 0);
    EXPECT_EQ(effect.nameOf(0), "My first");
    EXPECT_EQ(effect.midiMap().controllerOf(kWet), 64);
    effect.storeSnapshot(9);
    EXPECT_EQ(effect.nameOf(9), "Default") << "the snapshot is the factory's";
}

TEST_F(UserDefaultsOfAnInstance, AreSavedUnderTheirNamesUntilReset) {
    effect.startPresetSystem();
    for (const FileKind kind : kKinds) {
        EXPECT_TRUE(defaults.save(kind));
        const char* const name = kind == FileKind::Bank      ? "DefaultBank"
                                 : kind == FileKind::Program ? "DefaultPreset"
                                                             : "DefaultMidi";
        EXPECT_TRUE(journal.settings.values.at(name) == effect.stored(kind));
        EXPECT_TRUE(defaults.reset(kind));
    }
    EXPECT_TRUE(journal.settings.values.empty());
    journal.settings.isFull = true;
    EXPECT_FALSE(defaults.save(FileKind::Bank) || effect.keepRecentFiles());
}

TEST_F(UserDefaultsOfAnInstance, MemoriesGiveTheCurrentProgramBackWhateverItsSlot) {
    effect.startPresetSystem();
    effect.selectProgram(12);
    effect.setParameter(kGain, 0.123456F);
    EXPECT_EQ(defaults.recall(Memory::B), LoadResult::Missing);
    ASSERT_TRUE(defaults.store(Memory::A));
    const std::vector<std::byte> stored = effect.stored(FileKind::Program);
    effect.renameCurrentProgram("Other");
    ASSERT_TRUE(defaults.store(Memory::B));
    effect.selectProgram(13);
    EXPECT_EQ(defaults.recall(Memory::A), LoadResult::Loaded);
    EXPECT_TRUE(effect.stored(FileKind::Program) == stored);
    EXPECT_EQ(defaults.recall(Memory::B), LoadResult::Loaded);
    EXPECT_EQ(effect.nameOf(13), "Other");
    EXPECT_EQ(journal.settings.values.at("MemoA").size(), 2001U);
}

TEST_F(UserDefaultsOfAnInstance, KnowTheManualWhereThePathIsNotTooLong) {
    EXPECT_EQ(defaults.manualPath(), std::nullopt);
    for (const std::size_t length : {0U, 1U, 1024U, 1025U}) {
        const std::string path(length, 'm');
        journal.settings.values["ManualPath"] = settingsTextBytes(path);
        EXPECT_EQ(defaults.manualPath().value_or("none"),
                  length == 0 || length > 1024 ? "none" : path);
    }
}

} // namespace
} // namespace pedl
