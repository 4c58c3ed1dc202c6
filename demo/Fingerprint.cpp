#include "demo/Fingerprint.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

#include "demo/Levels.h"
#include "demo/RealTransform.h"

namespace pedl::demo {

namespace {

constexpr std::size_t kWindowFrames = 2048;
constexpr double kHopSeconds = 0.01;
constexpr double kFloorPower = 1e-12;
constexpr double kQuietDb = 45.0; ///< below the loudest moment nothing is heard of a movement

// Just audible steps
constexpr double kColourStepDb = 1.0;      ///< of a band
constexpr double kLevelMotionStepDb = 1.0; ///< of a movement's size
constexpr double kCentroidStep = 0.12;     ///< octaves
constexpr double kSideStepDb = 1.5;
constexpr double kWidthStepDb = 2.5;
constexpr double kNarrowestDb = -30.0; ///< a side below this is mono
constexpr double kCrestStepDb = 1.5;

double powerDb(double power) {
    return decibelsOfPower(power, kFloorPower);
}

double bandOf(double hertz) {
    return 3.0 * std::log2(hertz / 40.0);
}

/// Power by bin of both channels together, one window at a time.
class Windows {
public:
    std::vector<double> powerAt(const StereoSound& sound, std::size_t frame) {
        std::vector<double> power(kWindowFrames / 2);
        for (const auto* channel : {&sound.left, &sound.right}) {
            const std::span<double> input = transform_.input();
            for (std::size_t i = 0; i < kWindowFrames; ++i)
                input[i] = static_cast<double>((*channel)[frame + i]) *
                           (0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * static_cast<double>(i) /
                                                 kWindowFrames));
            transform_.run();
            for (std::size_t bin = 1; bin < power.size(); ++bin)
                power[bin] += transform_.power(bin);
        }
        return power;
    }

private:
    RealTransform transform_{kWindowFrames};
};

void addMoment(ShortTimes& times, const std::vector<double>& power, int sampleRateHz,
               std::array<double, kBands>& bands) {
    double total = 0.0;
    double weighted = 0.0;
    for (std::size_t bin = 1; bin < power.size(); ++bin) {
        const double hertz = static_cast<double>(bin) * sampleRateHz / kWindowFrames;
        const double band = bandOf(hertz);
        if (band >= 0.0 && band < kBands)
            bands[static_cast<std::size_t>(band)] += power[bin];
        // As loud as it is heard: the root of the power, and octaves alike.
        const double heard = std::sqrt(power[bin]) / hertz;
        total += heard;
        weighted += heard * std::log2(hertz);
    }
    times.centroidOctaves.push_back(total > 1e-9 ? weighted / total : 0.0);
}

void addLevels(ShortTimes& times, const StereoSound& sound, std::size_t from, std::size_t frames) {
    double left = 0.0;
    double right = 0.0;
    for (std::size_t i = from; i < from + frames; ++i) {
        left += static_cast<double>(sound.left[i]) * static_cast<double>(sound.left[i]);
        right += static_cast<double>(sound.right[i]) * static_cast<double>(sound.right[i]);
    }
    const auto count = static_cast<double>(frames);
    times.levelDb.push_back(powerDb(0.5 * (left + right) / count));
    times.sideDb.push_back(powerDb(left / count + 1e-9) - powerDb(right / count + 1e-9));
}

void addWhole(ShortTimes& times, const StereoSound& sound) {
    double middle = 0.0, side = 0.0, all = 0.0, peak = 0.0;
    for (std::size_t i = 0; i < sound.lengthFrames(); ++i) {
        const auto left = static_cast<double>(sound.left[i]);
        const auto right = static_cast<double>(sound.right[i]);
        middle += 0.25 * (left + right) * (left + right);
        side += 0.25 * (left - right) * (left - right);
        all += 0.5 * (left * left + right * right);
        peak = std::max({peak, std::abs(left), std::abs(right)});
    }
    const auto count = static_cast<double>(sound.lengthFrames());
    times.totalDb = powerDb(all / count);
    times.peakDb = powerDb(peak * peak);
    times.crestDb = times.peakDb - times.totalDb;
    times.widthDb = std::max(kNarrowestDb, powerDb(side / count) - powerDb(middle / count));
}

// Movement ----------------------------------------------------------------------------------------

/// The moments in which the dry sound is heard.
std::vector<bool> audible(const ShortTimes& dry) {
    const double loudest = *std::ranges::max_element(dry.levelDb);
    std::vector<bool> heard;
    for (const double level : dry.levelDb)
        heard.push_back(level > loudest - kQuietDb);
    return heard;
}

/// What the program added to a curve of the dry sound, without its mean.
std::vector<double> added(const std::vector<double>& wet, const std::vector<double>& dry,
                          const std::vector<bool>& heard) {
    std::vector<double> curve;
    double sum = 0.0;
    double count = 0.0;
    for (std::size_t i = 0; i < wet.size(); ++i) {
        curve.push_back(heard[i] ? std::clamp(wet[i] - dry[i], -60.0, 60.0) : 0.0);
        sum += curve.back();
        count += heard[i] ? 1.0 : 0.0;
    }
    for (std::size_t i = 0; i < curve.size(); ++i)
        curve[i] = heard[i] ? curve[i] - sum / std::max(1.0, count) : 0.0;
    return curve;
}

/// The size of a curve's movement in octaves of rate around 0.25, 1, 4 and 16 Hz: differences of
/// running means.
std::array<double, 4> motionByRate(const std::vector<double>& curve) {
    const auto smooth = [&](const std::vector<double>& from, double seconds) {
        const auto half = static_cast<std::ptrdiff_t>(0.5 * seconds / kHopSeconds);
        std::vector<double> sums{0.0};
        for (const double value : from)
            sums.push_back(sums.back() + value);
        std::vector<double> means;
        for (std::ptrdiff_t i = 0; i < std::ssize(from); ++i) {
            const auto begin = static_cast<std::size_t>(std::max<std::ptrdiff_t>(0, i - half));
            const auto end =
                static_cast<std::size_t>(std::min<std::ptrdiff_t>(std::ssize(from), i + half + 1));
            means.push_back((sums[end] - sums[begin]) / static_cast<double>(end - begin));
        }
        return means;
    };
    constexpr std::array<double, 3> kMeansSeconds{0.08, 0.32, 1.28};
    std::array<double, 4> motion{};
    std::vector<double> rest = curve;
    for (std::size_t rate = 0; rate < motion.size(); ++rate) {
        std::vector<double> slower(rest.size());
        if (rate < kMeansSeconds.size())
            slower = smooth(rest, kMeansSeconds[rate]);
        double sum = 0.0;
        for (std::size_t i = 0; i < rest.size(); ++i)
            sum += (rest[i] - slower[i]) * (rest[i] - slower[i]);
        motion[rate] = std::sqrt(sum / static_cast<double>(std::max<std::size_t>(1, rest.size())));
        rest = std::move(slower);
    }
    return motion;
}

void addMotion(Fingerprint& print, const std::string& name, const std::vector<double>& curve,
               double step) {
    const std::array<double, 4> motion = motionByRate(curve);
    for (std::size_t rate = 0; rate < motion.size(); ++rate)
        print.push_back({name + std::to_string(rate), motion[rate] / step});
}

/// Bands against the whole, as far down as they are heard beside the loudest.
std::array<double, kBands> colourOf(const ShortTimes& times) {
    constexpr double kMaskedDb = 42.0;
    std::array<double, kBands> colour = times.bandDb;
    const double loudest = *std::ranges::max_element(colour);
    for (double& band : colour)
        band = std::max(band - loudest, -kMaskedDb);
    return colour;
}

double meanOf(const std::vector<double>& curve, const std::vector<bool>& heard) {
    double sum = 0.0;
    double count = 0.0;
    for (std::size_t i = 0; i < curve.size(); ++i)
        if (heard[i]) {
            sum += curve[i];
            count += 1.0;
        }
    return sum / std::max(1.0, count);
}

} // namespace

