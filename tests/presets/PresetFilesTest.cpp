#include "presets/PresetFiles.h"

#include "tests/presets/Journal.h"
#include "tests/presets/PlainEffect.h"
#include "tests/support/StoredBytes.h"
#include "tests/support/TemporaryFolder.h"

#include <array>
#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace pedl {
namespace {

using test::Journal;
using test::PlainEffect;
using test::StoredBytes;
using Order = StoredBytes::Order;

constexpr std::array kKinds{FileKind::Program, FileKind::Bank, FileKind::MidiSettings};

constexpr float middleOf(int controller) {
    return (static_cast<float>(controller) + 0.5F) / 129.0F;
}
constexpr float kChannel3 = 3.5F / 18.0F;
constexpr float kAllChannels = 17.5F / 18.0F;

StoredBytes programFile(Order order) {
    return StoredBytes(order)
        .header({.kind = 34, .records = 3, .recordBytes = 168 + 2 * 32})
        .programHead(0, "Lead")
        .value(0, kGain, 0.25F)
        .value(0, kFreqNoteScaleSwitch, 0.75F);
}

StoredBytes midiFile(unsigned kind, std::uint32_t mark) {
    return StoredBytes()
        .header({.kind = kind, .records = 1, .recordBytes = 32, .channelMark = mark})
        .link(kGain, middleOf(74), kChannel3);
}

/// The identifier as it was, everything behind it the other way round.
StoredBytes withNativeId(StoredBytes file) {
    std::ranges::copy(StoredBytes().id().view(), file.bytes().begin());
    return file;
}

class PresetFile : public testing::Test {
protected:
    PresetFile() {
        effect.startPresetSystem();
        effect.selectProgram(5);
        effect.midiMap().link(kWet, 7);
    }

    LoadResult load(FileKind kind, const StoredBytes& file,
                    OrderDecision decision = OrderDecision::AsFound) {
        test::writeText(path, test::textOf(file.view()));
        journal.lines.clear();
        return effect.files().load(kind, path, decision);
    }

    /// Everything that a file could change.
    std::string state() {
        void* chunk = nullptr;
        const VstInt32 size = effect.getChunk(&chunk, false);
        return {static_cast<const char*>(chunk), static_cast<std::size_t>(size)};
    }

    std::string nameOf(std::int32_t slot) {
        const ProgramName name = effect.bank().name(slot);
        return std::string(nameText(name));
    }

    Journal journal;
    PlainEffect effect{journal};
    test::TemporaryFolder folder;
    std::string path = folder / "file";
};

TEST_F(PresetFile, OfAProgramGoesIntoTheCurrentSlotAndIsPlayed) {
    for (const Order order : {Order::Little, Order::Big}) {
        effect.setView(&journal.view);
        ASSERT_EQ(load(FileKind::Program, programFile(order)), LoadResult::Loaded);
        effect.setView(nullptr);
        EXPECT_EQ(nameOf(5), "Lead");
        EXPECT_EQ(effect.getParameter(kGain), 0.25F);
        EXPECT_EQ(effect.getParameter(kFreqNoteScaleSwitch), 0.75F);
        EXPECT_EQ(effect.getParameter(kFilterCutoffFreq), 0.566642F) << "as in \"Default\"";
        EXPECT_EQ(journal.count("set 1 0.25"), 1);
        EXPECT_EQ(journal.count("wait 100"), 1);
        EXPECT_EQ(journal.lines.back(), "end 0");
        effect.initialiseFactoryPrograms();
    }
}

TEST_F(PresetFile, IsReadInTheOtherOrderWhenAskedThoughTheIdentifierPasses) {
    const StoredBytes swapped = withNativeId(programFile(Order::Big));
    ASSERT_EQ(load(FileKind::Program, swapped, OrderDecision::Inverted), LoadResult::Loaded);
    EXPECT_EQ(nameOf(5), "Lead");
    EXPECT_EQ(effect.getParameter(kGain), 0.25F);
}

TEST_F(PresetFile, ThatWasSavedComesBackInAnotherInstance) {
    effect.setParameter(kGain, 0.123F);
    effect.renameCurrentProgram("Mine");
    for (const FileKind kind : kKinds)
        EXPECT_FALSE(effect.files().save(kind, folder / fileType(kind).extension));
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"zmb", "zmm", "zmt"}));
    EXPECT_EQ(test::readText(folder / "zmt").substr(0, 41),
              test::textOf(
                  StoredBytes().header({.kind = 34, .records = 57, .recordBytes = 1960}).view()));

    const std::string saved = state();
    PlainEffect other(journal);
    other.startPresetSystem();
    other.selectProgram(100);
    EXPECT_EQ(other.files().load(FileKind::Program, folder / "zmt"), LoadResult::Loaded);
    EXPECT_EQ(other.getParameter(kGain), 0.123F);
    for (const FileKind kind : {FileKind::Bank, FileKind::MidiSettings})
        EXPECT_EQ(other.files().load(kind, folder / fileType(kind).extension), LoadResult::Loaded);
    EXPECT_EQ(other.currentSlot(), 5);
    void* chunk = nullptr;
    const auto size = static_cast<std::size_t>(other.getChunk(&chunk, false));
    EXPECT_TRUE(std::string(static_cast<const char*>(chunk), size) == saved);
}

