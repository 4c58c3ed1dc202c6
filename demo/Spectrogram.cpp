#include "demo/Spectrogram.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <span>

#include "demo/Levels.h"
#include "demo/RealTransform.h"

namespace pedl::demo {

namespace {

constexpr std::size_t kLongWindowFrames = 8192;
constexpr std::size_t kShortWindowFrames = 1536;
constexpr double kAllLongBelowHz = 150.0;
constexpr double kAllShortAboveHz = 2500.0;
constexpr double kSilencePower = 1e-15; // -150 dB: silence has a level too

/// The power in every bin of one windowed stretch of a sound.
class WindowedTransform {
public:
    WindowedTransform(std::size_t frames, Side side)
        : side_(side), window_(frames), power_(frames / 2 + 1), transform_(frames) {
        for (std::size_t i = 0; i < frames; ++i)
            window_[i] = 0.5 - 0.5 * std::cos(2.0 * std::numbers::pi * static_cast<double>(i) /
                                              static_cast<double>(frames));
    }

    /// Power by bin of the stretch centred on `centreFrame`; 1 is a sine wave at full scale. What
    /// lies outside the sound counts as silence.
    std::span<const double> powerAround(const StereoSound& sound, std::ptrdiff_t centreFrame) {
        std::fill(power_.begin(), power_.end(), 0.0);
        const double share = side_ == Side::Both ? 0.5 : 1.0;
        if (side_ != Side::Right)
            addPower(sound.left, centreFrame, share);
        if (side_ != Side::Left)
            addPower(sound.right, centreFrame, share);
        return power_;
    }

    [[nodiscard]] double frames() const { return static_cast<double>(window_.size()); }

private:
    void addPower(const std::vector<float>& channel, std::ptrdiff_t centreFrame, double share) {
        const std::ptrdiff_t start = centreFrame - static_cast<std::ptrdiff_t>(window_.size() / 2);
        const std::span<double> input = transform_.input();
        for (std::size_t i = 0; i < window_.size(); ++i) {
            const std::ptrdiff_t frame = start + static_cast<std::ptrdiff_t>(i);
            const bool isInside = frame >= 0 && frame < std::ssize(channel);
            input[i] = isInside ? window_[i] * channel[static_cast<std::size_t>(frame)] : 0.0;
        }
        transform_.run();
        const double sineAtFullScale = 0.25 * frames(); // half the window's sum
        for (std::size_t bin = 0; bin < power_.size(); ++bin)
            power_[bin] += share * transform_.power(bin) / (sineAtFullScale * sineAtFullScale);
    }

    Side side_;
    std::vector<double> window_;
    std::vector<double> power_;
    RealTransform transform_;
};

/// The strongest bin between two positions on the bin axis; between two bins, what joins them.
double strongest(std::span<const double> power, double fromBin, double toBin) {
    const double last = static_cast<double>(power.size() - 1);
    const double middle = std::clamp(0.5 * (fromBin + toBin), 0.0, last - 1e-6);
    const auto below = static_cast<std::size_t>(middle);
    double best = std::lerp(power[below], power[below + 1], middle - std::floor(middle));
    const auto end = static_cast<std::size_t>(std::clamp(toBin, 0.0, last));
    for (auto bin = static_cast<std::size_t>(std::max(0.0, std::ceil(fromBin))); bin <= end; ++bin)
        best = std::max(best, power[bin]);
    return best;
}

double shareOfShortWindow(double hertz) {
    return std::clamp(
        std::log(hertz / kAllLongBelowHz) / std::log(kAllShortAboveHz / kAllLongBelowHz), 0.0, 1.0);
}

} // namespace

double FrequencyAxis::positionOf(double hertz) const {
    return std::log(hertz / lowestHz) / std::log(highestHz / lowestHz);
}

double FrequencyAxis::hertzAt(double position) const {
    return lowestHz * std::pow(highestHz / lowestHz, position);
}

Spectrogram::Spectrogram(const StereoSound& sound, const FrequencyAxis& axis, std::size_t columns,
                         std::size_t rows, Side side)
    : columns_(columns), rows_(rows), levelsDb_(columns * rows) {
    WindowedTransform longTransform(kLongWindowFrames, side);
    WindowedTransform shortTransform(kShortWindowFrames, side);
    const double framesPerColumn =
        static_cast<double>(sound.lengthFrames()) / static_cast<double>(columns);

    for (std::size_t column = 0; column < columns; ++column) {
        const auto centre =
            static_cast<std::ptrdiff_t>((static_cast<double>(column) + 0.5) * framesPerColumn);
        const auto longPower = longTransform.powerAround(sound, centre);
        const auto shortPower = shortTransform.powerAround(sound, centre);
        for (std::size_t row = 0; row < rows; ++row) {
            const double fromHz =
                axis.hertzAt(static_cast<double>(row) / static_cast<double>(rows));
            const double toHz =
                axis.hertzAt(static_cast<double>(row + 1) / static_cast<double>(rows));
            const auto levelIn = [&](std::span<const double> power, double windowFrames) {
                const double binsPerHz = windowFrames / sound.sampleRateHz;
                return decibelsOfPower(strongest(power, fromHz * binsPerHz, toHz * binsPerHz),
                                       kSilencePower);
            };
            levelsDb_[column * rows + row] =
                std::lerp(levelIn(longPower, longTransform.frames()),
                          levelIn(shortPower, shortTransform.frames()), shareOfShortWindow(fromHz));
        }
    }
}

} // namespace pedl::demo
