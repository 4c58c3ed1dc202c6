#include "vstgui/lib/platform/linux/displayscale.h"

#include <charconv>
#include <cstdlib>
#include <string_view>

namespace VSTGUI {

double displayScaleFactor() {
    constexpr double kSmallest = 0.5;
    constexpr double kLargest = 4.0;
    const char* const variable = std::getenv("ZMT_EDITOR_SCALE");
    const std::string_view text(variable ? variable : "");
    double scale = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
    const bool isNumber = error == std::errc{} && end == text.data() + text.size();
    return isNumber && scale >= kSmallest && scale <= kLargest ? scale : 1.0;
}

} // namespace VSTGUI
