#include "demo/tour/PictureLayout.h"

#include <algorithm>
#include <cmath>

namespace pedl::demo {

namespace {

const FrequencyAxis kFrequencyAxis;

// Up to this length a picture has its least width; to twice as much it grows.
constexpr double kShortSeconds = 15.0;
constexpr double kLeastWidth = 1140.0;

constexpr double kLeft = 84.0;
constexpr double kTop = 112.0;
constexpr double kGap = 14.0;
constexpr double kForScales = 176.0; // right of the panels: the gain's, the levels'
constexpr double kForTimeAxis = 56.0;

} // namespace

double Panel::yOfFrequency(double hertz) const {
    return spectrum.bottom() - spectrum.height * kFrequencyAxis.positionOf(hertz);
}

double Panel::yOfGain(double gainDb) const {
    const double share = (gainDb - kLowestGainDb) / (kHighestGainDb - kLowestGainDb);
    return spectrum.bottom() - spectrum.height * std::clamp(share, 0.0, 1.0);
}

double PictureLayout::xOfTime(double seconds) const {
    const Rectangle& area = panels.front().spectrum;
    return area.x + area.width * seconds / lengthSeconds;
}

PictureLayout layoutFor(double lengthSeconds, Rows rows) {
    const double width =
        std::round(kLeastWidth * std::clamp(lengthSeconds / kShortSeconds, 1.0, 2.0));
    PictureLayout layout{};
    layout.lengthSeconds = std::max(lengthSeconds, 1e-3);
    double y = kTop;
    const auto place = [&](double height) {
        const Rectangle area{kLeft, y, width, height};
        y += height + kGap;
        return area;
    };
    if (rows == Rows::Together) {
        layout.panels = {{Side::Both, place(506.0), place(112.0)}};
    } else {
        layout.panels = {{Side::Left, place(330.0), {}}, {Side::Right, place(330.0), {}}};
        for (Panel& panel : layout.panels)
            panel.waves = place(72.0);
    }
    layout.levelScale = {kLeft + width + 92.0, kTop, 16.0,
                         layout.bottom().spectrum.bottom() - kTop};
    layout.width = static_cast<int>(kLeft + width + kForScales);
    layout.height = static_cast<int>(y - kGap + kForTimeAxis);
    return layout;
}

} // namespace pedl::demo
