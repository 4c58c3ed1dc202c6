#include "vstgui/lib/platform/linux/displayscale.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

namespace VSTGUI {

namespace {

/// A number such as "2" or "1.5", 0 for anything else. Not the library's own reading of such
/// numbers: that one runs code when the plug-in is loaded.
double numberOf(std::string_view text) {
    const std::size_t point = std::min(text.find('.'), text.size());
    double number = 0.0, place = 1.0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (i == point && text.size() > 1)
            continue;
        if (text[i] < '0' || text[i] > '9')
            return 0.0;
        number = number * 10.0 + (text[i] - '0');
        place *= i > point ? 10.0 : 1.0;
    }
    return number / place;
}

} // namespace

double displayScaleFactor() {
    constexpr double kSmallest = 0.5;
    constexpr double kLargest = 4.0;
    const char* const variable = std::getenv("ZMT_EDITOR_SCALE");
    const double scale = numberOf(variable ? variable : "");
    return scale >= kSmallest && scale <= kLargest ? scale : 1.0;
}

} // namespace VSTGUI
