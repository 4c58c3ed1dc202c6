#include "engine/ModFilterEngine.h"

#include "tests/support/StereoBuffer.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

TEST(ModFilterEngine, OutputsMayBeTheInputs) {
    constexpr int kFrames = 1000;
    ModFilterEngine together(1), apart(1);
    auto input = test::noise<double>(kFrames, 3);
    auto expected = test::StereoBuffer<double>(kFrames);
    const auto untouched = input;
    const auto in = input.from(0), out = expected.from(0);
    apart.processDouble(in.data(), out.data(), kFrames);
    EXPECT_EQ(input, untouched);
    together.processDouble(in.data(), in.data(), kFrames);
    EXPECT_EQ(input, expected);
    EXPECT_NE(input, untouched);
}

} // namespace
} // namespace pedl
