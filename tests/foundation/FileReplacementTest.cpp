#include "foundation/platform/FileReplacement.h"

#include "tests/support/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {
namespace {

using test::readText;
using test::writeText;
using Names = std::vector<std::string>;

mode_t modeOf(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

std::string textOf(const std::optional<FileProblem>& problem) {
    return problem ? problem->text() : "";
}

class FileReplacement : public testing::Test {
protected:
    FileReplacement() {
        umask(022);
        writeText(folder / "file", "old");
    }

    /// "" for success.
    std::string replaced(const std::string& path) {
        return textOf(replaceFile(path, test::bytesOf("new and longer"), kForEveryone));
    }

    test::TemporaryFolder folder;
};

TEST_F(FileReplacement, KeepsTheModeAndLeavesOpenReadersTheOldBytes) {
    ASSERT_EQ(chmod((folder / "file").c_str(), 0664), 0);
    std::ifstream reader(folder / "file");
    EXPECT_EQ(replaced(folder / "file"), "");
    EXPECT_EQ(modeOf(folder / "file"), 0664U);
    EXPECT_EQ(readText(folder / "file"), "new and longer");
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
    const std::string longest = folder / std::string(255, 'n');
    EXPECT_EQ(replaced(longest), "");
    EXPECT_EQ(modeOf(longest), 0644U) << "as the mask leaves it";
}

TEST_F(FileReplacement, KeepsALinkAndReplacesWhatItLeadsTo) {
    ASSERT_EQ(symlink("second", (folder / "first").c_str()), 0);
    ASSERT_EQ(symlink((folder / "file").c_str(), (folder / "second").c_str()), 0);
    ASSERT_EQ(symlink("unborn", (folder / "third").c_str()), 0);
    EXPECT_EQ(replaced(folder / "first") + replaced(folder / "third"), "");
    EXPECT_EQ(readText(folder / "file"), "new and longer");
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "first"));
    EXPECT_EQ(textOf(removeFile(folder / "third")), "");
    EXPECT_EQ(textOf(removeFile(folder / "third")), "") << "it is gone, as asked";
    EXPECT_EQ(folder.names(), (Names{"file", "first", "second", "unborn"}));
}

TEST_F(FileReplacement, LeavesAloneWhatIsNotAFileOrIsProtected) {
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(symlink("circle", (folder / "circle").c_str()), 0);
    ASSERT_EQ(chmod((folder / "file").c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
    const uid_t user = geteuid();
    ASSERT_EQ(seteuid(user == 0 ? 65534 : user), 0); // root may write everywhere, nobody may not
    EXPECT_EQ(replaced(folder / "file"), "access: Permission denied");
    EXPECT_EQ(replaced(folder / "new"), "open: Permission denied");
    EXPECT_EQ(textOf(removeFile(folder / "file")), "unlink: Permission denied");
    ASSERT_EQ(seteuid(user), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(replaced(folder / "pipe"), "not a file");
    EXPECT_EQ(replaced(""), "not a file");
    EXPECT_EQ(replaced(folder / "gone/file"), "open of the folder: No such file or directory");
    EXPECT_EQ(replaced(folder / "circle"), "readlink: Too many levels of symbolic links");
    EXPECT_EQ(readText(folder / "file"), "old");
    EXPECT_EQ(folder.names(), (Names{"circle", "file", "pipe"}));
}

TEST_F(FileReplacement, RemovesWhatAKilledProcessLeftButNothingElse) {
    const std::string atWork = ".file.00112233445566ff.new";
    const Names others{atWork, ".file.0123456789abcdeX.new", ".file.0123456789abcdef.old",
                       ".files.0123456789abcdef.new", "file"};
    for (const std::string& other : others)
        writeText(folder / other, "kept");
    writeText(folder / ".file.0123456789abcdef.new", "half");
    const int file = open((folder / atWork).c_str(), O_WRONLY);
    ASSERT_EQ(flock(file, LOCK_EX), 0);
    EXPECT_EQ(replaced(folder / "file"), "");
    EXPECT_EQ(folder.names(), others);
    close(file);
}

} // namespace
} // namespace pedl
