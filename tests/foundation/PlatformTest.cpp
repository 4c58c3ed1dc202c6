#include "foundation/platform/StandardErrorStream.h"
#include "foundation/platform/SystemClock.h"

#include <gtest/gtest.h>

namespace {

TEST(SystemClock, ASleepIsAtLeastAsLongAsAskedAndTheTickShowsIt) {
    pedl::SystemClock clock;
    const std::uint32_t before = clock.tickMs();
    clock.sleepMs(2); // the one test that waits: it is about waiting
    EXPECT_GE(clock.tickMs() - before, 2U);
}

TEST(SystemClock, TheCalendarCountsFrom1970) {
    constexpr std::uint32_t kStartOf2025 = 1735689600;
    EXPECT_GT(pedl::SystemClock().calendarSeconds(), kStartOf2025);
}

TEST(StandardErrorStream, EndsEachTextWithOneLineEnd) {
    testing::internal::CaptureStderr();
    pedl::StandardErrorStream stream;
    stream.line("first");
    stream.line("");
    stream.line("third");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "first\n\nthird\n");
}

} // namespace