TEST_F(PresetFile, OfAnotherKindOrMakerOrTooShortChangesNothingAndMakesNoNoise) {
    const std::string before = state();
    struct Row {
        FileKind kind;
        StoredBytes file;
        LoadResult result;
    };
    for (const Row& row :
         {Row{FileKind::Program, midiFile(56, 13), LoadResult::UnknownKind},
          Row{FileKind::Program, midiFile(13, 13), LoadResult::UnknownKind},
          Row{FileKind::Bank, programFile(Order::Little), LoadResult::UnknownKind},
          Row{FileKind::MidiSettings, midiFile(13, 0), LoadResult::UnknownKind},
          Row{FileKind::MidiSettings, midiFile(13, 12), LoadResult::UnknownKind},
          Row{FileKind::Program, StoredBytes().id(), LoadResult::TooShort},
          Row{FileKind::Bank, StoredBytes().id().byte(56).zeros(35), LoadResult::TooShort},
          Row{FileKind::Bank, StoredBytes().id().byte(55).zeros(140 * 24 - 1),
              LoadResult::TooShort},
          Row{FileKind::Program, StoredBytes().id().byte(33).zeros(23), LoadResult::TooShort},
          Row{FileKind::MidiSettings, StoredBytes(), LoadResult::TooShort},
          Row{FileKind::Program, StoredBytes().word(0x5A4D7047).byte(34).zeros(99),
              LoadResult::Foreign}}) {
        SCOPED_TRACE(testing::Message() << "kind " << static_cast<int>(row.kind) << ", "
                                        << row.file.size() << " bytes");
        EXPECT_EQ(load(row.kind, row.file), row.result);
        EXPECT_TRUE(journal.lines.empty());
    }
    EXPECT_TRUE(state() == before);
}

TEST_F(PresetFile, FromBeforeStreamsFillsTheValuesThatItHas) {
    constexpr int kOldValues = 40;
    const auto oldProgram = [](StoredBytes& file, const std::string& name, float value) {
        file.name(name);
        for (int i = 0; i < kOldValues; ++i)
            file.real(value);
    };
    StoredBytes program = StoredBytes().id().byte(33);
    oldProgram(program, "Old", 0.25F);
    ASSERT_EQ(load(FileKind::Program, program), LoadResult::Loaded);
    EXPECT_EQ(nameOf(5), "Old");
    EXPECT_EQ(effect.getParameter(kOldValues - 1), 0.25F);
    EXPECT_EQ(effect.getParameter(kLimiterDefeat), 1.0F) << "as in \"Default\"";

    StoredBytes bank = StoredBytes(Order::Big).id().byte(55);
    for (int slot = 0; slot < kNumPrograms; ++slot)
        oldProgram(bank, "Old " + std::to_string(slot), static_cast<float>(slot) / 140.0F);
    ASSERT_EQ(load(FileKind::Bank, bank), LoadResult::Loaded);
    EXPECT_EQ(effect.currentSlot(), 0);
    EXPECT_EQ(nameOf(139), "Old 139");
    EXPECT_EQ(effect.bank().value(70, kPower), 0.5F);
    EXPECT_EQ(effect.bank().value(139, kLimiterDefeat), 1.0F);
}

