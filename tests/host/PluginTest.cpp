// The host library on a plug-in that works and on libraries that do not.

#include "host/Plugin.h"
#include "host/Selection.h"

#include <gtest/gtest.h>

#include <array>

namespace pedl {
namespace {

std::unique_ptr<Plugin> loadStub(const AudioSetup& setup = {}) {
    Result<std::unique_ptr<Plugin>> loaded = Plugin::load(PEDL_STUB_PLUGIN, setup);
    EXPECT_TRUE(loaded.ok()) << loaded.problem().text;
    return std::move(loaded.value());
}

TEST(Plugin, TheHostAnswersInsideTheEntryAndTextsArriveFitForATerminal) {
    const std::unique_ptr<Plugin> stub = loadStub({96000.0, 64});
    // The stub tells as its program name what it heard: version, canDo, sample rate.
    std::array<char, 64> heard{};
    stub->call(effGetProgramName, 0, 0, heard.data());
    EXPECT_STREQ(heard.data(), "2400 1 96000");
    EXPECT_EQ(stub->name(), "St\xC3\xBC"
                            "b ");
    EXPECT_EQ(stub->displayTextAt(1, 0.5F), "mid band");
    EXPECT_EQ(stub->parameter(1), 0.0F) << "the text of another value changes nothing";
}

TEST(Plugin, ProgramsBeyondTheDeclaredOnesAreNotBelieved) {
    const std::unique_ptr<Plugin> stub = loadStub();
    EXPECT_EQ(stub->programNames(), (std::vector<std::string>{"Soft", "Loud"}));
    EXPECT_TRUE(selectProgram(*stub, "loud").ok());
    EXPECT_EQ(stub->parameter(0), 1.0F);
    EXPECT_TRUE(selectProgram(*stub, "0").ok());
    EXPECT_EQ(stub->parameter(0), 0.5F);
    EXPECT_EQ(selectProgram(*stub, "2").problem().text,
              "there is no program 2; the plug-in has 2, counted from 0");
    EXPECT_FALSE(stub->selectProgram(-1));
}

TEST(Plugin, SettingsByNameFindTheirValueAndByIndexAreNormalised) {
    const std::unique_ptr<Plugin> stub = loadStub();
    struct Row {
        const char* text;
        VstInt32 index;
        double value;
    };
    for (const Row row :
         {Row{"Gain=25 %", 0, 0.25}, Row{"0=0.75", 0, 0.75}, Row{"1=mid band", 1, 0.55},
          Row{"Filter Cutoff=200 Hz", 3, 1.0 / 3.0}, Row{"Filter Slope=10", 5, 0.1}}) {
        const Result<Setting> setting = findSetting(*stub, row.text);
        ASSERT_TRUE(setting.ok()) << row.text << ": " << setting.problem().text;
        EXPECT_EQ(setting.value().index, row.index) << row.text;
        EXPECT_NEAR(setting.value().normalised, row.value, 1e-3) << row.text;
    }
    for (const char* wrong : {"Gain", "0=1.5", "0=-0.1", "0=nan", "6=0", "Gain=101", "=3"})
        EXPECT_FALSE(findSetting(*stub, wrong).ok()) << wrong;
}

TEST(Plugin, LibrariesThatAreNoPlugInAreRefusedWithTheReason) {
    using Row = std::pair<const char*, const char*>;
    for (const auto& [file, reason] : {
             Row{"bad_no_entry.so", "exports neither VSTPluginMain nor main"},
             Row{"bad_null.so", "its entry gives no effect"},
             Row{"bad_magic.so", "wrong magic number"},
             Row{"bad_functions.so", "lacks functions"},
             Row{"bad_counts.so", "impossible numbers"},
             Row{"bad_replacing.so", "cannot replace its output"},
             Row{"missing.so", "no such plug-in file"},
             Row{".", "is a folder"},
             Row{"CTestTestfile.cmake", "cannot be loaded: "},
         }) {
        const auto path = std::filesystem::path(PEDL_BAD_PLUGINS) / file;
        const Result<std::unique_ptr<Plugin>> loaded = Plugin::load(path);
        ASSERT_FALSE(loaded.ok()) << file;
        const std::string& text = loaded.problem().text;
        EXPECT_TRUE(text.starts_with(path.string())) << text;
        EXPECT_NE(text.find(reason), std::string::npos) << text;
    }
}

} // namespace
} // namespace pedl
