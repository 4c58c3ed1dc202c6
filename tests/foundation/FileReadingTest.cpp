#include "foundation/platform/FileReading.h"

#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pedl {
namespace {

TEST(FileReading, TakesAFileWholeUpToTheLimitAndRefusesWhatIsNone) {
    const test::TemporaryFolder folder;
    const std::string limit(kMaxFileBytes, 'x');
    test::writeText(folder / "whole", limit);
    test::writeText(folder / "above", limit + 'x');
    ASSERT_EQ(symlink("whole", (folder / "link").c_str()), 0);
    ASSERT_EQ(mkfifo((folder / "pipe").c_str(), 0600), 0); // nobody writes: an open could wait
    ASSERT_EQ(symlink("circle", (folder / "circle").c_str()), 0);
    EXPECT_EQ(test::textOf(readFile(folder / "link").bytes), limit);
    EXPECT_FALSE(readFile("/proc/self/status").bytes.empty()) << "its size reads 0";
    struct Row {
        std::string path;
        ReadResult result;
        const char* problem;
    };
    for (const Row& row :
         {Row{folder / "above", ReadResult::TooLarge, "larger than 1 MiB"},
          Row{folder / "pipe", ReadResult::NotAFile, "not a file"},
          Row{"/dev/zero", ReadResult::NotAFile, "not a file"},
          Row{folder / "missing", ReadResult::Missing, "open: No such file or directory"},
          Row{folder / "whole/below", ReadResult::Missing, "open: Not a directory"},
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
