#include "demo/tour/Picture.h"

#include "demo/tour/Pen.h"
#include "demo/tour/PictureLayout.h"
#include "demo/tour/PictureSound.h"
#include "demo/tour/PictureTraces.h"
#include "foundation/text/FormattedText.h"

#include <array>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace pedl::demo {

namespace {

void drawFrequencyAxis(cairo_t* pen, const Panel& panel) {
    struct Mark {
        double hertz;
        const char* text; // none: a line without a number
    };
    // clang-format off
    constexpr std::array<Mark, 11> kMarks{{
        {20, "20"}, {50, "50"}, {100, "100"}, {200, "200"}, {500, "500"}, {1000, "1k"},
        {2000, "2k"}, {5000, "5k"}, {10000, "10k"}, {15000, nullptr}, {20000, "20k"}}};
    // clang-format on
    setFont(pen, kSmallPixels, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_line_width(pen, 1.0);
    for (const Mark& mark : kMarks) {
        const double y = panel.yOfFrequency(mark.hertz);
        setColour(pen, kGrid, 0.10);
        drawLine(pen, panel.spectrum.x, y, panel.spectrum.right(), y);
        if (mark.text == nullptr)
            continue;
        setColour(pen, kFaintText, 1.0);
        write(pen, mark.text, panel.spectrum.x - 8.0, y + 4.0, 1.0);
    }
    setColour(pen, kFaintText, 1.0);
    writeUpwards(pen, "frequency (Hz)", 30.0, panel.spectrum.middleY());
}

/// Seconds between two marks: at most ten spaces.
double timeStep(double lengthSeconds) {
    const double decade = std::pow(10.0, std::floor(std::log10(lengthSeconds / 10.0)));
    for (const double step : {decade, 2.0 * decade, 5.0 * decade})
        if (lengthSeconds / step <= 10.0)
            return step;
    return 10.0 * decade;
}

void drawTimeAxis(cairo_t* pen, const PictureLayout& layout) {
    const double step = timeStep(layout.lengthSeconds);
    const double below = layout.bottom().waves.bottom();
    setFont(pen, kSmallPixels, CAIRO_FONT_WEIGHT_NORMAL);
    cairo_set_line_width(pen, 1.0);
    for (int mark = 0; mark * step <= layout.lengthSeconds + 1e-9; ++mark) {
        const double x = layout.xOfTime(mark * step);
        setColour(pen, kGrid, 0.10);
        for (const Panel& panel : layout.panels) {
            drawLine(pen, x, panel.spectrum.y, x, panel.spectrum.bottom());
            drawLine(pen, x, panel.waves.y, x, panel.waves.bottom());
        }
        setColour(pen, kFaintText, 1.0);
        write(pen, formatted("%g", mark * step), x, below + 18.0, 0.5);
    }
    const Rectangle& area = layout.top().spectrum;
    write(pen, "time (s)", area.x + area.width / 2.0, below + 36.0, 0.5);
}

/// @return where it begins
double drawLegend(cairo_t* pen, double rightX, const std::vector<LegendEntry>& entries) {
    constexpr double kLineWidth = 26.0;
    constexpr double kGap = 8.0;
    constexpr double kBetween = 20.0;
    constexpr double kMiddleY = 30.0;
    setFont(pen, 13.0, CAIRO_FONT_WEIGHT_NORMAL);
    double width = -kBetween;
    for (const LegendEntry& entry : entries)
        width += kBetween + kLineWidth + kGap + widthOf(pen, entry.text);
    double x = rightX - width;
    for (const LegendEntry& entry : entries) {
        setColour(pen, entry.colour, 1.0);
        cairo_set_line_width(pen, entry.widthPixels);
        drawLine(pen, x, kMiddleY, x + kLineWidth, kMiddleY);
        x += kLineWidth + kGap;
        setColour(pen, kText, 1.0);
        write(pen, entry.text, x, kMiddleY + 4.5, 0.0);
        x += widthOf(pen, entry.text) + kBetween;
    }
    return rightX - width;
}

/// @param titleEnd  where the legend begins, on the title's line
void drawCaption(cairo_t* pen, const PictureLayout& layout, const Caption& caption,
                 double titleEnd) {
    const double x = layout.top().spectrum.x;
    const double width = layout.levelScale.right() + 48.0 - x;
    setColour(pen, kText, 1.0);
    setFont(pen, 22.0, CAIRO_FONT_WEIGHT_BOLD);
    write(pen, fitted(pen, caption.title, titleEnd - 24.0 - x), x, 38.0, 0.0);
    setFont(pen, 14.0, CAIRO_FONT_WEIGHT_NORMAL);
    write(pen, fitted(pen, caption.listen, width), x, 63.0, 0.0);
    setColour(pen, kFaintText, 1.0);
    setFont(pen, kSmallPixels, CAIRO_FONT_WEIGHT_NORMAL);
    write(pen, fitted(pen, caption.settings, width), x, 84.0, 0.0);
}

} // namespace

void drawPicture(const std::string& path, const Caption& caption, const StereoSound& input,
                 const StereoSound& output, const ModulationTrace& trace) {
    const PictureLayout layout =
        layoutFor(output.lengthSeconds(), channelsDiffer(trace) ? Rows::Apart : Rows::Together);
    const Surface surface(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, layout.width, layout.height));
    const Context context(cairo_create(surface.get()));
    cairo_t* pen = context.get();
    setColour(pen, kPaper, 1.0);
    cairo_paint(pen);

    for (const Panel& panel : layout.panels) {
        drawSpectrogram(pen, panel, output);
        drawWaves(pen, panel, input, output);
        drawFrequencyAxis(pen, panel);
    }
    drawTimeAxis(pen, layout);
    drawLevelScale(pen, layout.levelScale);
    drawWaveLegend(pen, layout.top().waves);
    const std::vector<LegendEntry> legend = drawTraces(pen, layout, trace);
    drawCaption(pen, layout, caption, drawLegend(pen, layout.top().spectrum.right(), legend));

    const cairo_status_t status = cairo_surface_write_to_png(surface.get(), path.c_str());
    if (status != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(path + ": " + cairo_status_to_string(status));
}

} // namespace pedl::demo
