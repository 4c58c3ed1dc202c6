#include "audition/AuditionPage.h"

#include "demo/Spectrogram.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string_view>

// page.html as the build found it.
extern "C" {
extern const char pedlAuditionPage[];
extern const char pedlAuditionPageEnd[];
}

namespace pedl::audition {

namespace {

using Json = nlohmann::json;

constexpr std::size_t kColumns = 260;
constexpr std::size_t kRows = 76;
constexpr double kDarkestDb = -95.0;
constexpr double kBrightestDb = -15.0;

// The gain's scale lies over the lower two thirds of the picture, 0 dB in their middle.
constexpr double kGainLowDb = -48.0;
constexpr double kGainHighDb = 36.0;
constexpr int kTraceHeight = 1000; ///< of the picture, in the numbers of a trace

std::string base64(const std::string& bytes) {
    constexpr std::string_view kDigits =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        std::uint32_t three = 0;
        for (std::size_t k = 0; k < 3; ++k)
            three =
                three << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
        for (std::size_t k = 0; k < 4; ++k)
            text += i + k > bytes.size() ? '=' : kDigits[three >> (18 - 6 * k) & 63U];
    }
    return text;
}

/// A byte a place, column by column from the lowest note up.
std::string pictureOf(const demo::StereoSound& sound, const demo::FrequencyAxis& axis) {
    const demo::Spectrogram spectrogram(sound, axis, kColumns, kRows);
    std::string bytes;
    for (std::size_t column = 0; column < kColumns; ++column)
        for (std::size_t row = 0; row < kRows; ++row) {
            const double part =
                (spectrogram.levelDb(column, row) - kDarkestDb) / (kBrightestDb - kDarkestDb);
            bytes += static_cast<char>(std::lround(255.0 * std::clamp(part, 0.0, 1.0)));
        }
    return base64(bytes);
}

/// Heights in the picture, one for each of twice the columns: fast movement stays visible.
template <typename Height> Json curve(const demo::ModulationTrace& trace, const Height& height) {
    constexpr std::size_t kPoints = 2 * kColumns;
    Json points = Json::array();
    for (std::size_t i = 0; i < kPoints && !trace.empty(); ++i) {
        const double part = height(trace[i * trace.size() / kPoints]);
        points.push_back(std::lround(kTraceHeight * std::clamp(part, 0.0, 1.0)));
    }
    return points;
}

double gainHeight(double gain) {
    const double gainDb = 20.0 * std::log10(std::max(gain, 1e-4));
    return (gainDb - kGainLowDb) / (kGainHighDb - kGainLowDb);
}

Json renderingOf(const PageRendering& rendering) {
    using Point = demo::ModulationPoint;
    const demo::FrequencyAxis axis;
    return {
        {"material", rendering.material},
        {"sound", rendering.sound},
        {"columns", kColumns},
        {"rows", kRows},
        {"picture", pictureOf(rendering.output, axis)},
        {"cutoffLeft",
         curve(rendering.trace, [&](const Point& p) { return axis.positionOf(p.cutoffLeftHz); })},
        {"cutoffRight",
         curve(rendering.trace, [&](const Point& p) { return axis.positionOf(p.cutoffRightHz); })},
        {"gainLeft", curve(rendering.trace, [](const Point& p) { return gainHeight(p.gainLeft); })},
        {"gainRight",
         curve(rendering.trace, [](const Point& p) { return gainHeight(p.gainRight); })}};
}

} // namespace

struct AuditionPage::Data {
    Json json;
};

AuditionPage::AuditionPage(std::string title, const std::vector<PageMaterial>& materials)
    : data_(std::make_unique<Data>()) {
    data_->json = {{"title", std::move(title)},
                   {"gainLowDb", kGainLowDb},
                   {"gainHighDb", kGainHighDb},
                   {"materials", Json::array()},
                   {"programs", Json::array()}};
    for (const PageMaterial& material : materials)
        data_->json["materials"].push_back(
            {{"name", material.name}, {"sound", material.sound}, {"seconds", material.seconds}});
}

AuditionPage::~AuditionPage() = default;

void AuditionPage::add(const PageProgram& program, const std::vector<PageRendering>& renderings) {
    Json all = Json::array();
    for (const PageRendering& rendering : renderings)
        all.push_back(renderingOf(rendering));
    data_->json["programs"].push_back({{"slot", program.slot},
                                       {"name", program.name},
                                       {"family", program.family},
                                       {"purpose", program.purpose},
                                       {"turnFirst", program.turnFirst},
                                       {"settings", program.settings},
                                       {"renderings", std::move(all)}});
}

std::string AuditionPage::html() const {
    constexpr std::string_view kPlace = "@DATA@";
    const std::string_view page(pedlAuditionPage,
                                static_cast<std::size_t>(pedlAuditionPageEnd - pedlAuditionPage));
    const std::size_t place = page.find(kPlace);
    // Names come from files: bytes that are no text are replaced, and none ends the element.
    std::string data = data_->json.dump(-1, ' ', true, Json::error_handler_t::replace);
    for (std::size_t at = 0; (at = data.find('<', at)) != std::string::npos;)
        data.replace(at, 1, "\\u003c");
    return std::string(page.substr(0, place)) + data +
           std::string(page.substr(place + kPlace.size()));
}

} // namespace pedl::audition
