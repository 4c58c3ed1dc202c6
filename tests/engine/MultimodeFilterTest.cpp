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

/// What both channels give of the same input.
Samples filtered(MultimodeFilter& filter, const Samples& input, double cutoffHz) {
    CutoffStretch cutoff;
    cutoff.isConstant = true;
    cutoff.hz = constant(cutoffHz, cutoffHz);
    StereoSamples output;
    inStretches(static_cast<int>(input.size()), [&](int first, int length) {
        StereoStretch stretch;
        for (int i = 0; i < 2 * length; ++i)
            stretch.at[i] = input[static_cast<std::size_t>(first + i / 2)];
        filter.process(stretch, cutoff, length);
        append(stretch, length, output);
    });
    EXPECT_EQ(output.left, output.right);
    return output.left;
}

Samples sine(std::size_t frames, double hz, double level) {
    Samples samples(frames);
    for (std::size_t i = 0; i < frames; ++i)
        samples[i] = level * std::sin(2.0 * kPi * hz * static_cast<double>(i) / kRateHz);
    return samples;
}

/// A filter that stands at its setting; its zeros have yet to glide from those of the low-pass.
struct SetFilter : MultimodeFilter {
    SetFilter(double rateHz, const Setting& setting) : MultimodeFilter(rateHz) {
        setSlope(setting.is24Db);
        setType(setting.type);
        setResonance(setting.resonance);
        setSaturation(setting.saturation);
        reset();
    }
};

struct SettledFilter : SetFilter {
    SettledFilter(double rateHz, const Setting& setting, double cutoffHz)
        : SetFilter(rateHz, setting) {
        filtered(*this, Samples(static_cast<std::size_t>(0.5 * rateHz)), cutoffHz);
    }
};

double resonanceOf(const Setting& setting) {
    return setting.is24Db ? 0.5 * std::pow(10.0, setting.resonance)
                          : 0.3 * std::pow(100.0, setting.resonance);
}

/// What a settled filter answers to an impulse.
struct Response {
    Response(double sampleRateHz, const Setting& setting, double cutoffHz) : rateHz(sampleRateHz) {
        SettledFilter filter(rateHz, setting, cutoffHz);
        const double timeConstantSeconds = std::max(resonanceOf(setting), 3.0) / (kPi * cutoffHz);
        Samples impulse(static_cast<std::size_t>((12.0 * timeConstantSeconds + 0.01) * rateHz));
        impulse[0] = kImpulse;
        samples = filtered(filter, impulse, cutoffHz);
    }

    double gainDb(double hz) const {
        const std::complex<double> step = std::polar(1.0, -2.0 * kPi * hz / rateHz);
        std::complex<double> turn = 1.0, sum = 0.0;
        for (const double sample : samples) {
            sum += sample * turn;
            turn *= step;
        }
        return db(std::abs(sum) / kImpulse);
    }

    double rateHz;
    Samples samples;
};

/// The frequency nearest to `hz` at which the filter's sine and cosine are exact.
double onGrid(double hz) {
    return 20.0 + 19980.0 / 65535.0 * std::round((hz - 20.0) / 19980.0 * 65535.0);
}

TEST(MultimodeFilter, EachStageHasTheResonanceAsItsGainAtTheCutoffWhateverTheType) {
    for (const double rateHz : {44100.0, 192000.0})
        for (const Setting& setting :
             {Setting{0.0, 0.0, false}, Setting{0.0, 1.0, false}, Setting{0.3, 0.5, false},
              Setting{0.5, 0.0, false}, Setting{0.5, 1.0, false}, Setting{0.8, 0.5, false},
              Setting{1.0, 0.0, false}, Setting{1.0, 1.0, false}, Setting{0.0, 0.0, true},
              Setting{0.0, 1.0, true}, Setting{0.5, 0.5, true}, Setting{1.0, 1.0, true}})
            for (const double hz : {20.0, onGrid(440.0), onGrid(5000.0), 20000.0}) {
                const double nearNyquist = 1.0 - std::pow(hz / (0.5001 * rateHz), 6.0);
                const double stageDb = db(nearNyquist * resonanceOf(setting));
                EXPECT_NEAR(Response(rateHz, setting, hz).gainDb(hz),
                            setting.is24Db ? 2.0 * stageDb : stageDb, 0.02)
                    << rateHz << " Hz, " << (setting.is24Db ? 24 : 12) << " dB, resonance "
                    << setting.resonance << ", type " << setting.type << ", cut-off " << hz;
            }
}

