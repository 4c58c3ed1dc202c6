#include "foundation/platform/FileSettingsStore.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <optional>
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {
namespace {

using test::bytesOf;
using Lines = std::vector<std::string>;

class SettingsFiles : public testing::Test, protected DiagnosticStream {
protected:
    void line(std::string_view text) override { lines.emplace_back(text); }

    static mode_t modeOf(const std::string& path) {
        struct stat status {};
        return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }

    Lines lines;
    test::TemporaryFolder configuration;
    std::string folder = configuration / "ZMT-sonics/ZMTpedlFilter";
    FileSettingsStore store{folder, *this};
};

TEST_F(SettingsFiles, KeepEachValueInAFileOfItsNameForTheOwnerAlone) {
    EXPECT_FALSE(store.read("MemoA"));
    EXPECT_TRUE(store.erase("MemoA"));
    EXPECT_EQ(configuration.names(), Lines()) << "reading makes no folder";
    EXPECT_TRUE(store.write("MemoA", bytesOf("first")) && store.write("MemoA", bytesOf("second")));
    EXPECT_TRUE(store.write("MemoB", {}));
    EXPECT_EQ(test::readText(folder + "/MemoA"), "second");
    EXPECT_EQ(store.read("MemoA"), bytesOf("second"));
    EXPECT_EQ(store.read("MemoB"), test::Bytes());
    EXPECT_EQ(modeOf(configuration / "ZMT-sonics"), 0700U);
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(modeOf(folder + "/MemoA"), 0600U);
    EXPECT_TRUE(store.erase("MemoA"));
    EXPECT_FALSE(store.read("MemoA"));
    EXPECT_EQ(lines, Lines());
}

TEST_F(SettingsFiles, TellWhatCouldNotBeDoneAndWhatThatMeans) {
    test::writeText(configuration / "ZMT-sonics", "a file is in the way");
    EXPECT_FALSE(store.write("MemoA", bytesOf("new")));
    std::filesystem::remove(configuration / "ZMT-sonics");
    std::filesystem::create_directories(folder + "/MemoB");
    EXPECT_FALSE(store.read("MemoB"));
    FileSettingsStore homeless(std::nullopt, *this);
    EXPECT_FALSE(homeless.read("MemoA") || homeless.write("MemoA", bytesOf("text")));
    EXPECT_TRUE(homeless.erase("MemoA"));
    EXPECT_EQ(lines,
              (Lines{"settings: \"" + folder +
                         "/MemoA\" was not stored, what it was is kept (mkdir: Not a directory)",
                     "settings: \"" + folder +
                         "/MemoB\" cannot be read and counts as missing (not a file)",
                     "settings: \"MemoA\" was not stored (there is no folder for settings, set "
                     "HOME)"}));
}

TEST_F(SettingsFiles, AreInTheConfigurationFolderElseInTheHomeFolder) {
    const passwd* const user = getpwuid(getuid());
    ASSERT_NE(user, nullptr) << "the user database does not know this user";
    const char* const before = getenv("XDG_CONFIG_HOME");
    for (const auto& [configured, home, base] :
         {std::array<std::string, 3>{"/etc/xdg", "/home/me", "/etc/xdg"},
          {"", "/home/me", "/home/me/.config"},
          {"here", "/home/me", "/home/me/.config"},
          {"", "", std::string(user->pw_dir) + "/.config"}}) {
        setenv("XDG_CONFIG_HOME", configured.c_str(), 1);
        setenv("HOME", home.c_str(), 1);
        EXPECT_EQ(userSettingsFolder(), base + "/ZMT-sonics/ZMTpedlFilter");
    }
    setenv("XDG_CONFIG_HOME", before != nullptr ? before : "", 1);
}

} // namespace
} // namespace pedl