TEST_F(PresetFile, OfMidiSettingsIsKnownByItsMarkAndReplacesAllLinks) {
    for (const unsigned kind : {13U, 0U, 99U}) {
        ASSERT_EQ(load(FileKind::MidiSettings, midiFile(kind, 13)), LoadResult::Loaded) << kind;
        EXPECT_EQ(effect.midiMap().controllerOf(kGain), 74);
        EXPECT_EQ(effect.midiMap().controllerOf(kWet), MidiMap::kNone);
        EXPECT_EQ(effect.midiMap().drivenBy(7), MidiMap::kNone);
        EXPECT_EQ(effect.midiMap().channelValue(), kChannel3);
        effect.midiMap().link(kWet, 7);
    }
}

TEST_F(PresetFile, OfOlderMidiSettingsBringsAllChannels) {
    effect.setParameter(kMidiChannel, kChannel3);
    ASSERT_EQ(load(FileKind::MidiSettings, midiFile(12, 0)), LoadResult::Loaded);
    EXPECT_EQ(effect.midiMap().controllerOf(kGain), 74);
    EXPECT_EQ(effect.midiMap().channelValue(), kAllChannels);

    effect.setParameter(kMidiChannel, kChannel3);
    const StoredBytes raw = StoredBytes().id().byte(11).real(middleOf(1)).real(-0.5F);
    ASSERT_EQ(load(FileKind::MidiSettings, raw), LoadResult::Loaded);
    EXPECT_EQ(effect.midiMap().controllerOf(kPower), 1);
    EXPECT_EQ(effect.midiMap().controllerOf(kGain), MidiMap::kNone);
    EXPECT_EQ(effect.midiMap().channelValue(), kAllChannels);
}

TEST_F(PresetFile, ThatCannotBeReadOrWrittenIsSaidAndChangesNothing) {
    const std::string before = state();
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    PresetFiles& files = effect.files();
    journal.lines.clear();
    EXPECT_EQ(files.load(FileKind::Bank, folder / "missing"), LoadResult::Missing);
    EXPECT_EQ(files.load(FileKind::Bank, folder / "pipe"), LoadResult::NotAFile);
    EXPECT_EQ(files.load(FileKind::Bank, folder.path()), LoadResult::NotAFile);
    EXPECT_EQ(files.save(FileKind::Bank, folder / "pipe")->text(), "not a file");
    EXPECT_EQ(journal.lines.size(), 4U);
    EXPECT_EQ(journal.lines.front(), "line \"" + (folder / "missing") +
                                         "\" was not loaded, nothing changed (open: No such file "
                                         "or directory)");
    EXPECT_EQ(journal.lines.back(), "line \"" + (folder / "pipe") +
                                        "\" was not saved, what was there is kept (not a file)");
    EXPECT_TRUE(state() == before);
}

// Recent files

TEST_F(PresetFile, IsRememberedByFolderAndNameWhateverBecameOfIt) {
    PresetFiles& files = effect.files();
    files.load(FileKind::Bank, folder / "lead.zmb");
    files.load(FileKind::Program, "/lead.zmt");
    files.load(FileKind::Bank, "in the working folder.zmb");
    EXPECT_EQ(effect.recentFiles().folder(), "/");
    EXPECT_EQ(effect.recentFiles().name(FileKind::Bank), "lead.zmb");
    EXPECT_EQ(effect.recentFiles().name(FileKind::Program), "lead.zmt");
    EXPECT_EQ(effect.recentFiles().name(FileKind::MidiSettings), "");

    ASSERT_TRUE(effect.keepRecentFiles());
    EXPECT_EQ(test::textOf(journal.settings.values.at("CurrDir")), std::string("/\0\0", 3));
    EXPECT_EQ(journal.settings.values.at("CurrPreset").size(), 8U * 2U + 1U);
    PlainEffect other(journal);
    other.startPresetSystem();
    EXPECT_EQ(other.recentFiles().folder(), "/");
    EXPECT_EQ(other.recentFiles().name(FileKind::Bank), "lead.zmb");
}

} // namespace
} // namespace pedl