TEST(MultimodeFilter, PassbandHasUnitGainWhateverTheResonance) {
    for (const bool is24Db : {false, true})
        for (const double resonance : {0.2, 0.7, 1.0}) {
            SCOPED_TRACE(testing::Message() << (is24Db ? 24 : 12) << " dB, " << resonance);
            const Response low(kRateHz, {0.0, resonance, is24Db}, 1000.0);
            EXPECT_NEAR(low.gainDb(1.0), 0.0, 0.01);
            const Response high(kRateHz, {1.0, resonance, is24Db}, 1000.0);
            EXPECT_NEAR(high.gainDb(0.5 * kRateHz), 0.0, 0.01);
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
        const Response response(kFastRateHz, {row.type, 0.4, row.is24Db}, 500.0);
        const double farHz = row.nearHz > 500.0 ? 2.0 * row.nearHz : 0.5 * row.nearHz;
        EXPECT_NEAR(response.gainDb(farHz) - response.gainDb(row.nearHz), row.dbAnOctave, 0.8)
            << row.story;
    }
}

TEST(MultimodeFilter, ZerosGlideFromLowPassToTheTypeInFifteenMilliseconds) {
    for (const double rateHz : {44100.0, 96000.0}) {
        const double cutoffHz = 0.2 * rateHz; // settles much faster than the zeros glide
        SetFilter filter(rateHz, {1.0, 0.19});
        const Samples steady(static_cast<std::size_t>(0.015 * rateHz), kImpulse);
        const double gain = filtered(filter, steady, cutoffHz).back() / kImpulse;
        // After one time constant both zeros are at z, and the gain of 0 Hz follows from that.
        const double z = 1.0 - 2.0 / std::exp(1.0);
        const std::complex<double> cutoff = std::polar(1.0, 2.0 * kPi * cutoffHz / rateHz);
        const double glided = std::norm((1.0 - z) / (cutoff - z));
        const double lowPass = std::norm(2.0 / (cutoff + 1.0));
        EXPECT_NEAR(db(gain), db(glided / lowPass), 0.4) << rateHz << " Hz";
    }
}

TEST(MultimodeFilter, SlopesCrossfadeAtTenHertz) {
    // Far above the cut-off the second stage leaves nothing: the first one is heard fading.
    constexpr double kToneHz = 8820.0; // five frames a cycle
    SettledFilter filter(kRateHz, {0.0, 0.2}, 500.0);
    const Samples tone = sine(2100, kToneHz, kImpulse);
    const auto levelAround = [](const Samples& samples, int frame) {
        return peakOf(Samples(samples.begin() + frame - 2, samples.begin() + frame + 3));
    };
    const double before = levelAround(filtered(filter, tone, 500.0), 2000);
    filter.setSlope(true);
    const Samples fading = filtered(filter, tone, 500.0);
    const int timeConstant = static_cast<int>(kRateHz / (2.0 * kPi * 10.0));
    EXPECT_NEAR(db(levelAround(fading, timeConstant) / before), db(std::exp(-1.0)), 0.3);
    EXPECT_NEAR(db(levelAround(fading, 2 * timeConstant) / before), db(std::exp(-2.0)), 0.3);
}

TEST(MultimodeFilter, SaturationBoundsTheOutputHarderAtHighCutoffs) {
    const auto peakDb = [](const Setting& setting, double cutoffHz) {
        SettledFilter filter(kRateHz, setting, cutoffHz);
        return db(peakOf(filtered(filter, sine(4410, 100.0, 1e5), cutoffHz)));
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

TEST(FilterTables, TrigonometryOfOneRateIsSharedAndUnusedTablesDoNotPileUp) {
    const auto used = TrigonometryTable::forRate(48000.0);
    EXPECT_NEAR((*used)[0].sine, std::sin(2.0 * kPi * 20.0 / 48000.0), 1e-15);
    EXPECT_NEAR((*used)[65535].cosine, std::cos(2.0 * kPi * 20000.0 / 48000.0), 1e-15);
    std::vector<std::weak_ptr<const TrigonometryTable>> unused;
    for (int i = 0; i < 20; ++i)
        unused.push_back(TrigonometryTable::forRate(50000.0 + i));
    EXPECT_EQ(TrigonometryTable::forRate(48000.0), used);
    EXPECT_GT(std::ranges::count_if(unused, [](const auto& table) { return table.expired(); }), 10);
}

} // namespace
} // namespace pedl
