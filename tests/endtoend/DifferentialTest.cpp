// The built library beside the plain evaluation of the whole effect, through the binary interface:
// random settings, sample rates, cuts, automation, transport positions and life-cycle calls.
//
// A story is drawn from a seed; the library and the reference live through it and must give the
// same sound. PEDL_TEST_SEED draws other stories.

#include "tests/endtoend/DifferentialTestCalendar.h"
#include "tests/reference/Music.h"
#include "tests/reference/PlainPedlFilter.h"
#include "tests/reference/RandomSettings.h"
#include "tests/support/PluginLibrary.h"

#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace pedl::test {
namespace {

using namespace pedl::reference;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr std::uint32_t kOneStoryIn = 8; // sanitizers look at memory, not at digits, and are slow
#else
constexpr std::uint32_t kOneStoryIn = 1;
#endif

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

struct Story {
    double rateAtEntryHz = 48000.0; // 0: the host does not know yet
    double rateHz = 48000.0;
    bool fillsOnlyAskedTime = false;
    std::vector<Step> steps;
    Sound sound;
    double tolerance = 0.0;
    double peakFall = 1.0;

    [[nodiscard]] std::string parameters() const {
        std::ostringstream text;
        text << rateAtEntryHz << " Hz at entry, then " << rateHz << " Hz";
        for (const auto& [index, normalised] : steps.front().changes)
            text << ", " << index << ": " << normalised;
        return text.str();
    }
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
    story.tolerance = with.tolerance;
    story.peakFall = with.peakFall;
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

/// The library's instance in a host that knows what the story says.
class LibraryPlayer {
public:
    LibraryPlayer(const PluginLibrary& library, const Story& story) {
        host_.sampleRateHz = static_cast<VstIntPtr>(story.rateAtEntryHz);
        host_.fillsOnlyAskedTime = story.fillsOnlyAskedTime;
        setCalendarSeconds(1);
        effect_ = library.create();
        host_.sampleRateHz = static_cast<VstIntPtr>(story.rateHz);
        dispatch(effect_, effOpen);
        setRate(story.rateHz);
        dispatch(effect_, effMainsChanged, 0, 1);
    }
    ~LibraryPlayer() { dispatch(effect_, effClose); }
    LibraryPlayer(const LibraryPlayer&) = delete;
    LibraryPlayer& operator=(const LibraryPlayer&) = delete;

    void prepare(const Step& step) {
        setTime(step.time);
        setCalendarSeconds(step.calendarSeconds);
        for (const auto& [index, normalised] : step.changes)
            effect_->setParameter(effect_, index, normalised);
        if (step.call == Call::RateAlone || step.call == Call::RateAndResume)
            setRate(step.rateHz);
        if (step.call == Call::Suspend || step.call == Call::SuspendAndResume)
            dispatch(effect_, effMainsChanged, 0, 0);
        if (step.call == Call::Resume || step.call == Call::SuspendAndResume ||
            step.call == Call::RateAndResume)
            dispatch(effect_, effMainsChanged, 0, 1);
    }

    void play(std::array<double*, 2> channels, int frames) {
        effect_->processDoubleReplacing(effect_, channels.data(), channels.data(), frames);
    }
    void play(std::array<float*, 2> channels, int frames) {
        effect_->processReplacing(effect_, channels.data(), channels.data(), frames);
    }

    [[nodiscard]] float parameter(int index) const { return effect_->getParameter(effect_, index); }

private:
    void setRate(double rateHz) {
        host_.sampleRateHz = static_cast<VstIntPtr>(rateHz);
        dispatch(effect_, effSetSampleRate, 0, 0, nullptr, static_cast<float>(rateHz));
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

    RecordingHost host_;
    VstTimeInfo time_{};
    AEffect* effect_ = nullptr;
};

class ReferencePlayer {
public:
    explicit ReferencePlayer(const Story& story)
        : filter_(story.rateAtEntryHz > 0.0 ? story.rateAtEntryHz : 44100.0, 1),
          rateHz_(story.rateHz) {
        filter_.setSampleRate(rateHz_);
        filter_.resume(rateHz_, 1);
    }

    void prepare(const Step& step) {
        filter_.setTime(step.time);
        for (const auto& [index, normalised] : step.changes)
            filter_.setParameter(index, normalised);
        if (step.call == Call::RateAlone || step.call == Call::RateAndResume) {
            rateHz_ = step.rateHz;
            filter_.setSampleRate(rateHz_);
        }
        if (step.call == Call::Suspend || step.call == Call::SuspendAndResume)
            filter_.suspend();
        if (step.call == Call::Resume || step.call == Call::SuspendAndResume ||
            step.call == Call::RateAndResume)
            filter_.resume(rateHz_, step.calendarSeconds);
    }

