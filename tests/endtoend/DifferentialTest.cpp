// The effect beside the plain evaluation of all of it, through the binary interface: random
// settings, sample rates, cuts, automation, transport positions and life-cycle calls.
//
// A story is drawn from a seed; the effect and the reference live through it and must give the
// same sound. PEDL_TEST_SEED draws other stories.

#include "plugin/ZMTpedlFilterEffect.h"
#include "tests/reference/Music.h"
#include "tests/reference/PlainPedlFilter.h"
#include "tests/reference/RandomSettings.h"
#include "tests/support/MemorySettings.h"
#include "tests/support/RecordingHost.h"
#include "tests/support/Thoroughness.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <memory>
#include <optional>

namespace pedl::test {
namespace {

using namespace reference;
using reference::HostTime; // the effect has one of its own

enum class Call { None, Suspend, Resume, SuspendAndResume, RateAlone, RateAndResume };

/// What happens before a block, and the block's length.
struct Step {
    std::vector<ParameterValue> changes;
    std::optional<HostTime> time;
    Call call = Call::None;
    double rateHz = 0.0; // for the calls that bring one
    std::uint32_t calendarSeconds = 1;
    int frames = 0;
};

struct Ingredients {
    double seconds = 0.5;
    bool automates = false;
    bool synchronises = false;
    bool restarts = false;
    double loudness = 1.0;
    double tolerance = 5e-9; // of the peak, at 48 kHz
    double peakFall = 1.0; // a frame; below 1, so that a loud accident does not cover what follows
};

struct Story {
    double rateAtEntryHz = 48000.0; // 0: the host does not know yet
    double rateHz = 48000.0;
    bool fillsOnlyAskedTime = false;
    std::vector<Step> steps;
    Sound sound;
    Ingredients with;
};

double usualRateHz(RandomChoice& random) {
    return random.of<double>({44100.0, 44100.0, 48000.0, 48000.0, 88200.0, 96000.0, 192000.0,
                              22050.0, 32000.0, 384000.0, 500000.0});
}

int blockFrames(RandomChoice& random) {
    const int longest = random.of<int>({2, 16, 64, 128, 129, 256, 512, 2048});
    return random.below(longest + 1); // 0 among them
}

/// Moves on with the song; now and then jumps, stands on the grid, or loses a field.
class Transport {
public:
    explicit Transport(RandomChoice& random)
        : random_(random), tempoBpm_(random.between(40.0, 240.0)) {}

    std::optional<HostTime> next(int frames, double rateHz) {
        positionQuarters_ += frames / rateHz * tempoBpm_ / 60.0;
        if (random_.chance(0.05))
            positionQuarters_ = random_.between(-8.0, 200.0);
        if (random_.chance(0.05))
            positionQuarters_ = random_.below(128) / 8.0;
        if (random_.chance(0.03))
            tempoBpm_ = random_.of<double>({10.0, 15.0, 90.0, 120.0, 133.7, 600.0, 700.0});
        if (random_.chance(0.03))
            return std::nullopt;
        HostTime time{tempoBpm_, positionQuarters_};
        if (random_.chance(0.05))
            time.tempoBpm.reset();
        if (random_.chance(0.05))
            time.positionQuarters.reset();
        return time;
    }

private:
    RandomChoice& random_;
    double tempoBpm_;
    double positionQuarters_ = 0.0;
};

Story tell(std::uint32_t seed, const Ingredients& with) {
    RandomChoice random(seed);
    Story story;
    story.with = with;
    story.rateHz = usualRateHz(random);
    story.rateAtEntryHz = random.chance(0.3) ? usualRateHz(random) : story.rateHz;
    if (random.chance(0.2))
        story.rateAtEntryHz = 0.0;
    story.fillsOnlyAskedTime = random.chance(0.3);
    const auto total = static_cast<int>(with.seconds * 48000.0);
    story.sound = music(static_cast<std::size_t>(total), story.rateHz, seed);
    for (auto& channel : story.sound)
        for (double& sample : channel)
            sample *= with.loudness;

    Transport transport(random);
    double rateHz = story.rateHz;
    for (int told = 0; told < total;) {
        Step step;
        if (told == 0 && story.steps.empty()) {
            step.changes = randomProgram(random);
            if (!with.synchronises)
                step.changes.push_back({kLFOSyncMode, 0.0F});
        } else if (with.automates && random.chance(0.4)) {
            step.changes = randomChanges(random, 1 + random.below(4));
        }
        if (story.steps.empty() || (with.restarts && random.chance(0.05))) {
            step.call = static_cast<Call>(random.below(6));
            step.rateHz = random.chance(0.5) ? rateHz : usualRateHz(random);
        }
        step.calendarSeconds = static_cast<std::uint32_t>(random.below(2000000000));
        step.frames = std::min(blockFrames(random), total - told);
        if (with.synchronises)
            step.time = transport.next(step.frames, rateHz);
        told += step.frames;
        story.steps.push_back(std::move(step));
    }
    return story;
}

/// A clock that a test sets: the seed of the random waves is known.
struct SetClock final : Clock {
    [[nodiscard]] std::uint32_t tickMs() const override { return 0; }
    void sleepMs(std::uint32_t) override {}
    [[nodiscard]] std::uint32_t calendarSeconds() const override { return seconds; }

