#include "host/AutomationCurve.h"

#include "foundation/text/NameMatch.h"

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cmath>
#include <fstream>
#include <optional>
#include <string>
#include <utility>

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

/// Reads the lines of one file.
class CurveReader {
public:
    explicit CurveReader(const AutomationCurve::ValueOfText& valueOfText)
        : valueOfText_(valueOfText) {}

    Done take(std::string_view line) {
        const bool mayBeHeader = std::exchange(mayBeHeader_, false);
        const std::size_t comma = line.find(',');
        if (comma == std::string_view::npos)
            return notAPoint();
        const std::optional<double> seconds = numberFrom(line.substr(0, comma));
        const std::string_view text = trimmed(line.substr(comma + 1));
        if (!seconds && mayBeHeader && !numberFrom(text)) {
            areTexts_ = lowerCase(text) == "text";
            return done();
        }
        if (!seconds || text.empty())
            return notAPoint();
        if (*seconds < 0.0)
            return Problem{"the time is below 0"};
        if (!points_.empty() && *seconds < points_.back().seconds)
            return Problem{"the time goes back"};
        const Result<float> value = valueFrom(text);
        if (!value.ok())
            return value.problem();
        points_.push_back({*seconds, value.value()});
        return done();
    }

    [[nodiscard]] std::vector<AutomationCurve::Point>& points() { return points_; }

private:
    static Problem notAPoint() { return Problem{"is not \"seconds,value\""}; }

    [[nodiscard]] Result<float> valueFrom(std::string_view text) const {
        const std::optional<double> number = numberFrom(text);
        if (!number || areTexts_)
            return valueOfText_(text);
        if (*number < 0.0 || *number > 1.0)
            return Problem{"the value is outside 0 .. 1; a first line \"seconds,text\" or a unit "
                           "makes it one that the parameter shows"};
        return static_cast<float>(*number);
    }

    const AutomationCurve::ValueOfText& valueOfText_;
    std::vector<AutomationCurve::Point> points_;
    bool mayBeHeader_ = true;
    bool areTexts_ = false;
};

} // namespace

Result<AutomationCurve> AutomationCurve::parse(std::istream& text, std::string_view name,
                                               const ValueOfText& valueOfText) {
    CurveReader reader(valueOfText);
    std::string line;
    for (int lineNumber = 1; std::getline(text, line); ++lineNumber) {
        std::string_view rest = line;
        if (lineNumber == 1 && rest.starts_with(kByteOrderMark))
            rest.remove_prefix(kByteOrderMark.size());
        rest = trimmed(rest);
        if (rest.empty() || rest.front() == '#')
            continue;
        if (const Done taken = reader.take(rest); !taken.ok())
            return taken.problem().of(std::string(name) + ":" + std::to_string(lineNumber));
    }
    if (text.bad())
        return Problem{std::string(name) + ": cannot be read"};
    if (reader.points().empty())
        return Problem{std::string(name) + ": holds no points \"seconds,value\""};
    return AutomationCurve(std::move(reader.points()));
}

Result<AutomationCurve> AutomationCurve::load(const std::filesystem::path& path,
                                              const ValueOfText& valueOfText) {
    std::error_code error;
    if (std::filesystem::is_directory(path, error))
        return Problem{path.string() + ": is a folder, not a curve"};
    errno = 0;
    std::ifstream file(path);
    if (!file)
        return Problem{path.string() + ": " + systemText(errno != 0 ? errno : EIO)};
    return parse(file, path.string(), valueOfText);
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
