#pragma once

#include <cstring>
#include <optional>
#include <string_view>

namespace pedl {

/// The value whose text a caller asks for by starting its buffer with "1EAD" and a float; nothing
/// where the buffer does not start so.
///
/// The view asks in this way for the text of a value that it has not set yet. A host's buffer
/// begins with a zero or with an old text and may be nine bytes short: it is read no further than
/// it matches.
[[nodiscard]] inline std::optional<float> requestedDisplayValue(const char* buffer) noexcept {
    constexpr std::string_view kMarker = "1EAD";
    for (std::size_t i = 0; i < kMarker.size(); ++i)
        if (buffer[i] != kMarker[i])
            return std::nullopt;
    float value = 0.0F;
    std::memcpy(&value, buffer + kMarker.size(), sizeof value);
    return value;
}

} // namespace pedl
