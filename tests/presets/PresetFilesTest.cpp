#include "presets/PresetFiles.h"

#include "tests/presets/Journal.h"
#include "tests/presets/PlainEffect.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/stat.h>

namespace pedl {
namespace {

using test::Journal;
using test::PlainEffect;

class PresetFile : public testing::Test {
protected:
    PresetFile() { effect.startPresetSystem(); }

    Journal journal;
    PlainEffect effect{journal};
    PresetFiles& files = effect.files();
    test::TemporaryFolder folder;
};

TEST_F(PresetFile, ThatWasSavedComesBackInAnotherInstance) {
    effect.setParameter(kGain, 0.123F);
    effect.midiMap().link(kWet, 7);
    PlainEffect other(journal);
    for (const FileKind kind : {FileKind::Program, FileKind::Bank, FileKind::MidiSettings}) {
        const std::string path = folder / fileType(kind).extension;
        EXPECT_FALSE(files.save(kind, path));
        EXPECT_EQ(other.files().load(kind, path), LoadResult::Loaded);
        EXPECT_TRUE(other.stored(kind) == effect.stored(kind));
    }
    EXPECT_EQ(folder.names(), (std::vector<std::string>{"zmb", "zmm", "zmt"}));
}

TEST_F(PresetFile, ThatCannotBeReadOrWrittenIsSaidAndChangesNothing) {
    const std::vector<std::byte> before = effect.stored(FileKind::Bank);
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    journal.lines.clear();
    EXPECT_EQ(files.load(FileKind::Bank, folder / "missing"), LoadResult::Missing);
    EXPECT_EQ(files.load(FileKind::Bank, folder / "pipe"), LoadResult::NotAFile);
    EXPECT_EQ(files.save(FileKind::Bank, folder / "pipe")->text(), "not a file");
    const auto line = [&](const std::string& name, const std::string& what) {
        return "line \"" + (folder / name) + "\" " + what;
    };
    EXPECT_EQ(journal.lines,
              (std::vector{line("missing", "was not loaded, nothing changed (open: No such file or "
                                           "directory)"),
                           line("pipe", "was not loaded, nothing changed (not a file)"),
                           line("pipe", "was not saved, what was there is kept (not a file)")}));
    EXPECT_TRUE(effect.stored(FileKind::Bank) == before);
}

TEST_F(PresetFile, IsRememberedByFolderAndNameWhateverBecameOfIt) {
    files.load(FileKind::Bank, folder / "lead.zmb");
    files.save(FileKind::Program, "/no folder/lead.zmt");
    files.load(FileKind::Bank, "in the working folder.zmb");
    ASSERT_TRUE(effect.keepRecentFiles());
    EXPECT_EQ(journal.settings.values.at("CurrPreset").size(), 8U * 2U + 1U);
    for (const char* value : {"CurrDir", "CurrBank", "CurrMidi"})
        EXPECT_TRUE(journal.settings.values.contains(value)) << value;
    PlainEffect other(journal);
    other.startPresetSystem();
    for (const PlainEffect* const instance : {&effect, &other}) {
        EXPECT_EQ(instance->recentFiles().folder(), "/no folder/");
        EXPECT_EQ(instance->recentFiles().name(FileKind::Bank), "lead.zmb");
        EXPECT_EQ(instance->recentFiles().name(FileKind::Program), "lead.zmt");
        EXPECT_EQ(instance->recentFiles().name(FileKind::MidiSettings), "");
    }
}

} // namespace
} // namespace pedl