ShortTimes shortTimesOf(const StereoSound& sound) {
    ShortTimes times;
    Windows windows;
    std::array<double, kBands> bands{};
    const auto hop = static_cast<std::size_t>(kHopSeconds * sound.sampleRateHz);
    for (std::size_t frame = 0; frame + kWindowFrames <= sound.lengthFrames(); frame += hop) {
        addMoment(times, windows.powerAt(sound, frame), sound.sampleRateHz, bands);
        addLevels(times, sound, frame + (kWindowFrames - hop) / 2, hop);
    }
    std::ranges::transform(bands, times.bandDb.begin(), powerDb);
    addWhole(times, sound);
    return times;
}

Fingerprint fingerprintOf(const ShortTimes& dry, const ShortTimes& loud, const ShortTimes& soft) {
    Fingerprint print;
    // A mean over bands is heard as one thing: each band weighs as one of nine critical regions.
    const double bandWeight = 1.0 / std::sqrt(kBands / 9.0);
    const std::array<double, kBands> colour = colourOf(loud);
    const std::array<double, kBands> softColour = colourOf(soft);
    for (std::size_t band = 0; band < kBands; ++band) {
        print.push_back({"colour", colour[band] * bandWeight / kColourStepDb / 3.0});
        print.push_back(
            {"answer", (softColour[band] - colour[band]) * bandWeight / kColourStepDb / 3.0});
    }
    const std::vector<bool> heard = audible(dry);
    addMotion(print, "level", added(loud.levelDb, dry.levelDb, heard), kLevelMotionStepDb);
    addMotion(print, "centroid", added(loud.centroidOctaves, dry.centroidOctaves, heard),
              kCentroidStep);
    addMotion(print, "side", added(loud.sideDb, dry.sideDb, heard), kSideStepDb);
    print.push_back({"width", loud.widthDb / kWidthStepDb});
    print.push_back({"crest", loud.crestDb / kCrestStepDb});
    print.push_back({"softGain", (soft.totalDb - loud.totalDb) / (2.0 * kLevelMotionStepDb)});
    print.push_back({"softCentroid",
                     (meanOf(soft.centroidOctaves, heard) - meanOf(loud.centroidOctaves, heard)) /
                         kCentroidStep});
    return print;
}

double stepsBetween(const Fingerprint& one, const Fingerprint& other) {
    double sum = 0.0;
    for (std::size_t i = 0; i < one.size(); ++i)
        sum += (one[i].steps - other[i].steps) * (one[i].steps - other[i].steps);
    return std::sqrt(sum);
}

} // namespace pedl::demo
