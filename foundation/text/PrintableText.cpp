#include "foundation/text/PrintableText.h"

#include "foundation/text/Utf8.h"

namespace pedl {

std::string printableText(std::string_view text) {
    std::string printable;
    while (!text.empty()) {
        const auto byte = static_cast<unsigned char>(text.front());
        const char32_t character = takeCharacter(text).value_or(byte); // Latin-1
        printable += isControl(character) ? " " : utf8Of(character);
    }
    return printable;
}

} // namespace pedl
