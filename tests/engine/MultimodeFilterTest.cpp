#include "engine/MultimodeFilter.h"

#include "engine/CutoffPath.h"
#include "tests/engine/Signals.h"

#include <gtest/gtest.h>

#include <memory>

namespace pedl {
namespace {

using namespace test;

constexpr double kRateHz = 44100.0;
constexpr double kUnsaturated = 0.001;
constexpr double kImpulse = 1e-3;

struct Setting {
    double type = 0.0, resonance = 0.0;
    bool is24Db = false;
    double saturation = kUnsaturated;
};

void apply(MultimodeFilter& filter, const Setting& setting) {
    filter.setSlope(setting.is24Db);
    filter.setType(setting.type);
    filter.setResonance(setting.resonance);
    filter.setSaturation(setting.saturation);
}

StereoSamples filtered(MultimodeFilter& filter, const StereoSamples& input, double leftHz,
                       double rightHz) {
    CutoffStretch cutoff;
    cutoff.isConstant = true;
    for (int i = 0; i < kStretchFrames; ++i) {
        cutoff.hz.at[2 * i] = leftHz;
        cutoff.hz.at[2 * i + 1] = rightHz;
    }
    StereoStretch stretch;
    StereoSamples output;
    inStretches(static_cast<int>(input.left.size()), [&](int first, int length) {
        load(input, first, length, stretch);
        filter.process(stretch, cutoff, length);
        append(stretch, length, output);
    });
    return output;
}

StereoSamples mono(const Samples& samples) {
    StereoSamples both;
    both.left = both.right = samples;
    return both;
}

/// A filter whose ramps have ended and whose zeros have glided to their type.
struct SettledFilter : MultimodeFilter {
    SettledFilter(double rateHz, const Setting& setting, double cutoffHz)
        : MultimodeFilter(rateHz) {
        apply(*this, setting);
        reset();
        const auto halfSecond = static_cast<std::size_t>(0.5 * rateHz);
        (void)filtered(*this, StereoSamples(halfSecond), cutoffHz, cutoffHz);
    }
};

double resonanceOf(const Setting& setting) {
    return setting.is24Db ? 0.5 * std::pow(10.0, setting.resonance)
                          : 0.3 * std::pow(100.0, setting.resonance);
}

Samples impulseResponse(double rateHz, const Setting& setting, double cutoffHz) {
    SettledFilter filter(rateHz, setting, cutoffHz);
    const double timeConstantSeconds = std::max(resonanceOf(setting), 3.0) / (kPi * cutoffHz);
    StereoSamples impulse(static_cast<std::size_t>((12.0 * timeConstantSeconds + 0.01) * rateHz));
    impulse.left[0] = impulse.right[0] = kImpulse;
    return filtered(filter, impulse, cutoffHz, cutoffHz).left;
}

/// The frequency nearest to `hz` at which the filter's sine and cosine are exact.
double onGrid(double hz) {
    const double index = std::round((hz - 20.0) / 19980.0 * 65535.0);
    return 20.0 + 19980.0 * index / 65535.0;
}

TEST(MultimodeFilter, EachStageHasTheResonanceAsItsGainAtTheCutoffWhateverTheType) {
    for (const double rateHz : {44100.0, 192000.0})
        for (const Setting& setting :
             {Setting{0.0, 0.0, false}, Setting{0.0, 1.0, false}, Setting{0.3, 0.5, false},
              Setting{0.5, 0.0, false}, Setting{0.5, 1.0, false}, Setting{0.8, 0.5, false},
              Setting{1.0, 0.0, false}, Setting{1.0, 1.0, false}, Setting{0.0, 0.0, true},
              Setting{0.0, 1.0, true}, Setting{0.5, 0.5, true}, Setting{1.0, 1.0, true}})
            for (const double wantedHz : {20.0, 440.0, 5000.0, 20000.0}) {
                const double hz = onGrid(wantedHz);
                SCOPED_TRACE(testing::Message() << rateHz << " Hz, " << (setting.is24Db ? 24 : 12)
                                                << " dB, resonance " << setting.resonance
                                                << ", type " << setting.type << ", cut-off " << hz);
                const double nearNyquist = 1.0 - std::pow(hz / (0.5001 * rateHz), 6.0);
                const double stageDb = db(nearNyquist * resonanceOf(setting));
                const Samples response = impulseResponse(rateHz, setting, hz);
                EXPECT_NEAR(gainDb(response, kImpulse, hz, rateHz),
                            setting.is24Db ? 2.0 * stageDb : stageDb, 0.02);
            }
}

TEST(MultimodeFilter, PassbandHasUnitGainWhateverTheResonance) {
    for (const bool is24Db : {false, true})
        for (const double resonance : {0.2, 0.7, 1.0}) {
            SCOPED_TRACE(testing::Message() << (is24Db ? 24 : 12) << " dB, " << resonance);
            const Samples low = impulseResponse(kRateHz, {0.0, resonance, is24Db}, 1000.0);
            EXPECT_NEAR(gainDb(low, kImpulse, 1.0, kRateHz), 0.0, 0.01);
            const Samples high = impulseResponse(kRateHz, {1.0, resonance, is24Db}, 1000.0);
            EXPECT_NEAR(gainDb(high, kImpulse, 0.5 * kRateHz, kRateHz), 0.0, 0.01);
        }
}

TEST(MultimodeFilter, SkirtsFallByTheStatedDecibelsAnOctave) {
    constexpr double kFastRateHz = 192000.0; // far from Nyquist the skirts are straight
    struct Row {
        const char* story;
        double type;
        bool is24Db;
        double nearHz, dbAnOctave; // measured from `nearHz` outwards
    };
    for (const Row& row : {Row{"low-pass 12", 0.0, false, 8000.0, -12.0},
                           Row{"low-pass 24", 0.0, true, 8000.0, -24.0},
                           Row{"high-pass 12", 1.0, false, 31.25, -12.0},
                           Row{"high-pass 24", 1.0, true, 31.25, -24.0},
                           Row{"band-pass 12, above", 0.5, false, 8000.0, -6.0},
                           Row{"band-pass 12, below", 0.5, false, 31.25, -6.0},
                           Row{"band-pass 24, above", 0.5, true, 8000.0, -12.0},
                           Row{"band-pass 24, below", 0.5, true, 31.25, -12.0}}) {
        SCOPED_TRACE(row.story);
        const Samples response = impulseResponse(kFastRateHz, {row.type, 0.4, row.is24Db}, 500.0);
        const double farHz = row.nearHz > 500.0 ? 2.0 * row.nearHz : 0.5 * row.nearHz;
        const double fall = gainDb(response, kImpulse, farHz, kFastRateHz) -
                            gainDb(response, kImpulse, row.nearHz, kFastRateHz);
        EXPECT_NEAR(fall, row.dbAnOctave, 0.8);
    }
}

TEST(MultimodeFilter, BandPassIsSymmetricAboutItsCutoff) {
    constexpr double kFastRateHz = 192000.0;
    const Samples response = impulseResponse(kFastRateHz, {0.5, 0.5, false}, onGrid(500.0));
    for (const double ratio : {1.1, 2.0, 8.0})
        EXPECT_NEAR(gainDb(response, kImpulse, 500.0 * ratio, kFastRateHz),
                    gainDb(response, kImpulse, 500.0 / ratio, kFastRateHz), 0.1)
            << "ratio " << ratio;
}

TEST(MultimodeFilter, EachChannelHasItsOwnCutoff) {
    SettledFilter filter(kRateHz, {0.0, 0.5, false}, 500.0);
    StereoSamples impulse(20000);
    impulse.left[0] = impulse.right[0] = kImpulse;
    const StereoSamples response = filtered(filter, impulse, onGrid(500.0), onGrid(4000.0));
    EXPECT_NEAR(gainDb(response.left, kImpulse, 500.0, kRateHz), db(3.0), 0.02);
    EXPECT_NEAR(gainDb(response.right, kImpulse, 4000.0, kRateHz), db(3.0), 0.02);
    EXPECT_LT(gainDb(response.left, kImpulse, 4000.0, kRateHz), -30.0);
}

TEST(MultimodeFilter, ZerosGlideFromLowPassToTheTypeInFifteenMilliseconds) {
    for (const double rateHz : {44100.0, 96000.0}) {
        const double cutoffHz = 0.2 * rateHz; // settles much faster than the zeros glide
        MultimodeFilter filter(rateHz);
        apply(filter, {1.0, 0.19, false});
        filter.reset();
        const auto frames = static_cast<std::size_t>(0.015 * rateHz);
        const double steady =
            filtered(filter, StereoSamples(frames, kImpulse), cutoffHz, cutoffHz).left.back() /
            kImpulse;
        // After one time constant both zeros are at z, and the gain of 0 Hz follows from that.
        const double z = 1.0 - 2.0 / std::exp(1.0);
        const std::complex<double> cutoff = std::polar(1.0, 2.0 * kPi * cutoffHz / rateHz);
        const double glided = std::norm((1.0 - z) / (cutoff - z));
        const double lowPass = std::norm(2.0 / (cutoff + 1.0));
        EXPECT_NEAR(db(steady), db(glided / lowPass), 0.4) << rateHz << " Hz";
    }
}

TEST(MultimodeFilter, TypeJumpsDoNotClick) {
    const StereoSamples tone = mono(sine(44100, 440.0, 0.5, kRateHz));
    SettledFilter filter(kRateHz, {0.0, 0.2, false}, 500.0);
    const auto largestStep = [](const Samples& samples) {
        double largest = 0.0;
        for (std::size_t i = 1; i < samples.size(); ++i)
            largest = std::max(largest, std::abs(samples[i] - samples[i - 1]));
        return largest;
    };
    const double ownStep = 0.5 * 2.0 * kPi * 440.0 / kRateHz; // of the unfiltered tone
    for (const double type : {1.0, 0.0, 0.5, 1.0}) {
        filter.setType(type);
        const Samples output = filtered(filter, tone, 500.0, 500.0).left;
        EXPECT_LT(largestStep(Samples(output.begin() + 441, output.end())), ownStep) << type;
    }
}

TEST(MultimodeFilter, SlopesCrossfadeAtTenHertz) {
    // Far above the cut-off the second stage leaves nothing: the first one is heard fading.
    constexpr double kToneHz = 8820.0; // five frames a cycle
    SettledFilter filter(kRateHz, {0.0, 0.2, false}, 500.0);
    const StereoSamples tone = mono(sine(2100, kToneHz, kImpulse, kRateHz));
    const auto levelAround = [](const Samples& samples, std::size_t frame) {
        return peakOf(Samples(samples.begin() + static_cast<std::ptrdiff_t>(frame) - 2,
                              samples.begin() + static_cast<std::ptrdiff_t>(frame) + 3));
    };
    const double before = levelAround(filtered(filter, tone, 500.0, 500.0).left, 2000);
    filter.setSlope(true);
    const Samples fading = filtered(filter, tone, 500.0, 500.0).left;
    const auto timeConstant = static_cast<std::size_t>(kRateHz / (2.0 * kPi * 10.0));
    EXPECT_NEAR(db(levelAround(fading, timeConstant) / before), db(std::exp(-1.0)), 0.3);
    EXPECT_NEAR(db(levelAround(fading, 2 * timeConstant) / before), db(std::exp(-2.0)), 0.3);
}

TEST(MultimodeFilter, SaturationBoundsTheOutputHarderAtHighCutoffs) {
    const auto peakDb = [](const Setting& setting, double cutoffHz) {
        SettledFilter filter(kRateHz, setting, cutoffHz);
        const StereoSamples loud = mono(sine(4410, 100.0, 1e5, kRateHz));
        return db(peakOf(filtered(filter, loud, cutoffHz, cutoffHz).left));
    };
    // The curve ends where its argument, 1e-5 * strength * saturation * Q * Hz * level, is 1.
    EXPECT_NEAR(peakDb({0.0, 0.5, false, 1.0}, 1000.0), db(1e5 / (0.9 * 3.0 * 1000.0)), 0.01);
    EXPECT_NEAR(peakDb({0.0, 0.5, false, 1.0}, 4000.0), db(1e5 / (0.9 * 3.0 * 4000.0)), 0.01);
    EXPECT_NEAR(peakDb({0.0, 0.5, false, 2.0}, 1000.0), db(1e5 / (1.8 * 3.0 * 1000.0)), 0.01);
    // The first of two stages bounds what the second one is given.
    const double boundDb = db(1e5 / (4.8 * 0.5 * std::sqrt(10.0) * 1000.0));
    EXPECT_LE(peakDb({0.0, 0.5, true, 1.0}, 1000.0), boundDb);
    EXPECT_GT(peakDb({0.0, 0.5, true, 1.0}, 1000.0), boundDb - 8.0);
}

TEST(MultimodeFilter, LeastSaturationIsNotHeardAtFullScaleAndTheHighestResonance) {
    for (const double cutoffHz : {100.0, 1000.0, 10000.0}) {
        const auto gainAt = [&](double level) {
            SettledFilter filter(kRateHz, {0.0, 1.0, false}, cutoffHz);
            const StereoSamples tone = mono(sine(22050, cutoffHz, level, kRateHz));
            return db(peakOf(filtered(filter, tone, cutoffHz, cutoffHz).left) / level);
        };
        EXPECT_NEAR(gainAt(1.0), gainAt(kImpulse), 0.5) << cutoffHz << " Hz";
    }
}

TEST(MultimodeFilter, CutoffsAndRatesOutsideTheirRangeCountAsStated) {
    StereoSamples impulse(500);
    impulse.left[0] = impulse.right[0] = 0.5;
    const auto response = [&](double rateHz, double cutoffHz) {
        MultimodeFilter filter(rateHz);
        apply(filter, {0.6, 0.7, false, 1.0});
        return filtered(filter, impulse, cutoffHz, cutoffHz);
    };
    EXPECT_EQ(response(kRateHz, 0.0), response(kRateHz, 20.0));
    EXPECT_EQ(response(kRateHz, 30000.0), response(kRateHz, 20000.0));
    for (const double rateHz : {0.0, 19999.0, 400001.0})
        EXPECT_EQ(response(rateHz, 1000.0), response(44100.0, 1000.0)) << rateHz;
    for (const double rateHz : {20000.0, 400000.0})
        EXPECT_NE(response(rateHz, 1000.0), response(44100.0, 1000.0)) << rateHz;
}

TEST(FilterTables, MorphExponentsAreNaturalSplinesThroughTheirKnots) {
    struct Knot {
        std::size_t hz;
        double highPass, lowPass;
    };
    const MorphTable& table = MorphTable::shared();
    for (const Knot& knot :
         {Knot{20, 6.36, 0.00075}, Knot{40, 5.6, 0.0015}, Knot{160, 4.11, 0.006},
          Knot{640, 2.67, 0.024}, Knot{2560, 1.4, 0.093}, Knot{5120, 0.9, 0.185},
          Knot{10240, 0.48, 0.39}, Knot{15360, 0.245, 0.72}, Knot{20000, 0.075, 1.59}}) {
        EXPECT_NEAR(table.towardsHighPass[knot.hz], knot.highPass, 1e-9) << knot.hz;
        EXPECT_NEAR(table.towardsLowPass[knot.hz], knot.lowPass, 1e-9) << knot.hz;
    }
    EXPECT_EQ(table.towardsLowPass[0], 0.0);
    // Natural: the curvature grows in a straight line from 0 at either end.
    const auto curvature = [&](std::size_t hz) {
        const auto& a = table.towardsHighPass;
        return a[hz + 1] - 2.0 * a[hz] + a[hz - 1];
    };
    EXPECT_NEAR(curvature(25) / curvature(35), 5.0 / 15.0, 1e-6);
    EXPECT_NEAR(curvature(18000) / curvature(16000), 0.5, 1e-3);
}

TEST(FilterTables, TrigonometryOfOneRateIsSharedAndUnusedTablesDoNotPileUp) {
    const auto used = TrigonometryTable::forRate(48000.0);
    EXPECT_NEAR((*used)[0].sine, std::sin(2.0 * kPi * 20.0 / 48000.0), 1e-15);
    EXPECT_NEAR((*used)[65535].cosine, std::cos(2.0 * kPi * 20000.0 / 48000.0), 1e-15);
    std::vector<std::weak_ptr<const TrigonometryTable>> unused;
    for (int i = 0; i < 20; ++i)
        unused.push_back(TrigonometryTable::forRate(50000.0 + i));
    EXPECT_EQ(TrigonometryTable::forRate(48000.0), used);
    EXPECT_LT(std::count_if(unused.begin(), unused.end(),
                            [](const auto& table) { return !table.expired(); }),
              10);
}

} // namespace
} // namespace pedl
