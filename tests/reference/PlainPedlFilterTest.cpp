// Guards of the reference itself: its figures against theory, so that a difference from the engine
// is not settled by trusting the wrong one.

#include "tests/reference/PlainPedlFilter.h"

#include <gtest/gtest.h>

namespace pedl::reference {
namespace {

constexpr double kRateHz = 44100.0;
constexpr std::uint32_t kSeed = 1;

double decibels(double factor) {
    return 20.0 * std::log10(factor);
}

/// Largest left output of the last quarter of `seconds` of a sine.
double peakAfterSine(PlainPedlFilter& effect, double frequencyHz, double amplitude,
                     double seconds) {
    double peak = 0.0;
    const int frames = static_cast<int>(seconds * kRateHz);
    for (int i = 0; i < frames; ++i) {
        double left = amplitude * std::sin(2.0 * kPi * frequencyHz * i / kRateHz), right = left;
        double* const channels[]{&left, &right};
        effect.process(channels, channels, 1);
        if (i > frames * 3 / 4)
            peak = std::max(peak, std::abs(left));
    }
    return peak;
}

/// Filter alone: no modulation, no output stages.
PlainPedlFilter filterAlone(float type, float slope, float resonance) {
    PlainPedlFilter effect(kRateHz, kSeed);
    for (const int index : {kFilterFreqByENVDefeat, kLimiterDefeat, kSoftSatDefeat})
        effect.setParameter(index, 0.0F);
    effect.setParameter(kFilterSaturation, 0.0F);
    effect.setParameter(kFilterType, type);
    effect.setParameter(kFilterPole, slope);
    effect.setParameter(kFilterReso, resonance);
    effect.setParameter(kFilterCutoffFreq, 0.566323F); // 1000 Hz
    return effect;
}

TEST(PlainPedlFilter, GainAtTheCutoffIsTheResonance) {
    struct Row {
        float type, slope, resonance;
        double expectedDb;
    };
    for (const Row& row : {Row{0.0F, 0.5F, 0.0F, -10.46}, Row{0.0F, 0.5F, 0.5F, 9.54},
                           Row{0.5F, 0.5F, 0.5F, 9.54}, Row{1.0F, 0.5F, 0.5F, 9.54},
                           Row{0.0F, 1.0F, 0.0F, -12.04}, Row{1.0F, 1.0F, 0.5F, 7.96}}) {
        SCOPED_TRACE(testing::Message() << "type " << row.type << ", slope " << row.slope
                                        << ", resonance " << row.resonance);
        PlainPedlFilter effect = filterAlone(row.type, row.slope, row.resonance);
        EXPECT_NEAR(decibels(peakAfterSine(effect, 1000.0, 0.001, 1.0) / 0.001), row.expectedDb,
                    0.05);
    }
}

TEST(PlainPedlFilter, SlopeIsTwelveOrTwentyFourDecibelsAnOctave) {
    for (const float slope : {0.5F, 1.0F}) {
        PlainPedlFilter low = filterAlone(1.0F, slope, 0.4F),
                        lower = filterAlone(1.0F, slope, 0.4F);
        const double fall =
            peakAfterSine(low, 100.0, 1.0, 1.0) / peakAfterSine(lower, 50.0, 1.0, 1.0);
        EXPECT_NEAR(decibels(fall), slope == 0.5F ? 12.04 : 24.08, 0.2);
    }
}

TEST(PlainPedlFilter, LimiterHoldsASteadyLevelAtItsCeiling) {
    PlainLimiter limiter;
    limiter.setLevel(1.0);
    limiter.setSampleRate(kRateHz);
    Stereo frame{};
    for (int i = 0; i < 20000; ++i) {
        frame = {1.0, -0.5};
        limiter.process(frame);
    }
    EXPECT_NEAR(frame[0], 0.0891, 0.0002);
    EXPECT_NEAR(frame[1], -0.5 * 0.0891, 0.0001);
}

TEST(PlainPedlFilter, EnvelopeReadsTheLevelAboveTheThreshold) {
    PlainEnvelope envelope;
    envelope.setSampleRate(kRateHz);
    envelope.setThreshold(0.5);    // -24 dB
    envelope.setRange(0.57735027); // one for one
    envelope.setRelease(0.0);
    envelope.setAttack(0.0F);
    envelope.reinitialise();
    EnvelopeFrame frame;
    for (int i = 0; i < 4410; ++i)
        frame = envelope.process({0.1, 0.1}, 0.0);
    EXPECT_NEAR(frame.level, 0.5 * std::log10(0.02 * 0.707 * std::sqrt(63096.0)), 1e-4);
}

TEST(PlainPedlFilter, LfoRunsAtItsRate) {
    PlainLfo lfo(kSeed);
    lfo.setRate(0.066044);
    int cycles = 0;
    double last = 0.0;
    for (int i = 0; i < static_cast<int>(20.1 * kRateHz); ++i) {
        const double now = lfo.process(0.01 + 14.99 * 0.066044)[0];
        cycles += last < 0.0 && now >= 0.0 ? 1 : 0;
        last = now;
    }
    EXPECT_EQ(cycles, 20);
}

TEST(PlainPedlFilter, TempoSyncSetsTheRateAndItsBounds) {
    struct Row {
        float division, tempo;
        double rateHz;
    };
    for (const Row& row :
         {Row{8.5F / 31, 0.1794872F, 0.5}, Row{0.0F, 0.0F, 0.01}, Row{1.0F, 1.0F, 15.0}}) {
        PlainPedlFilter effect(kRateHz, kSeed);
        effect.setTime(HostTime{});
        effect.setParameter(kLFOSyncMode, 0.5F);
        effect.setParameter(kTempoSetup, row.tempo);
        effect.setParameter(kLFOSynchroRate, row.division);
        EXPECT_NEAR(effect.readMeters().lfoRateHz, row.rateHz, 1e-5);
    }
}

TEST(PlainPedlFilter, WithEverythingOffTheInputPasses) {
    PlainPedlFilter effect = filterAlone(0.0F, 0.0F, 0.0F);
    effect.setParameter(kDryDefeat, 1.0F);
    EXPECT_NEAR(peakAfterSine(effect, 441.0, 0.25, 2.0), 0.5, 1e-6); // wet and dry add up
}

} // namespace
} // namespace pedl::reference
