#include "foundation/text/PrintableText.h"

namespace pedl {

namespace {

/// Bytes of the well-formed UTF-8 character at the front of `text`, 0 when there is none.
std::size_t characterBytes(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned lead = byte(0);
    const std::size_t length = lead < 0x80   ? 1
                               : lead < 0xC2 ? 0 // continuation, or longer than need be
                               : lead < 0xE0 ? 2
                               : lead < 0xF0 ? 3
                               : lead < 0xF5 ? 4
                                             : 0;
    if (length > text.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i)
        if ((byte(i) & 0xC0U) != 0x80U)
            return 0;
    // Too long a form, a surrogate half, or beyond the last code point.
    if ((lead == 0xE0 && byte(1) < 0xA0) || (lead == 0xED && byte(1) >= 0xA0) ||
        (lead == 0xF0 && byte(1) < 0x90) || (lead == 0xF4 && byte(1) >= 0x90))
        return 0;
    return length;
}

} // namespace

std::string printableText(std::string_view text) {
    std::string printable;
    while (!text.empty()) {
        const auto lead = static_cast<unsigned char>(text.front());
        const std::size_t length = characterBytes(text);
        const bool isC1Control =
            lead == 0xC2 && length == 2 && static_cast<unsigned char>(text[1]) < 0xA0;
        if (lead < 0x20 || lead == 0x7F || isC1Control || (length == 0 && lead < 0xA0))
            printable += ' ';
        else if (length > 0)
            printable += text.substr(0, length);
        else {
            printable += static_cast<char>(0xC0U | (lead >> 6U));
            printable += static_cast<char>(0x80U | (lead & 0x3FU));
        }
        text.remove_prefix(length > 0 ? length : 1);
    }
    return printable;
}

} // namespace pedl
