#pragma once

#include "demo/Spectrogram.h"

#include <vector>

namespace pedl::demo {

struct Rectangle {
    double x, y, width, height; // pixels from the upper left corner

    [[nodiscard]] double right() const { return x + width; }
    [[nodiscard]] double bottom() const { return y + height; }
    [[nodiscard]] double middleY() const { return y + height / 2.0; }
};

/// What is seen of one channel, or of both: the spectrogram with its scales, and its waveforms.
struct Panel {
    Side side;
    Rectangle spectrum;
    Rectangle waves;

    [[nodiscard]] double yOfFrequency(double hertz) const;
    [[nodiscard]] double yOfGain(double gainDb) const;
};

constexpr int kLowestGainDb = -36;
constexpr int kHighestGainDb = 15; // the gain's own bound is +12.2 dB

/// Where everything is. A longer sound makes a wider picture: what moves stays apart.
struct PictureLayout {
    int width;
    int height;
    double lengthSeconds;
    std::vector<Panel> panels; ///< from the top: one, or left and right
    Rectangle levelScale;

    [[nodiscard]] double xOfTime(double seconds) const;
    [[nodiscard]] const Panel& top() const { return panels.front(); }
    [[nodiscard]] const Panel& bottom() const { return panels.back(); }
};

enum class Rows { Together, Apart };

/// @param rows  both channels in one panel, or in one below the other
PictureLayout layoutFor(double lengthSeconds, Rows rows);

} // namespace pedl::demo
