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

constexpr float kChannel3 = 3.5F / 18.0F;

/// Settings that note in the journal what is asked of them.
class NotedSettings final : public test::MemorySettings {
public:
    explicit NotedSettings(Journal& journal) : journal_(journal) {}
    std::optional<std::vector<std::byte>> read(std::string_view name) override {
        journal_.note("read ", name);
        return MemorySettings::read(name);
    }

private:
    Journal& journal_;
};

class UserDefaultsOfAnInstance : public testing::Test {
protected:
    void keep(const char* name, const StoredBytes& bytes) {
        settings.values[name] = {bytes.view().begin(), bytes.view().end()};
    }

    Journal journal;
    NotedSettings settings{journal};
    PlainEffect effect{journal, settings};
    UserDefaults& defaults = effect.userDefaults();
};

TEST_F(UserDefaultsOfAnInstance, ComeInOrderWithTheFirstProgramPlayedBetween) {
    keep("DefaultBank", StoredBytes()
                            .header({.records = 2, .slot = 7, .recordBytes = 168 + 32})
                            .programHead(0, "My first")
                            .value(0, kGain, 0.25F));
    keep(
        "DefaultPreset",
        StoredBytes().header({.kind = 34, .records = 1, .recordBytes = 32}).value(3, kPower, 1.0F));
    keep("DefaultMidi", StoredBytes()
                            .header({.kind = 13, .records = 1, .recordBytes = 32})
                            .link(kWet, 0.5F, kChannel3));
    journal.lines.clear();
    effect.startPresetSystem();

    std::vector<std::string> steps;
    for (const std::string& line : journal.lines)
        if (line.starts_with("read ") || line.starts_with("wait ") || line.starts_with("set 149"))
            steps.push_back(line);
    EXPECT_EQ(steps, (std::vector<std::string>{
                         "read DefaultBank", "wait 100", "wait 100", "read DefaultPreset",
                         "wait 100", "set 149 1", "read DefaultMidi", "set 149 0.194444",
                         "read CurrDir", "read CurrPreset", "read CurrBank", "read CurrMidi"}));
    EXPECT_EQ(effect.currentSlot(), 0);
    EXPECT_EQ(nameText(effect.bank().name(0)), "My first");
    EXPECT_EQ(effect.getParameter(kGain), 0.25F);
    EXPECT_EQ(effect.getParameter(kPower), 1.0F);
    EXPECT_EQ(effect.midiMap().controllerOf(kWet), 64);
    effect.storeSnapshot(9);
    EXPECT_EQ(nameText(effect.bank().name(9)), "Default") << "the snapshot is the factory's";
}

TEST_F(UserDefaultsOfAnInstance, AreWhatTheFactoryMadeWhereNothingUsableIsKept) {
    keep("DefaultBank", StoredBytes().word(0x12345678).byte(56).zeros(100));
    keep("DefaultPreset", StoredBytes().byte(1));
    keep("DefaultMidi", StoredBytes().id().byte(34).zeros(36));
    effect.startPresetSystem();
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        EXPECT_EQ(effect.bank().record(slot).normalised, factoryProgram(slot).normalised);
    EXPECT_EQ(effect.midiMap().channel(), MidiMap::kAllChannels);
}

TEST_F(UserDefaultsOfAnInstance, AreSavedForTheNextOneUntilReset) {
    effect.startPresetSystem();
    effect.setParameter(kGain, 0.7F);
    effect.renameCurrentProgram("Mine");
    effect.midiMap().link(kWet, 7);
    for (const FileKind kind : {FileKind::Bank, FileKind::Program, FileKind::MidiSettings})
        EXPECT_TRUE(defaults.save(kind));

    PlainEffect next(journal, settings);
    next.startPresetSystem();
    EXPECT_EQ(nameText(next.bank().name(0)), "Mine");
    EXPECT_EQ(next.getParameter(kGain), 0.7F);
    EXPECT_EQ(next.midiMap().controllerOf(kWet), 7);

    for (const FileKind kind : {FileKind::Bank, FileKind::Program, FileKind::MidiSettings})
        EXPECT_TRUE(defaults.reset(kind));
    PlainEffect last(journal, settings);
    last.startPresetSystem();
    EXPECT_EQ(nameText(last.bank().name(0)), "Default");
    EXPECT_EQ(last.getParameter(kGain), 0.5F);
    EXPECT_EQ(last.midiMap().controllerOf(kWet), MidiMap::kNone);
}

TEST_F(UserDefaultsOfAnInstance, MemoriesGiveTheCurrentProgramBackExactly) {
    effect.startPresetSystem();
    effect.selectProgram(12);
    effect.setParameter(kGain, 0.123456F);
    EXPECT_EQ(defaults.recall(Memory::B), LoadResult::Missing);
    ASSERT_TRUE(defaults.store(Memory::A));
    const ProgramRecord stored = effect.bank().record(12);
    effect.renameCurrentProgram("Other");
    effect.setParameter(kGain, 0.9F);
    ASSERT_TRUE(defaults.store(Memory::B));
    EXPECT_EQ(defaults.recall(Memory::A), LoadResult::Loaded);
    EXPECT_EQ(effect.bank().record(12).name, stored.name);
    EXPECT_EQ(effect.bank().record(12).normalised, stored.normalised);
    EXPECT_EQ(settings.values.at("MemoA").size(), 2001U);

    effect.selectProgram(13); // a memory belongs to no slot
    EXPECT_EQ(defaults.recall(Memory::B), LoadResult::Loaded);
    EXPECT_EQ(nameText(effect.bank().name(13)), "Other");
}

TEST_F(UserDefaultsOfAnInstance, SayWhenTheyCannotBeKept) {
    settings.isFull = true;
    EXPECT_FALSE(defaults.store(Memory::A));
    EXPECT_FALSE(defaults.save(FileKind::Bank));
    EXPECT_FALSE(effect.keepRecentFiles());
}

TEST_F(UserDefaultsOfAnInstance, KnowTheManualWhereThePathIsNotTooLong) {
    EXPECT_EQ(defaults.manualPath(), std::nullopt);
    for (const std::size_t length : {std::size_t{1}, std::size_t{1024}}) {
        const std::string path(length, 'm');
        settings.values["ManualPath"] = settingsTextBytes(path);
        EXPECT_EQ(defaults.manualPath(), path);
    }
    settings.values["ManualPath"] = settingsTextBytes(std::string(1025, 'm'));
    EXPECT_EQ(defaults.manualPath(), std::nullopt);
    settings.values["ManualPath"] = settingsTextBytes("");
    EXPECT_EQ(defaults.manualPath(), std::nullopt);
}

} // namespace
} // namespace pedl
