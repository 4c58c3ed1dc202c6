// A host's automation and a view set values at the same time, and the audio thread sets the LFO's
// rate when the tempo moves. Whatever meets, the engine then plays what is stored.

#include "engine/ChangeMarks.h"
#include "engine/ModFilterEngine.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <functional>
#include <sched.h>
#include <thread>

namespace pedl {
namespace {

using E = ModFilterEngine;
using Setter = void (E::*)(float) noexcept;

#if defined(__SANITIZE_ADDRESS__) // which has nothing to find in it
constexpr int kMeetings = 1000;
#else
constexpr int kMeetings = 20000;
#endif
constexpr std::uint32_t kSeed = 12;

/// Keeps the calling thread on one of its processors to the end of scope. Left alone, two threads
/// that wait for each other end up taking turns on one.
class OnOneProcessor {
public:
    enum class Which { First, Last };

    explicit OnOneProcessor(Which which) {
        sched_getaffinity(0, sizeof before_, &before_);
        int found = 0;
        for (int i = 0; i < CPU_SETSIZE; ++i)
            if (CPU_ISSET(i, &before_) && (which == Which::Last || !CPU_ISSET(found, &before_)))
                found = i;
        cpu_set_t one;
        CPU_ZERO(&one);
        CPU_SET(found, &one);
        sched_setaffinity(0, sizeof one, &one);
    }
    ~OnOneProcessor() { sched_setaffinity(0, sizeof before_, &before_); }

private:
    cpu_set_t before_;
};

/// Runs two calls at once, the second on a thread of its own. Both wait for one moment on the
/// clock, which is nearer together than one waiting for the other.
class Meeting {
public:
    ~Meeting() {
        second_ = nullptr;
        ++called_;
        thread_.join();
    }

    void of(const std::function<void()>& first, const std::function<void()>& second) {
        second_ = &second;
        moment_ = Clock::now() + std::chrono::nanoseconds(600); // seen by the other until then
        const int round = ++called_;
        awaitMoment();
        first();
        awaitThat(finished_, round);
    }

private:
    using Clock = std::chrono::steady_clock;

    void awaitMoment() const {
        while (Clock::now() < moment_)
            ;
    }

    static void awaitThat(const std::atomic<int>& counter, int round) {
        for (int looks = 1; counter.load() != round; ++looks)
            if (looks % 2000 == 0)
                std::this_thread::yield(); // on a busy machine the other one may not be running
    }

    void play() {
        const OnOneProcessor other(OnOneProcessor::Which::Last);
        for (int round = 1;; ++round) {
            awaitThat(called_, round);
            if (second_ == nullptr)
                return;
            awaitMoment();
            (*second_)();
            finished_ = round;
        }
    }

    const std::function<void()>* second_ = nullptr;
    Clock::time_point moment_;
    std::atomic<int> called_{0}, finished_{0};
    std::thread thread_{[this] { play(); }};
    const OnOneProcessor own_{OnOneProcessor::Which::First}; // last: a new thread inherits it
};

// clang-format off
constexpr Setter kHeard[] = {
    &E::setWetSwitch,           &E::setDrySwitch,      &E::setFilterSaturation,    &E::setResonance,
    &E::setEnvToLfoRateSwitch,  &E::setEnvToLfoRate,   &E::setEnvToLfoDepthSwitch, &E::setEnvToLfoDepth,
    &E::setEnvToGainSwitch,     &E::setEnvToGain,      &E::setLfoToCutoffSwitch,   &E::setLfoToCutoff,
    &E::setLfoRate,             &E::setCutoff,         &E::setLfoRandomAmount,     &E::setEnvAttack,
    &E::setEnvAttackExtension,  &E::setEnvRelease,     &E::setEnvThreshold,        &E::setEnvRange,
};
// clang-format on

/// An engine in which every value is heard.
struct OpenEngine : ModFilterEngine {
    OpenEngine() : ModFilterEngine(kSeed) {
        for (const Setter turnUp : kHeard)
            (this->*turnUp)(0.6F);
        setSampleRate(48000.0);
        reinitialise(kSeed);
    }

    /// The output's last frame of a few that are loud and soft by turns.
    std::array<double, 2> play(int round) {
        std::array<double, 3> left, right;
        left.fill(round % 50 < 5 ? 0.9 : 0.01);
        right.fill(round % 70 < 5 ? 0.7 : -0.02);
        double* const channels[] = {left.data(), right.data()};
        processDouble(channels, channels, left.size());
        return {left.back(), right.back()};
    }
};

TEST(ModFilterEngine, SettersThatMeetLeaveWhatOneThreadWouldHaveLeft) {
    struct Row {
        const char* story;
        Setter first, second;
    };
    for (const Row& row :
         {Row{"slope and resonance", &E::setFilterSlope, &E::setResonance},
          Row{"slope and saturation", &E::setFilterSlope, &E::setFilterSaturation},
          Row{"rate and filter", &E::setLfoRate, &E::setLfoFilter},
          Row{"attack and release", &E::setEnvAttack, &E::setEnvRelease},
          Row{"attack and extension", &E::setEnvAttack, &E::setEnvAttackExtension},
          Row{"depth and its switch", &E::setEnvToLfoDepth, &E::setEnvToLfoDepthSwitch},
          Row{"gain and its switch", &E::setEnvToGain, &E::setEnvToGainSwitch},
          Row{"rate and its switch", &E::setEnvToLfoRate, &E::setEnvToLfoRateSwitch}}) {
        SCOPED_TRACE(row.story);
        Meeting meeting;
        OpenEngine met, alone;
        for (int round = 0; round < kMeetings; ++round) {
            const float a = round % 2 == 0 ? 0.3F : 1.0F, b = round / 2 % 2 == 0 ? 0.2F : 0.8F;
            meeting.of([&] { (met.*row.first)(a); }, [&] { (met.*row.second)(b); });
            (alone.*row.first)(a);
            (alone.*row.second)(b);
            ASSERT_EQ(met.play(round), alone.play(round)) << "meeting " << round;
        }
    }
}

TEST(ChangeMarks, NoneIsLostThatIsRaisedWhileOthersAreTaken) {
    enum class Group { Early, Late };
    ChangeMarks<Group> marks;
    Meeting meeting;
    for (int round = 0; round < kMeetings; ++round) {
        bool isSeen = false;
        marks.mark(Group::Early);
        meeting.of([&] { isSeen = marks.take().has(Group::Late); },
                   [&] { marks.mark(Group::Late); });
        ASSERT_NE(isSeen, marks.take().has(Group::Late)) << "meeting " << round;
    }
}

} // namespace
} // namespace pedl
