#include "foundation/platform/FileSettingsStore.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <optional>
#include <pwd.h>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {
namespace {

using test::bytesOf;
using test::TemporaryFolder;
using test::textOf;
using test::writeText;

class LineRecorder final : public DiagnosticStream {
public:
    void line(std::string_view text) override { lines.emplace_back(text); }
    std::vector<std::string> lines;
};

class SettingsFiles : public testing::Test {
protected:
    TemporaryFolder configuration;
    std::string folder = configuration / "ZMT-sonics/ZMTpedlFilter";
    LineRecorder diagnostics;
    FileSettingsStore store{folder, diagnostics};

    mode_t modeOf(const std::string& path) {
        struct stat status {};
        return stat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
    }
};

TEST_F(SettingsFiles, KeepEachValueInAFileOfItsNameForTheOwnerAlone) {
    EXPECT_TRUE(store.write("MemoA", bytesOf("first")));
    EXPECT_TRUE(store.write("MemoA", bytesOf("second")));
    EXPECT_TRUE(store.write("MemoB", {}));
    EXPECT_EQ(test::readText(folder + "/MemoA"), "second");
    EXPECT_EQ(textOf(*store.read("MemoA")), "second");
    EXPECT_TRUE(store.read("MemoB")->empty());
    EXPECT_EQ(modeOf(folder), 0700U);
    EXPECT_EQ(modeOf(folder + "/MemoA"), 0600U);
    EXPECT_TRUE(store.erase("MemoA"));
    EXPECT_FALSE(store.read("MemoA"));
    EXPECT_TRUE(diagnostics.lines.empty());
}

TEST_F(SettingsFiles, AreMissingWithoutAWordUntilTheyAreWritten) {
    EXPECT_FALSE(store.read("MemoA"));
    EXPECT_TRUE(store.erase("MemoA"));
    EXPECT_TRUE(diagnostics.lines.empty());
    EXPECT_TRUE(configuration.names().empty()) << "reading makes no folder";
}

TEST_F(SettingsFiles, TellWhatCouldNotBeDoneAndWhatThatMeans) {
    writeText(configuration / "ZMT-sonics", "a file is in the way");
    EXPECT_FALSE(store.write("MemoA", bytesOf("new")));
    EXPECT_EQ(diagnostics.lines,
              std::vector{"settings: \"" + folder +
                          "/MemoA\" was not stored, what it was is kept (mkdir: Not a directory)"});
}

TEST_F(SettingsFiles, TellOfAValueThatCannotBeRead) {
    std::filesystem::create_directories(folder + "/MemoA");
    EXPECT_FALSE(store.read("MemoA"));
    EXPECT_EQ(diagnostics.lines,
              std::vector{"settings: \"" + folder +
                          "/MemoA\" cannot be read and counts as missing (not a file)"});
}

TEST_F(SettingsFiles, AreMissingWhereTheUserHasNoFolder) {
    FileSettingsStore homeless(std::nullopt, diagnostics);
    EXPECT_FALSE(homeless.read("MemoA"));
    EXPECT_TRUE(homeless.erase("MemoA"));
    EXPECT_TRUE(diagnostics.lines.empty());
    EXPECT_FALSE(homeless.write("MemoA", bytesOf("text")));
    EXPECT_EQ(diagnostics.lines.size(), 1U);
}

/// An environment variable, given back at the end of scope.
class Variable {
public:
    Variable(const char* name, const char* value) : name_(name) {
        if (const char* const before = getenv(name))
            before_ = before;
        set(value);
    }
    ~Variable() { set(before_ ? before_->c_str() : nullptr); }

private:
    void set(const char* value) {
        if (value != nullptr)
            setenv(name_, value, 1);
        else
            unsetenv(name_);
    }
    const char* name_;
    std::optional<std::string> before_;
};

TEST(UserSettingsFolder, IsInTheConfigurationFolderElseInTheHomeFolder) {
    struct Row {
        const char* configuration;
        const char* home;
        const char* folder;
    };
    for (const Row row : {Row{"/etc/xdg", "/home/me", "/etc/xdg/ZMT-sonics/ZMTpedlFilter"},
                          Row{nullptr, "/home/me", "/home/me/.config/ZMT-sonics/ZMTpedlFilter"},
                          Row{"", "/home/me", "/home/me/.config/ZMT-sonics/ZMTpedlFilter"},
                          Row{"here", "/home/me", "/home/me/.config/ZMT-sonics/ZMTpedlFilter"}}) {
        const Variable configuration("XDG_CONFIG_HOME", row.configuration);
        const Variable home("HOME", row.home);
        EXPECT_EQ(userSettingsFolder(), row.folder);
    }
}

TEST(UserSettingsFolder, IsThatOfTheUserDatabaseWithoutAHome) {
    const Variable configuration("XDG_CONFIG_HOME", nullptr);
    const Variable home("HOME", nullptr);
    const std::optional<std::string> folder = userSettingsFolder();
    const passwd* const user = getpwuid(getuid());
    if (user == nullptr)
        GTEST_SKIP() << "the user database does not know this user";
    EXPECT_EQ(folder, std::string(user->pw_dir) + "/.config/ZMT-sonics/ZMTpedlFilter");
}

} // namespace
} // namespace pedl
