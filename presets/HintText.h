#pragma once

#include "parameters/CopyText.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace pedl {

/// Of a hint, the terminating zero not counted.
constexpr std::size_t kHintTextLength = 128;

/// What a user reads when nothing else is to be said, and where it leads.
constexpr std::string_view kWebAddress = "https://zmt-sonics.example/";
constexpr std::string_view kWebAddressShort = kWebAddress.substr(8, kWebAddress.size() - 9);

/// @param text  room for `kHintTextLength` characters and the terminating zero
inline void copyHint(char* text, std::string_view hint) noexcept {
    copyText(text, hint, kHintTextLength);
}

/// A control and the one sentence that explains it.
struct Hint {
    std::int32_t tag;
    std::string_view text;
};

/// The sentence of a control, empty where it has none.
constexpr std::string_view findHint(std::span<const Hint> hints, std::int32_t tag) noexcept {
    for (const Hint& hint : hints)
        if (hint.tag == tag)
            return hint.text;
    return {};
}

} // namespace pedl
