// Where the effect's threads meet. Each test forces its collision thousands of times; the thread
// sanitizer sees them as well.

#include "foundation/platform/NoDiagnostics.h"
#include "foundation/platform/NoSettings.h"
#include "foundation/platform/StandingClock.h"
#include "plugin/ZMTpedlFilterEffect.h"

#include <array>
#include <atomic>
#include <barrier>
#include <gtest/gtest.h>
#include <thread>

namespace pedl {
namespace {

constexpr int kCollisions = 20000;

/// Runs `first` and `second` of each round at the same time, on threads of their own, then `check`.
template <typename First, typename Second, typename Check>
void collide(First first, Second second, Check check) {
    std::barrier both(2);
    std::thread other([&] {
        for (int round = 0; round < kCollisions; ++round) {
            both.arrive_and_wait();
            second(round);
            both.arrive_and_wait();
        }
    });
    for (int round = 0; round < kCollisions; ++round) {
        both.arrive_and_wait();
        first(round);
        both.arrive_and_wait();
        check(round);
    }
    other.join();
}

struct Threads : testing::Test {
    /// What the effect itself answers for, not the program: the engine's rate of the LFO, and the
    /// program's own levels as they are heard.
    static constexpr std::array kAnswered{kLFOFreq, kDry, kWet};

    StandingClock clock;
    NoDiagnostics diagnostics;
    NoSettings settings;
    ZMTpedlFilterEffect effect{nullptr, {clock, diagnostics, settings}};
};

TEST_F(Threads, AutomationThatMeetsASelectionIsHeardAsItIsStored) {
    int differing = 0;
    collide([&](int round) { effect.selectProgram(round % kNumPrograms); },
            [&](int round) {
                for (const ParameterIndex parameter : kAnswered)
                    effect.setParameter(parameter, static_cast<float>(round % 1000) / 1000.0F);
            },
            [&](int) {
                for (const ParameterIndex parameter : kAnswered)
                    differing += effect.getParameter(parameter) !=
                                 effect.bank().value(effect.currentSlot(), parameter);
            });
    EXPECT_EQ(differing, 0);
}

/// A view that knows whether it may still be called.
struct MortalView final : PresetSystemView {
    void parameterChanged(std::int32_t, float) noexcept override {
        std::this_thread::yield(); // time for the other thread to take the view away
        callsWhenGone += isGone.load();
    }
    void programNameChanged(std::string_view) noexcept override {}
    void programMenuEntryChanged(std::int32_t) noexcept override {}
    void programShown(std::int32_t) noexcept override {}
    void processingSuspended() noexcept override {}
    void midiChannelChanged(float) noexcept override {}
    void midiActivity() noexcept override {}
    void learnEnded() noexcept override {}
    void forgetEnded() noexcept override {}

    std::atomic<bool> isGone{false};
    std::atomic<int> callsWhenGone{0};
};

TEST_F(Threads, AViewThatWasTakenAwayIsCalledNoMore) {
    MortalView view;
    collide(
        [&](int) {
            effect.setView(nullptr);
            view.isGone = true;
        },
        [&](int round) { effect.setParameter(kGain, static_cast<float>(round % 2)); },
        [&](int) {
            view.isGone = false;
            effect.setView(&view);
        });
    effect.setView(nullptr);
    EXPECT_EQ(view.callsWhenGone, 0);
}

} // namespace
} // namespace pedl