    void play(std::array<double*, 2> channels, int frames) {
        filter_.process(channels.data(), channels.data(), frames);
    }
    [[nodiscard]] float parameter(int index) const { return filter_.parameter(index); }

private:
    PlainPedlFilter filter_;
    double rateHz_;
};

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
    return meetsClip ? 1e-6 : story.tolerance * std::max(1.0, std::pow(rateHz / 48000.0, 2.0));
}

double peakOf(const double* samples, int frames) {
    double peak = 0.0;
    for (int i = 0; i < frames; ++i)
        peak = std::max(peak, std::abs(samples[i]));
    return peak;
}

/// Plays the story to both and compares sound and the rate that tempo sync has left.
///
/// Differences are measured against the peak of what was played until then.
template <typename Sample> class Comparison {
public:
    Comparison(const PluginLibrary& library, const Story& story)
        : story_(story), library_(library, story), reference_(story),
          tolerance_(toleranceOf(story)) {}

    void run() {
        std::size_t at = 0;
        for (std::size_t i = 0; i < story_.steps.size(); ++i) {
            const Step& step = story_.steps[i];
            library_.prepare(step);
            reference_.prepare(step);
            compareBlock(at, step.frames);
            if (testing::Test::HasFailure()) {
                ADD_FAILURE() << "step " << i << ", frame " << at << "; " << story_.parameters();
                return;
            }
            at += static_cast<std::size_t>(step.frames);
        }
    }

    [[nodiscard]] double worst() const { return worst_; }

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
        library_.play(std::array{actual[0].data(), actual[1].data()}, frames);
        reference_.play(std::array{expected[0].data(), expected[1].data()}, frames);

        peak_ = std::max(peak_ * std::pow(story_.peakFall, frames), 1e-6);
        for (const auto& channel : expected)
            peak_ = std::max(peak_, peakOf(channel.data(), frames));
        for (std::size_t c = 0; c < 2; ++c)
            for (std::size_t i = 0; i < count; ++i)
                compareSample(actual[c][i], expected[c][i], at + i, c);
        EXPECT_EQ(library_.parameter(kLFOFreq), reference_.parameter(kLFOFreq)) << "LFO rate";
    }

    void compareSample(Sample actual, double expected, std::size_t frame, std::size_t channel) {
        const double rounding = std::is_same_v<Sample, float>
                                    ? std::abs(expected) * std::numeric_limits<float>::epsilon()
                                    : 0.0;
        const double difference = std::abs(static_cast<double>(actual) - expected);
        worst_ = std::max(worst_, difference / peak_);
        if (!(difference <= tolerance_ * peak_ + rounding) && !testing::Test::HasFailure())
            ADD_FAILURE() << "frame " << frame << ", channel " << channel << ": " << actual
                          << " instead of " << expected << ", " << difference / peak_ << " of peak";
    }

    const Story& story_;
    LibraryPlayer library_;
    ReferencePlayer reference_;
    double tolerance_;
    double peak_ = 1e-6;
    double worst_ = 0.0;
};

class Differential : public testing::Test {
protected:
    template <typename Sample = double>
    void compareStories(std::uint32_t seedOtherwise, std::uint32_t count, const Ingredients& with,
                        const std::function<void(Story&, RandomChoice&)>& bend = {}) {
        const TestSeed seed = TestSeed::fromEnvironment(seedOtherwise);
        double worst = 0.0;
        for (std::uint32_t number = 0; number < count && !HasFailure(); number += kOneStoryIn) {
            SCOPED_TRACE(testing::Message() << seed << ", story " << number);
            const std::uint32_t storySeed = seed.value * 100000 + seedOtherwise * 1000 + number;
            Story story = tell(storySeed, with);
            if (bend) {
                RandomChoice random(storySeed + 7);
                bend(story, random);
            }
            Comparison<Sample> comparison(library_, story);
            comparison.run();
            worst = std::max(worst, comparison.worst());
        }
        std::ostringstream text;
        text << worst;
        RecordProperty("worstDifferenceOfPeak", text.str());
    }

    PluginLibrary library_{PEDL_PLUGIN_PATH};
};

TEST_F(Differential, AsItComesTheSoundIsTheDefaultProgram) {
    compareStories(1, 6, {.seconds = 1.0}, [](Story& story, RandomChoice&) {
        for (Step& step : story.steps)
            step.changes.clear();
    });
}

TEST_F(Differential, RandomSettings) {
    compareStories(2, 150, {});
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

TEST_F(Differential, RandomSettingsThroughTheFloatEntry) {
    compareStories<float>(3, 40, {});
}

TEST_F(Differential, Automation) {
    compareStories(4, 100, {.automates = true});
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

TEST_F(Differential, FreezeSwitchesOnAndOff) {
    compareStories(7, 30, {.automates = true}, [](Story& story, RandomChoice& random) {
        for (Step& step : story.steps)
            if (random.chance(0.1))
                step.changes.push_back({kFreez, random.chance(0.5) ? 1.0F : 0.0F});
    });
}

TEST_F(Differential, RoutingAndOutputSwitchesChangeWhileItSounds) {
    compareStories(8, 30, {.automates = true, .loudness = 3.0},
                   [](Story& story, RandomChoice& random) {
                       for (Step& step : story.steps)
                           for (const int index : {kLimSoftSatRouting, kLimiterDefeat,
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
