// The host automates on a thread of its own while the window idles, and the sound runs on a third.

#include "tests/support/OpenEditor.h"

#include <array>
#include <atomic>
#include <thread>

namespace pedl {
namespace {

using namespace test;
using namespace VSTGUI;

TEST(Threads, AnAutomatedWindowShowsWhatTheEffectHolds) {
    constexpr int kChanges = 20000;
    ManualClock clock;
    MemorySettings settings;
    OpenEditor open(clock, settings);
    std::atomic<bool> isOver{false};
    std::thread automation([&] {
        for (int change = 0; change < kChanges; ++change)
            open.effect.setParameter(change % kNumParams, static_cast<float>(change % 101) / 100);
        isOver = true;
    });
    std::thread sound([&] {
        std::array<std::array<float, 64>, 2> samples{};
        float* channels[]{samples[0].data(), samples[1].data()};
        while (!isOver)
            open.effect.processReplacing(channels, channels, 64);
    });
    while (!isOver)
        open.idle(1);
    automation.join();
    sound.join();
    open.idle(3);
    for (const std::int32_t parameter : {kGain, kFilterReso, kEnvAttack, kLFOSpread, kWetDefeat})
        EXPECT_EQ(open.control(parameter)->getValue(), open.effect.getParameter(parameter))
            << parameter;
}

} // namespace
} // namespace pedl
