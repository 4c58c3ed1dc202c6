#include "foundation/platform/FileReplacement.h"

#include "tests/support/TemporaryFolder.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {
namespace {

using test::bytesOf;
using test::readText;
using test::TemporaryFolder;
using test::writeText;

constexpr uid_t kNobody = 65534;

/// Root may write everywhere: while this lives, the process is somebody else.
class WithoutPrivileges {
public:
    WithoutPrivileges() { EXPECT_EQ(seteuid(before_ == 0 ? kNobody : before_), 0); }
    ~WithoutPrivileges() { EXPECT_EQ(seteuid(before_), 0); }

private:
    uid_t before_ = geteuid();
};

mode_t modeOf(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0 ? status.st_mode & 07777 : 0;
}

/// "" for success.
std::string replaced(const std::string& path, std::string_view text) {
    const std::optional<FileProblem> problem = replaceFile(path, bytesOf(text), kForEveryone);
    return problem ? problem->text() : "";
}

class FileReplacement : public testing::Test {
protected:
    void SetUp() override { umask(022); }
    TemporaryFolder folder;
    using Names = std::vector<std::string>;
};

TEST_F(FileReplacement, MakesANewFileWithTheModeThatTheMaskLeaves) {
    EXPECT_EQ(replaced(folder / "file", "text"), "");
    EXPECT_EQ(readText(folder / "file"), "text");
    EXPECT_EQ(modeOf(folder / "file"), 0644U);
    EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(FileReplacement, KeepsTheModeAndLeavesOpenReadersTheOldBytes) {
    for (const mode_t mode : {0600U, 0664U, 0755U}) {
        writeText(folder / "file", "old");
        ASSERT_EQ(chmod((folder / "file").c_str(), mode), 0);
        std::ifstream reader(folder / "file");
        EXPECT_EQ(replaced(folder / "file", "new and longer"), "");
        EXPECT_EQ(modeOf(folder / "file"), mode);
        EXPECT_EQ(readText(folder / "file"), "new and longer");
        EXPECT_EQ(std::string(std::istreambuf_iterator<char>(reader), {}), "old");
    }
}

TEST_F(FileReplacement, KeepsALinkAndReplacesWhatItLeadsTo) {
    ASSERT_EQ(mkdir((folder / "below").c_str(), 0700), 0);
    writeText(folder / "below/file", "old");
    ASSERT_EQ(symlink("second", (folder / "first").c_str()), 0);
    ASSERT_EQ(symlink("below/file", (folder / "second").c_str()), 0);
    ASSERT_EQ(symlink((folder / "below/unborn").c_str(), (folder / "third").c_str()), 0);
    EXPECT_EQ(replaced(folder / "first", "new"), "");
    EXPECT_EQ(replaced(folder / "third", "born"), "");
    EXPECT_EQ(readText(folder / "below/file"), "new");
    EXPECT_EQ(readText(folder / "below/unborn"), "born");
    EXPECT_EQ(folder.names(), (Names{"below", "first", "second", "third"}));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "first"));
    EXPECT_TRUE(std::filesystem::is_symlink(folder / "third"));
}

TEST_F(FileReplacement, TakesNamesAsLongAsTheFileSystemAllows) {
    const std::string path = folder / std::string(255, 'n');
    EXPECT_EQ(replaced(path, "text"), "");
    EXPECT_EQ(readText(path), "text");
    EXPECT_EQ(replaced(folder / std::string(256, 'n'), "text"), "stat: File name too long");
}

TEST_F(FileReplacement, LeavesAloneWhatIsNotAFileOrIsProtected) {
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0);
    ASSERT_EQ(mkdir((folder / "below").c_str(), 0700), 0);
    ASSERT_EQ(symlink("circle", (folder / "circle").c_str()), 0);
    writeText(folder / "protected", "old");
    ASSERT_EQ(chmod((folder / "protected").c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    const Names before = folder.names();
    EXPECT_EQ(replaced(folder / "pipe", "new"), "not a file");
    EXPECT_EQ(replaced(folder / "below", "new"), "not a file");
    EXPECT_EQ(replaced(folder / "below/", "new"), "not a file");
    EXPECT_EQ(replaced("", "new"), "not a file");
    EXPECT_EQ(replaced(folder / "missing/file", "new"),
              "open of the folder: No such file or directory");
    EXPECT_EQ(replaced(folder / "circle", "new"), "readlink: Too many levels of symbolic links");
    {
        const WithoutPrivileges user;
        EXPECT_EQ(replaced(folder / "protected", "new"), "access: Permission denied");
    }
    EXPECT_EQ(readText(folder / "protected"), "old");
    EXPECT_EQ(folder.names(), before);
}

TEST_F(FileReplacement, SaysThatAFolderCannotBeWritten) {
    writeText(folder / "file", "old");
    ASSERT_EQ(chmod((folder / "file").c_str(), 0666), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
    {
        const WithoutPrivileges user;
        EXPECT_EQ(replaced(folder / "file", "new"), "open: Permission denied");
        EXPECT_EQ(removeFile(folder / "file")->text(), "unlink: Permission denied");
    }
    EXPECT_EQ(readText(folder / "file"), "old");
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(FileReplacement, RemovesWhatAKilledProcessLeftButNothingElse) {
    const std::string atWork = ".lead.zmb.00112233445566ff.new";
    writeText(folder / ".lead.zmb.0123456789abcdef.new", "half");
    for (const std::string& other : {atWork, std::string(".lead.zmt.0123456789abcdef.new"),
                                     std::string(".lead.zmb.0123456789abcdeX.new"),
                                     std::string(".lead.zmb.0123456789abcdef.old")})
        writeText(folder / other, "kept");
    const int file = open((folder / atWork).c_str(), O_WRONLY);
    ASSERT_EQ(flock(file, LOCK_EX), 0);
    EXPECT_EQ(replaced(folder / "lead.zmb", "whole"), "");
    EXPECT_EQ(folder.names(),
              (Names{atWork, ".lead.zmb.0123456789abcdeX.new", ".lead.zmb.0123456789abcdef.old",
                     ".lead.zmt.0123456789abcdef.new", "lead.zmb"}));
    close(file);
}

TEST_F(FileReplacement, RemovingTakesTheLinkNotItsTarget) {
    writeText(folder / "file", "kept");
    ASSERT_EQ(symlink("file", (folder / "link").c_str()), 0);
    EXPECT_FALSE(removeFile(folder / "link"));
    EXPECT_FALSE(removeFile(folder / "link")) << "it is gone, as asked";
    EXPECT_EQ(folder.names(), Names{"file"});
}

TEST_F(FileReplacement, MakesMissingFoldersForTheirOwnerAlone) {
    EXPECT_FALSE(makePrivateFolder(folder / "a/b/c"));
    EXPECT_FALSE(makePrivateFolder(folder / "a/b/c"));
    for (const char* made : {"a", "a/b", "a/b/c"})
        EXPECT_EQ(modeOf(folder / made), 0700U) << made;
    writeText(folder / "file", "in the way");
    EXPECT_EQ(makePrivateFolder(folder / "file/below")->text(), "mkdir: Not a directory");
}

} // namespace
} // namespace pedl