    std::uint32_t seconds = 1;
};

struct NoLines final : DiagnosticStream {
    void line(std::string_view) override {}
};

/// The effect in a host that knows what the story says.
class EffectPlayer {
public:
    explicit EffectPlayer(const Story& story) {
        host_.sampleRateHz = static_cast<VstIntPtr>(story.rateAtEntryHz);
        host_.fillsOnlyAskedTime = story.fillsOnlyAskedTime;
        effect_ = std::make_unique<ZMTpedlFilterEffect>(
            RecordingHost::callback, EffectSurroundings{clock_, diagnostics_, settings_});
        setRate(story.rateHz);
        resume(1);
    }

    void set(int index, float normalised) { record()->setParameter(record(), index, normalised); }
    void setRate(double rateHz) {
        host_.sampleRateHz = static_cast<VstIntPtr>(rateHz);
        dispatch(effSetSampleRate, 0, static_cast<float>(rateHz));
    }
    void setTime(const std::optional<HostTime>& time) {
        host_.time = time ? &time_ : nullptr;
        if (!time)
            return;
        time_ = {};
        time_.flags =
            (time->tempoBpm ? kVstTempoValid : 0) | (time->positionQuarters ? kVstPpqPosValid : 0);
        time_.tempo = time->tempoBpm.value_or(77.0); // not to be read
        time_.ppqPos = time->positionQuarters.value_or(1.23);
    }
    void suspend() { dispatch(effMainsChanged, 0); }
    void resume(std::uint32_t calendarSeconds) {
        clock_.seconds = calendarSeconds;
        dispatch(effMainsChanged, 1);
    }

    void play(std::array<double*, 2> channels, int frames) {
        record()->processDoubleReplacing(record(), channels.data(), channels.data(), frames);
    }
    void play(std::array<float*, 2> channels, int frames) {
        record()->processReplacing(record(), channels.data(), channels.data(), frames);
    }

    [[nodiscard]] float parameter(int index) { return record()->getParameter(record(), index); }

private:
    AEffect* record() { return effect_->getAeffect(); }

    void dispatch(VstInt32 opcode, VstIntPtr value, float opt = 0.0F) {
        record()->dispatcher(record(), opcode, 0, value, nullptr, opt);
    }

    RecordingHost host_;
    SetClock clock_;
    NoLines diagnostics_;
    MemorySettings settings_;
    VstTimeInfo time_{};
    std::unique_ptr<ZMTpedlFilterEffect> effect_;
};

class ReferencePlayer {
public:
    explicit ReferencePlayer(const Story& story)
        : filter_(story.rateAtEntryHz > 0.0 ? story.rateAtEntryHz : 44100.0, 1) {
        setRate(story.rateHz);
        resume(1);
    }

    void set(int index, float normalised) { filter_.setParameter(index, normalised); }
    void setRate(double rateHz) {
        rateHz_ = rateHz;
        filter_.setSampleRate(rateHz);
    }
    void setTime(const std::optional<HostTime>& time) { filter_.setTime(time); }
    void suspend() { filter_.suspend(); }
    void resume(std::uint32_t calendarSeconds) { filter_.resume(rateHz_, calendarSeconds); }

