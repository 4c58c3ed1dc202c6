#include "foundation/platform/FileReading.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {
namespace {

using test::TemporaryFolder;
using test::textOf;
using test::writeText;

class FileReading : public testing::Test {
protected:
    TemporaryFolder folder;

    void makeSparse(const std::string& path, off_t sizeBytes) {
        writeText(path, "");
        ASSERT_EQ(truncate(path.c_str(), sizeBytes), 0);
    }
};

TEST_F(FileReading, TakesAFileWholeUpToTheLimit) {
    const std::string limit(kMaxFileBytes, 'x');
    for (const std::string& text : {std::string(), std::string("\0", 1), limit}) {
        SCOPED_TRACE(text.size());
        writeText(folder / "file", text);
        ASSERT_EQ(chmod((folder / "file").c_str(), 0444), 0);
        const FileContents contents = readFile(folder / "file");
        EXPECT_EQ(contents.result, ReadResult::Read);
        EXPECT_EQ(textOf(contents.bytes), text);
        unlink((folder / "file").c_str());
    }
}

TEST_F(FileReading, FollowsLinksAndReadsFilesThatDoNotKnowTheirSize) {
    writeText(folder / "file", "text");
    ASSERT_EQ(symlink("file", (folder / "link").c_str()), 0);
    EXPECT_EQ(textOf(readFile(folder / "link").bytes), "text");
    const FileContents status = readFile("/proc/self/status"); // its size reads 0
    EXPECT_EQ(status.result, ReadResult::Read);
    EXPECT_FALSE(status.bytes.empty());
}

TEST_F(FileReading, RefusesWhatIsNoFileOrTooLargeWithoutReading) {
    constexpr off_t kFourGiB = off_t{4} << 30;
    makeSparse(folder / "large", kFourGiB);
    makeSparse(folder / "above", static_cast<off_t>(kMaxFileBytes) + 1);
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0); // nobody writes: an open could wait
    ASSERT_EQ(symlink("circle", (folder / "circle").c_str()), 0);
    struct Row {
        std::string path;
        ReadResult result;
        const char* problem;
    };
    for (const Row& row :
         {Row{folder / "large", ReadResult::TooLarge, "larger than 1 MiB"},
          Row{folder / "above", ReadResult::TooLarge, "larger than 1 MiB"},
          Row{folder / "pipe", ReadResult::NotAFile, "not a file"},
          Row{folder.path(), ReadResult::NotAFile, "not a file"},
          Row{"/dev/zero", ReadResult::NotAFile, "not a file"},
          Row{folder / "missing", ReadResult::Missing, "open: No such file or directory"},
          Row{folder / "large/below", ReadResult::Missing, "open: Not a directory"},
          Row{folder / "circle", ReadResult::Unreadable,
              "open: Too many levels of symbolic links"}}) {
        SCOPED_TRACE(row.path);
        const FileContents contents = readFile(row.path);
        EXPECT_EQ(contents.result, row.result);
        EXPECT_EQ(contents.problem.text(), row.problem);
        EXPECT_TRUE(contents.bytes.empty());
    }
}

} // namespace
} // namespace pedl
