#include "demo/tour/PictureTraces.h"

#include "demo/Levels.h"
#include "foundation/text/FormattedText.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace pedl::demo {

namespace {

constexpr Colour kLeftColour{0.35, 0.95, 1.0};
constexpr Colour kRightColour{0.63, 1.0, 0.42};
constexpr Colour kGainColour{1.0, 1.0, 1.0};
constexpr double kThickPixels = 2.4;
constexpr double kThinPixels = 1.3;
constexpr double kRimShare = 1.1; // of a line, that its rim is wider

/// In a longer sound what moves is dense, and so drawn fine.
constexpr double kDenseSeconds = 12.0;

struct Extent {
    double lowest, highest;
};

using Reader = std::function<double(const ModulationPoint&)>;

/// How a line is drawn.
struct Look {
    Colour colour;
    double widthPixels;
    double opacity = 1.0;
};

/// Of each column of pixels the lowest and the highest value, so that no spike is lost.
std::vector<Extent> columnsOf(const PictureLayout& layout, const Rectangle& area,
                              const ModulationTrace& trace, const Reader& yOf) {
    std::vector<Extent> columns(static_cast<std::size_t>(area.width), {1e9, -1e9});
    for (const ModulationPoint& point : trace) {
        const auto column = static_cast<std::size_t>(
            std::clamp(point.seconds / layout.lengthSeconds, 0.0, 0.999999) * area.width);
        const double y = yOf(point);
        columns[column] = {std::min(columns[column].lowest, y),
                           std::max(columns[column].highest, y)};
    }
    return columns;
}

/// A trace as a line over a dark rim, which keeps it apart from bright sound below it.
void drawTrace(cairo_t* pen, const Rectangle& area, const std::vector<Extent>& columns,
               const Look& look) {
    cairo_new_path(pen);
    for (std::size_t column = 0; column < columns.size(); ++column) {
        const Extent extent = columns[column];
        if (extent.lowest > extent.highest)
            continue; // a sound shorter than the picture is wide leaves gaps; the line spans them
        const double x = area.x + static_cast<double>(column) + 0.5;
        double last = extent.lowest;
        if (cairo_has_current_point(pen)) {
            double unused = 0.0;
            cairo_get_current_point(pen, &unused, &last);
        }
        const bool isNearerToTheLowest =
            std::abs(last - extent.lowest) < std::abs(last - extent.highest);
        cairo_line_to(pen, x, isNearerToTheLowest ? extent.lowest : extent.highest);
        cairo_line_to(pen, x, isNearerToTheLowest ? extent.highest : extent.lowest);
    }
    cairo_set_line_join(pen, CAIRO_LINE_JOIN_ROUND);
    setColour(pen, kPaper, 0.75 * look.opacity);
    cairo_set_line_width(pen, look.widthPixels * (1.0 + kRimShare));
    cairo_stroke_preserve(pen);
    setColour(pen, look.colour, look.opacity);
    cairo_set_line_width(pen, look.widthPixels);
    cairo_stroke(pen);
}

void drawGainAxis(cairo_t* pen, const Panel& panel) {
    const double right = panel.spectrum.right();
    setFont(pen, kSmallPixels, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_line_width(pen, 1.0);
    for (int gainDb = kLowestGainDb; gainDb <= kHighestGainDb; gainDb += 12) {
        const double y = panel.yOfGain(gainDb);
        setColour(pen, kGainColour, 0.7);
        drawLine(pen, right, y, right + 5.0, y);
        setColour(pen, kText, 1.0);
        write(pen, gainDb == 0 ? "0" : formatted("%+d", gainDb), right + 9.0, y + 4.0, 0.0);
    }
    writeUpwards(pen, "output gain (dB)", right + 52.0, panel.spectrum.middleY());
}

/// One of the things that move: its reading for either channel, and its looks.
struct Moving {
    Reader left, right;
    Look leftLook, rightLook;
};

void drawInPanel(cairo_t* pen, const PictureLayout& layout, const Panel& panel,
                 const ModulationTrace& trace, const Moving& moving) {
    constexpr double kFaint = 0.4; // the other channel's
    const auto draw = [&](const Reader& reader, Look look, Side own) {
        if (panel.side != Side::Both && panel.side != own)
            look = {look.colour, kThinPixels, kFaint};
        drawTrace(pen, panel.spectrum, columnsOf(layout, panel.spectrum, trace, reader), look);
    };
    cairo_save(pen);
    clipTo(pen, panel.spectrum);
    if (panel.side == Side::Both) {
        draw(moving.left, moving.leftLook, Side::Both);
    } else if (panel.side == Side::Left) {
        draw(moving.right, moving.rightLook, Side::Right);
        draw(moving.left, moving.leftLook, Side::Left);
    } else {
        draw(moving.left, moving.leftLook, Side::Left);
        draw(moving.right, moving.rightLook, Side::Right);
    }
    cairo_restore(pen);
}

} // namespace

std::vector<LegendEntry> drawTraces(cairo_t* pen, const PictureLayout& layout,
                                    const ModulationTrace& trace) {
    const bool hasGain = gainMatters(trace);
    const double thickPixels = layout.lengthSeconds > kDenseSeconds ? kThinPixels : kThickPixels;
    for (const Panel& panel : layout.panels) {
        const Moving gain{
            [&](const ModulationPoint& point) { return panel.yOfGain(decibelsOf(point.gainLeft)); },
            [&](const ModulationPoint& point) {
                return panel.yOfGain(decibelsOf(point.gainRight));
            },
            {kGainColour, kThinPixels},
            {kGainColour, kThinPixels}};
        const Moving cutoff{
            [&](const ModulationPoint& point) { return panel.yOfFrequency(point.cutoffLeftHz); },
            [&](const ModulationPoint& point) { return panel.yOfFrequency(point.cutoffRightHz); },
            {kLeftColour, thickPixels},
            {kRightColour, thickPixels}};
        if (hasGain) {
            drawGainAxis(pen, panel);
            drawInPanel(pen, layout, panel, trace, gain);
        }
        drawInPanel(pen, layout, panel, trace, cutoff);
    }
    const bool isOne = layout.panels.size() == 1;
    std::vector<LegendEntry> legend{{isOne ? "cut-off" : "cut-off left", kLeftColour, thickPixels}};
    if (!isOne)
        legend.push_back({"cut-off right", kRightColour, thickPixels});
    if (hasGain)
        legend.push_back({"output gain", kGainColour, kThinPixels});
    return legend;
}

} // namespace pedl::demo