    void play(std::array<double*, 2> channels, int frames) {
        filter_.process(channels.data(), channels.data(), frames);
    }
    [[nodiscard]] float parameter(int index) const { return filter_.parameter(index); }

private:
    PlainPedlFilter filter_;
    double rateHz_ = 0.0;
};

template <typename Player> void prepare(Player& player, const Step& step) {
    player.setTime(step.time);
    for (const auto& [index, normalised] : step.changes)
        player.set(index, normalised);
    if (step.call == Call::RateAlone || step.call == Call::RateAndResume)
        player.setRate(step.rateHz);
    if (step.call == Call::Suspend || step.call == Call::SuspendAndResume)
        player.suspend();
    if (step.call == Call::Resume || step.call == Call::SuspendAndResume ||
        step.call == Call::RateAndResume)
        player.resume(step.calendarSeconds);
}

/// How far two right answers may lie apart. A clip that meets a high resonance makes roundings grow
/// without end. A cut-off that is very low for its rate leaves few digits in the coefficients, the
/// fewer by the rate's square: doubles lie 5e-9 of the peak off a wider arithmetic at 48 kHz and
/// 20 Hz, and as far off each other when a product is taken in another order.
double toleranceOf(const Story& story) {
    float resonance = 0.0F, saturation = 0.0F;
    double rateHz = story.rateHz;
    bool meetsClip = false;
    for (const Step& step : story.steps) {
        rateHz = std::max(rateHz, std::min(step.rateHz, 384000.0));
        for (const auto& [index, normalised] : step.changes) {
            resonance = index == kFilterReso ? normalised : resonance;
            saturation = index == kFilterSaturation ? normalised : saturation;
        }
        meetsClip = meetsClip || (resonance > 0.6F && saturation > 0.1F);
    }
    return meetsClip ? 1e-6 : story.with.tolerance * std::max(1.0, std::pow(rateHz / 48000.0, 2.0));
}

/// Plays the story to both and compares sound and the rate that tempo sync has left.
///
/// Differences are measured against the peak of what was played until then.
template <typename Sample> class Comparison {
public:
    explicit Comparison(const Story& story)
        : story_(story), effect_(story), reference_(story), tolerance_(toleranceOf(story)) {}

    void run() {
        std::size_t at = 0;
        for (std::size_t i = 0; i < story_.steps.size(); ++i) {
            const Step& step = story_.steps[i];
            prepare(effect_, step);
            prepare(reference_, step);
            compareBlock(at, step.frames);
            if (testing::Test::HasFailure()) {
                ADD_FAILURE() << "step " << i << ", frame " << at;
                return;
            }
            at += static_cast<std::size_t>(step.frames);
        }
    }

private:
    void compareBlock(std::size_t at, int frames) {
        const auto count = static_cast<std::size_t>(frames);
        std::array<std::vector<Sample>, 2> actual;
        std::array<std::vector<double>, 2> expected;
        for (std::size_t c = 0; c < 2; ++c) {
            const auto from = story_.sound[c].begin() + static_cast<std::ptrdiff_t>(at);
            actual[c].assign(from, from + frames);
            expected[c].assign(actual[c].begin(), actual[c].end()); // what a float host rounded
        }
        effect_.play(std::array{actual[0].data(), actual[1].data()}, frames);
        reference_.play(std::array{expected[0].data(), expected[1].data()}, frames);

        peak_ = std::max(peak_ * std::pow(story_.with.peakFall, frames), 1e-6);
        for (const auto& channel : expected)
            for (const double sample : channel)
                peak_ = std::max(peak_, std::abs(sample));
        for (std::size_t c = 0; c < 2; ++c)
            for (std::size_t i = 0; i < count; ++i)
                compareSample(actual[c][i], expected[c][i], at + i, c);
        EXPECT_EQ(effect_.parameter(kLFOFreq), reference_.parameter(kLFOFreq)) << "LFO rate";
    }

    void compareSample(Sample actual, double expected, std::size_t frame, std::size_t channel) {
        const double rounding = std::is_same_v<Sample, float>
                                    ? std::abs(expected) * std::numeric_limits<float>::epsilon()
                                    : 0.0;
        const double difference = std::abs(static_cast<double>(actual) - expected);
        if (!(difference <= tolerance_ * peak_ + rounding) && !testing::Test::HasFailure())
            ADD_FAILURE() << "frame " << frame << ", channel " << channel << ": " << actual
                          << " instead of " << expected << ", " << difference / peak_ << " of peak";
    }

    const Story& story_;
    EffectPlayer effect_;
    ReferencePlayer reference_;
    double tolerance_;
    double peak_ = 1e-6;
};

class Differential : public testing::Test {
protected:
    template <typename Sample = double>
    void compareStories(std::uint32_t seedOtherwise, std::uint32_t count, const Ingredients& with,
                        const std::function<void(Story&, RandomChoice&)>& bend = {}) {
        const TestSeed seed = TestSeed::fromEnvironment(seedOtherwise);
        const std::uint32_t step = count / asManyAs(count); // those that run lie all over the list
        for (std::uint32_t number = 0; number < count && !HasFailure(); number += step) {
            SCOPED_TRACE(testing::Message() << seed << ", story " << number);
            const std::uint32_t storySeed = seed.value * 100000 + seedOtherwise * 1000 + number;
            Story story = tell(storySeed, with);
            if (bend) {
                RandomChoice random(storySeed + 7);
                bend(story, random);
            }
            Comparison<Sample> comparison(story);
            comparison.run();
        }
    }
};

TEST_F(Differential, AsItComesTheSoundIsTheDefaultProgram) {
    compareStories(1, 6, {.seconds = 1.0}, [](Story& story, RandomChoice&) {
        for (Step& step : story.steps)
            step.changes.clear();
    });
}

// Quarters and silence meet bounds exactly: a modulation that reaches just the last entry of a
// table, a level at its floor. A last bit less, and it is the entry before.
TEST_F(Differential, RoundSettingsOverSoundAndSilence) {
    compareStories(11, 150, {.seconds = 0.2}, [](Story& story, RandomChoice& random) {
        for (auto& [index, normalised] : story.steps.front().changes)
            if (index != kPower && index != kLFOType)
                normalised = std::round(normalised * 4.0F) / 4.0F;
        if (random.chance(0.3)) { // in silence the envelope opens the filter just to its end
            const bool fromBelow = random.chance(0.5);
            for (const ParameterValue& value : {ParameterValue{kEnvThresholdMode, 0.5F},
                                                {kEnvRange, 1.0F},
                                                {kFilterFreqByENVDefeat, 1.0F},
                                                {kModulationOnOff, 0.0F},
                                                {kFilterFreqByENV, fromBelow ? 0.25F : 0.375F},
                                                {kFilterCutoffFreq, fromBelow ? 0.0F : 0.5F}})
                story.steps.front().changes.push_back(value);
        }
        for (auto& channel : story.sound)
            std::fill(channel.begin() + 2000, channel.begin() + 7000, 0.0);
    });
}

TEST_F(Differential, Automation) {
    compareStories(4, 150, {.automates = true});
}

TEST_F(Differential, AutomationThroughTheFloatEntry) {
    compareStories<float>(3, 40, {.automates = true});
}

TEST_F(Differential, TempoSync) {
    compareStories(5, 100, {.automates = true, .synchronises = true},
                   [](Story& story, RandomChoice& random) {
                       const float mode = random.chance(0.7) ? 1.0F : 0.5F;
                       story.steps.front().changes.push_back({kLFOSyncMode, mode});
                       if (random.chance(0.5)) // else the phase stays free most of the time
                           story.steps.front().changes.push_back({kRateLFOByEnvDefeat, 0.0F});
                   });
}

TEST_F(Differential, SuspendResumeAndNewRatesInTheMiddle) {
    compareStories(6, 80, {.automates = true, .restarts = true});
}

TEST_F(Differential, FreezeRoutingAndOutputSwitchesChangeWhileItSounds) {
    compareStories(8, 40, {.automates = true, .loudness = 3.0},
                   [](Story& story, RandomChoice& random) {
                       for (Step& step : story.steps)
                           for (const int index : {kFreez, kLimSoftSatRouting, kLimiterDefeat,
                                                   kSoftSatDefeat, kWetDefeat, kDryDefeat, kPower})
                               if (random.chance(0.05))
                                   step.changes.push_back({index, randomValue(random, index)});
                   });
}

TEST_F(Differential, BadSamplesAreTakenAsTheReferenceTakesThem) {
    compareStories(9, 60, {.automates = true}, [](Story& story, RandomChoice& random) {
        for (auto& channel : story.sound)
            for (double& sample : channel)
                if (random.chance(0.002))
                    sample = random.of<double>({std::numeric_limits<double>::quiet_NaN(),
                                                std::numeric_limits<double>::infinity(),
                                                -std::numeric_limits<double>::infinity(), 1e-310,
                                                -1e-38, 0.0, -0.0, 100.0});
    });
}

TEST_F(Differential, OneEnormousSampleIsLivedThroughAlike) {
    compareStories(10, 40, {.tolerance = 1e-6, .peakFall = 0.99998},
                   [](Story& story, RandomChoice& random) {
                       for (auto& channel : story.sound)
                           if (random.chance(0.7))
                               channel[2000 + static_cast<std::size_t>(random.below(3000))] =
                                   random.of<double>({1e30, -1e30, 1e10, 1e20});
                   });
}

} // namespace
} // namespace pedl::test
