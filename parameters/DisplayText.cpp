#include "parameters/DisplayText.h"

#include <charconv>
#include <limits>

namespace pedl {

void DisplayText::appendInteger(int number) {
    std::array<char, std::numeric_limits<int>::digits10 + 2> digits; // one partial digit, one sign
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    append({digits.data(), static_cast<std::size_t>(end - digits.data())});
}

} // namespace pedl
