// The engine beside the plain evaluation, below the host interface: meters, instruction sets and
// the cutting of a stream into blocks, over random settings.

#include "tests/reference/EnginePlayer.h"
#include "tests/support/Thoroughness.h"

#include <gtest/gtest.h>

namespace pedl::reference {
namespace {

using test::asManyAs;

double peakOf(const Sound& sound) {
    double peak = 0.0;
    for (const auto& channel : sound)
        for (const double sample : channel)
            peak = std::max(peak, std::abs(sample));
    return peak;
}

void expectSameFigures(StagedPlayer& staged, PlainPlayer& plain) {
    const auto expectClose = [](double value, double wanted, const char* what, double share) {
        EXPECT_NEAR(value, wanted, share * std::max(1.0, std::abs(wanted))) << what;
    };
    const MeterSnapshot meters = staged.meters(), wanted = plain.meters();
    constexpr double kRounding = 1e-8;
    expectClose(meters.envelopeLevel, wanted.envelopeLevel, "envelope level", kRounding);
    expectClose(meters.dryPeak, wanted.dryPeak, "dry peak", kRounding);
    expectClose(meters.wetPeak, wanted.wetPeak, "wet peak", kRounding);
    expectClose(meters.lfoLeft, wanted.lfoLeft, "LFO left", kRounding);
    expectClose(meters.lfoRight, wanted.lfoRight, "LFO right", kRounding);
    expectClose(meters.limiterGain, wanted.limiterGain, "limiter gain", kRounding);
    expectClose(meters.saturationLevel, wanted.saturationLevel, "saturation level", kRounding);
    expectClose(meters.lfoRateHz, wanted.lfoRateHz, "LFO rate", kRounding);
    const ModulationState used = staged.modulation(), usedThere = plain.modulation();
    constexpr double kTableStep = 1e-4; // a rounding may choose the neighbouring cut-off
    expectClose(used.cutoffLeftHz, usedThere.cutoffLeftHz, "cut-off left", kTableStep);
    expectClose(used.cutoffRightHz, usedThere.cutoffRightHz, "cut-off right", kTableStep);
    expectClose(used.lfoLeft, usedThere.lfoLeft, "used LFO left", kRounding);
    expectClose(used.lfoRight, usedThere.lfoRight, "used LFO right", kRounding);
    expectClose(used.envelopeGain, usedThere.envelopeGain, "envelope gain", kRounding);
    expectClose(used.gainLeft, usedThere.gainLeft, "gain left", kRounding);
    expectClose(used.gainRight, usedThere.gainRight, "gain right", kRounding);
}

std::vector<ParameterValue> programOf(RandomChoice& random) {
    std::vector<ParameterValue> program = randomProgram(random);
    // Where the clip meets a high resonance, a rounding grows: what these tests look at does not
    // need it.
    program.push_back({kFilterReso, static_cast<float>(random.between(0.0, 0.6))});
    return program;
}

TEST(EngineDifference, MetersAndModulationAreThoseOfThePlainEvaluation) {
    const TestSeed seed = TestSeed::fromEnvironment(1);
    for (std::uint32_t run = 0; run < asManyAs(40U); ++run) {
        SCOPED_TRACE(testing::Message() << seed << ", run " << run);
        RandomChoice random(seed.value * 1000 + run);
        const double rateHz = random.of<double>({44100.0, 48000.0, 96000.0, 192000.0});
        const auto program = programOf(random);
        StagedPlayer staged(rateHz, program);
        PlainPlayer plain(rateHz, program);
        expectSameFigures(staged, plain);
        Sound actual = music(12000, rateHz, run), expected = actual;
        for (std::size_t first = 0; first < 12000; first += 1000) {
            staged.play(actual, first, 1000);
            plain.play(expected, first, 1000);
            expectSameFigures(staged, plain);
            const auto changes = randomChanges(random, 2);
            staged.apply(changes);
            plain.apply(changes);
        }
    }
}

TEST(EngineDifference, EveryInstructionSetGivesTheSameBits) {
    if (widestInstructionSet() == InstructionSet::Sse2)
        GTEST_SKIP() << "this processor has one set alone";
    const TestSeed seed = TestSeed::fromEnvironment(2);
    for (std::uint32_t run = 0; run < asManyAs(100U); ++run) {
        SCOPED_TRACE(testing::Message() << seed << ", run " << run);
        RandomChoice random(seed.value * 1000 + run);
        const auto program = randomProgram(random);
        StagedPlayer narrow(48000.0, program, InstructionSet::Sse2);
        StagedPlayer wide(48000.0, program, InstructionSet::Avx2);
        Sound first = music(10000, 48000.0, run), second = first;
        for (std::size_t at = 0; at < 10000; at += 1000) {
            narrow.play(first, at, 1000);
            wide.play(second, at, 1000);
            const auto changes = randomChanges(random, 3);
            narrow.apply(changes);
            wide.apply(changes);
        }
        ASSERT_EQ(first, second);
    }
}

TEST(EngineDifference, NeitherTheCutOfTheStreamNorItsMemoryIsHeard) {
    const TestSeed seed = TestSeed::fromEnvironment(3);
    for (std::uint32_t run = 0; run < asManyAs(100U); ++run) {
        SCOPED_TRACE(testing::Message() << seed << ", run " << run);
        RandomChoice random(seed.value * 1000 + run);
        const auto program = programOf(random);
        StagedPlayer whole(48000.0, program);
        StagedPlayer cut(48000.0, program);
        const Sound input = music(10000, 48000.0, run);
        Sound expected = input, actual = input;
        whole.play(input, expected);
        for (int at = 0; at < 10000;) {
            const int longest = random.of<int>({1, 3, 64, 127, 129, 700});
            const int frames = std::min(random.below(longest + 1), 10000 - at);
            cut.play(actual, static_cast<std::size_t>(at), frames);
            at += frames;
        }
        // The ticks' alternating hair of 1e-36 starts anew with every block.
        const double tolerance = 1e-13 * peakOf(expected) + 1e-30;
        for (std::size_t c = 0; c < 2; ++c)
            for (std::size_t i = 0; i < 10000; ++i)
                ASSERT_NEAR(actual[c][i], expected[c][i], tolerance);
    }
}

} // namespace
} // namespace pedl::reference
