#pragma once

#include "foundation/text/Result.h"

#include <filesystem>
#include <functional>
#include <istream>
#include <optional>
#include <string_view>
#include <vector>

namespace pedl {

/// The course of one parameter over a song: points joined by straight lines.
///
/// Before its first point a curve has that point's value, after its last point that one's. Two
/// points at one time are a jump; at that time the later one counts.
class AutomationCurve {
public:
    struct Point {
        double seconds = 0.0;
        float normalised = 0.0F;
    };

    /// The normalised value at which the parameter shows a text.
    using ValueOfText = std::function<Result<float>(std::string_view text)>;

    /// Reads lines "seconds,value": times from 0 that do not go back, values from 0 to 1 or texts
    /// of the parameter ("200 Hz"). After a first line "seconds,text" plain numbers are texts as
    /// well. Empty lines and lines that begin with # are skipped, as is a first line that holds
    /// words.
    /// @param name  of the file, for the message "name:line: what is wrong"
    static Result<AutomationCurve> parse(std::istream& text, std::string_view name,
                                         const ValueOfText& valueOfText);
    static Result<AutomationCurve> load(const std::filesystem::path& path,
                                        const ValueOfText& valueOfText);

    [[nodiscard]] float valueAt(double seconds) const;

    /// When it stops moving; nothing for a curve of one point, which never moves.
    [[nodiscard]] std::optional<double> endSeconds() const {
        return points_.size() > 1 ? std::optional(points_.back().seconds) : std::nullopt;
    }

private:
    explicit AutomationCurve(std::vector<Point> points) : points_(std::move(points)) {}

    std::vector<Point> points_; // one at least, by time
};

} // namespace pedl
