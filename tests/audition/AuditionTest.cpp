#include "convert/TextForm.h"
#include "demo/StereoSound.h"
#include "host/AuditionCommand.h"
#include "tests/support/TemporaryFolder.h"

#include <cmath>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

namespace pedl {
namespace {

class AuditionTest : public testing::Test {
protected:
    void SetUp() override {
        demo::StereoSound sound{48000, std::vector<float>(9600), {}};
        for (std::size_t i = 0; i < sound.left.size(); ++i)
            sound.left[i] = 0.5F * std::sin(0.05F * static_cast<float>(i));
        sound.right = sound.left;
        demo::writeSound(own_, sound);
    }

    std::string page() const {
        std::ifstream file(folder_ / "out/index.html");
        return {std::istreambuf_iterator<char>(file), {}};
    }
    bool hasSound(const char* name) const {
        return std::filesystem::file_size(folder_ / "out" / name) >= 9600 * 4;
    }

    const test::TemporaryFolder temporary_;
    const std::filesystem::path folder_ = temporary_.path();
    const std::string own_ = folder_ / "own <sound>.wav";
};

TEST_F(AuditionTest, WritesOnePageWithTheSoundsOfTheProgramsThatAreAskedFor) {
    const Result<std::string> done =
        renderAudition({{own_}, std::nullopt, {"Pan LFO", "11"}, folder_ / "out"});
    ASSERT_TRUE(done.ok()) << done.problem().text;
    for (const char* text : {"\"Pan LFO\"", "\"Funk Guitar Fun\"", "louder opens",
                             "\"seconds\":0.2", "own \\u003csound>"})
        EXPECT_NE(page().find(text), std::string::npos) << text;
    for (const char* text : {"http:", "https:", "@DATA@", "\"Tremolo\""})
        EXPECT_EQ(page().find(text), std::string::npos) << text;
    EXPECT_TRUE(hasSound("dry-0.wav") && hasSound("wet-90-0.wav") && hasSound("wet-11-0.wav"));
}

TEST_F(AuditionTest, TakesABankOfOnesOwnWithoutItsRepeatedPrograms) {
    Document bank = factoryDocument();
    for (ProgramRecord& program : bank.programs)
        program = bank.programs[0];
    bank.programs[7].name = toProgramName("Mine </script>");
    std::ofstream(folder_ / "bank.json") << textForm(bank);
    const Result<std::string> done =
        renderAudition({{own_}, folder_ / "bank.json", {}, folder_ / "out"});
    ASSERT_TRUE(done.ok()) << done.problem().text;
    EXPECT_NE(done.value().find("2 programs, 2 sounds"), std::string::npos) << done.value();
    EXPECT_NE(page().find("Mine \\u003c/script>"), std::string::npos);
}

TEST_F(AuditionTest, SaysInOneLineWhatIsMissing) {
    const auto problemOf = [&](const AuditionRequest& request) {
        const Result<std::string> done = renderAudition(request);
        return done.ok() ? done.value() : done.problem().text;
    };
    EXPECT_TRUE(problemOf({{own_}, std::nullopt, {"No Such"}, folder_}).starts_with("--program: "));
    EXPECT_TRUE(problemOf({{own_}, own_, {}, folder_}).starts_with("--bank: "));
    EXPECT_TRUE(problemOf({{folder_ / "none.wav"}, std::nullopt, {"0"}, folder_})
                    .starts_with((folder_ / "none.wav").string()));
    EXPECT_NE(problemOf({{own_}, std::nullopt, {"0"}, own_}).find("cannot be made"),
              std::string::npos);
}

} // namespace
} // namespace pedl
