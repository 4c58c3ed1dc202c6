#pragma once

#include "demo/StereoSound.h"

#include <cstddef>
#include <vector>

namespace pedl::demo {

/// The frequency axis of a picture: logarithmic, so that an octave has the same height everywhere.
struct FrequencyAxis {
    double lowestHz = 20.0;
    double highestHz = 20000.0;

    /// 0 at the lowest frequency, 1 at the highest; beyond them outside 0..1.
    [[nodiscard]] double positionOf(double hertz) const;
    [[nodiscard]] double hertzAt(double position) const;
};

/// What of a sound is looked at. Of both, the mean: of the power, or of the wave.
enum class Side { Both, Left, Right };

/// Levels over time and frequency, in decibels: 0 dB is a sine wave at full scale.
///
/// Two window lengths are blended, the long one for low notes (it tells them apart), the short one
/// for the highs (it shows where a stroke begins).
class Spectrogram {
public:
    Spectrogram(const StereoSound& sound, const FrequencyAxis& axis, std::size_t columns,
                std::size_t rows, Side side = Side::Both);

    /// @param column  0 at the beginning
    /// @param row     0 at the lowest frequency
    [[nodiscard]] double levelDb(std::size_t column, std::size_t row) const {
        return levelsDb_[column * rows_ + row];
    }
    [[nodiscard]] std::size_t columns() const { return columns_; }
    [[nodiscard]] std::size_t rows() const { return rows_; }

private:
    std::size_t columns_;
    std::size_t rows_;
    std::vector<double> levelsDb_;
};

} // namespace pedl::demo
