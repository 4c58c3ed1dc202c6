// The editor of a built library, pictured by the command as a user without a display does it.

#include "tests/support/ShellCommand.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <png.h>
#include <set>

namespace pedl {
namespace {

using namespace test;

struct Picture {
    int width = 0, height = 0;
    std::vector<std::uint8_t> greys;

    [[nodiscard]] int at(int x, int y) const {
        return greys[static_cast<std::size_t>(y * width + x)];
    }
};

Picture pictured(const std::string& scale) {
    const TemporaryFolder folder;
    const std::string command = "unset DISPLAY && '" PEDL_COMMAND "' show --screenshot it.png"
                                " --plugin '" PEDL_PLUGIN_PATH "' --scale ";
    const Outcome shown = runInShell(folder, command + scale);
    EXPECT_EQ(shown.status, 0) << shown.error;
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    EXPECT_NE(png_image_begin_read_from_file(&image, (folder / "it.png").c_str()), 0);
    image.format = PNG_FORMAT_GRAY;
    Picture picture{static_cast<int>(image.width), static_cast<int>(image.height), {}};
    picture.greys.resize(PNG_IMAGE_SIZE(image));
    png_image_finish_read(&image, nullptr, picture.greys.data(), 0, nullptr);
    return picture;
}

TEST(EditorPicture, ShowsTheSameAtBothScales) {
    if (std::system("command -v Xvfb >/dev/null") != 0)
        GTEST_SKIP() << "Xvfb is not installed";
    const Picture once = pictured("1");
    const Picture twice = pictured("2");
    ASSERT_EQ(twice.width, 2 * once.width);
    ASSERT_EQ(twice.height, 2 * once.height);
    double difference = 0.0;
    for (int y = 0; y < once.height; ++y)
        for (int x = 0; x < once.width; ++x) {
            const int four = twice.at(2 * x, 2 * y) + twice.at(2 * x + 1, 2 * y) +
                             twice.at(2 * x, 2 * y + 1) + twice.at(2 * x + 1, 2 * y + 1);
            difference += std::abs(four / 4 - once.at(x, y));
        }
    const std::set<std::uint8_t> greys(once.greys.begin(), once.greys.end());
    EXPECT_GT(greys.size(), 50U) << "all is painted, letters with soft edges too";
    EXPECT_LT(difference / (once.width * once.height), 3.0)
        << "of 255; text that is rounded otherwise makes 1";
}

} // namespace
} // namespace pedl
