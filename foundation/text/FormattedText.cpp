#include "foundation/text/FormattedText.h"

#include <cstdarg>
#include <cstdio>

namespace pedl {

std::string formatted(const char* format, ...) {
    std::va_list values;
    va_start(values, format);
    const int length = std::vsnprintf(nullptr, 0, format, values);
    va_end(values);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, ' ');
    va_start(values, format);
    std::vsnprintf(text.data(), text.size() + 1, format, values); // and the zero that ends a string
    va_end(values);
    return text;
}

} // namespace pedl
