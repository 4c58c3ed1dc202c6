// The host library on a plug-in that works and on libraries that do not.

#include "host/Plugin.h"
#include "host/Selection.h"
#include "tests/support/Results.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdlib>

namespace pedl {
namespace {

using test::problemOf;

std::unique_ptr<Plugin> loadStub(const AudioSetup& setup = {}) {
    return test::valueOf(Plugin::load(PEDL_STUB_PLUGIN, setup));
}

TEST(Plugin, TheHostAnswersInsideTheEntryAndTextsArriveFitForATerminal) {
    const std::unique_ptr<Plugin> stub = loadStub({96000.0, 64});
    // The stub tells as its program name what it heard: version, canDo, sample rate.
    std::array<char, 64> heard{};
    stub->call(effGetProgramName, 0, 0, heard.data());
    EXPECT_STREQ(heard.data(), "2400 1 96000");
    EXPECT_EQ(stub->name(), "St\xC3\xBC! ");
    EXPECT_EQ(stub->displayTextAt(1, 0.5F), "mid band");
    EXPECT_EQ(stub->parameter(1), 0.0F) << "the text of another value changes nothing";
    EXPECT_FALSE(stub->selectProgram(-1) || stub->selectProgram(2));
}

TEST(Plugin, SettingsByNameFindTheirValueAndByIndexAreNormalised) {
    const std::unique_ptr<Plugin> stub = loadStub();
    struct Row {
        const char* text;
        VstInt32 index;
        double value;
    };
    for (const Row row : {Row{"0=0.75", 0, 0.75}, Row{"1=mid band", 1, 0.55},
                          Row{"Filter Cutoff=200 Hz", 3, 1.0 / 3.0}}) {
        const Setting setting = test::valueOf(findSetting(*stub, row.text));
        EXPECT_EQ(setting.index, row.index) << row.text;
        EXPECT_NEAR(setting.normalised, row.value, 1e-3) << row.text;
    }
    for (const char* wrong : {"Gain", "0=1.5", "0=-0.1", "0=nan", "6=0", "Gain=101", "=3"})
        EXPECT_FALSE(findSetting(*stub, wrong).ok()) << wrong;
}

TEST(Plugin, LibrariesThatAreNoPlugInAreRefusedWithTheReason) {
    for (const auto& [fault, file, reason] : {
             std::array{"null", PEDL_BAD_PLUGIN, "its entry gives no effect"},
             std::array{"magic", PEDL_BAD_PLUGIN, "wrong magic number"},
             std::array{"functions", PEDL_BAD_PLUGIN, "lacks functions"},
             std::array{"counts", PEDL_BAD_PLUGIN, "impossible numbers"},
             std::array{"replacing", PEDL_BAD_PLUGIN, "cannot replace its output"},
             std::array{"", "libm.so.6", "no such plug-in file"},
             std::array{"", "/lib/x86_64-linux-gnu/libm.so.6", "exports neither VSTPluginMain nor"},
             std::array{"", "/", "is a folder"},
             std::array{"", "/etc/passwd", "cannot be loaded: "},
         }) {
        setenv("BAD_PLUGIN", fault, 1);
        const std::string problem = problemOf(Plugin::load(file));
        EXPECT_TRUE(problem.starts_with(std::string(file) + ": ")) << problem;
        EXPECT_NE(problem.find(reason), std::string::npos) << problem;
    }
}

} // namespace
} // namespace pedl
