#include "host/AutomationCurve.h"

#include "foundation/text/NameMatch.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <fstream>
#include <optional>
#include <string>

namespace pedl {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF"; // spreadsheets put it before UTF-8

std::optional<double> numberFrom(std::string_view text) {
    text = trimmed(text);
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || !std::isfinite(number))
        return std::nullopt;
    return number;
}

} // namespace

Result<AutomationCurve> AutomationCurve::parse(std::istream& text, std::string_view name) {
    std::vector<Point> points;
    std::string line;
    bool mayBeHeader = true;
    for (int lineNumber = 1; std::getline(text, line); ++lineNumber) {
        const auto problem = [&](const std::string& what) {
            return Problem{std::string(name) + ":" + std::to_string(lineNumber) + ": " + what};
        };
        std::string_view rest = line;
        if (lineNumber == 1 && rest.starts_with(kByteOrderMark))
            rest.remove_prefix(kByteOrderMark.size());
        rest = trimmed(rest);
        if (rest.empty() || rest.front() == '#')
            continue;

        const std::size_t comma = rest.find(',');
        const std::string_view secondsText = rest.substr(0, comma);
        const std::string_view valueText =
            comma == std::string_view::npos ? std::string_view{} : rest.substr(comma + 1);
        const std::optional<double> seconds = numberFrom(secondsText);
        const std::optional<double> value = numberFrom(valueText);
        if (mayBeHeader && comma != std::string_view::npos && !seconds && !value) {
            mayBeHeader = false;
            continue;
        }
        mayBeHeader = false;
        if (!seconds || !value)
            return problem("is not \"seconds,value\"");
        if (*seconds < 0.0)
            return problem("the time is below 0");
        if (!points.empty() && *seconds < points.back().seconds)
            return problem("the time goes back");
        if (*value < 0.0 || *value > 1.0)
            return problem("the value is outside 0 .. 1");
        points.push_back({*seconds, static_cast<float>(*value)});
    }
    if (text.bad())
        return Problem{std::string(name) + ": cannot be read"};
    if (points.empty())
        return Problem{std::string(name) + ": holds no points \"seconds,value\""};
    return AutomationCurve(std::move(points));
}

Result<AutomationCurve> AutomationCurve::load(const std::filesystem::path& path) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        return Problem{path.string() + ": is a folder, not a curve"};
    errno = 0;
    std::ifstream file(path);
    if (!file)
        return Problem{path.string() + ": " + systemText(errno != 0 ? errno : EIO)};
    return parse(file, path.string());
}

float AutomationCurve::valueAt(double seconds) const {
    const auto after =
        std::upper_bound(points_.begin(), points_.end(), seconds,
                         [](double time, const Point& point) { return time < point.seconds; });
    if (after == points_.begin())
        return points_.front().normalised;
    const Point& from = *(after - 1);
    if (after == points_.end())
        return from.normalised;
    const double share = (seconds - from.seconds) / (after->seconds - from.seconds);
    return static_cast<float>(from.normalised +
                              share * (static_cast<double>(after->normalised) - from.normalised));
}

} // namespace pedl
