#pragma once

#include "parameters/ParameterIndex.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace pedl {

constexpr std::size_t kProgramNameBytes = 24; // 23 characters and the terminating zero
constexpr std::size_t kProgramNameLength = kProgramNameBytes - 1;
constexpr std::size_t kProgramRecordBytes = kProgramNameBytes + kNumParams * sizeof(float);

using ProgramName = std::array<char, kProgramNameBytes>;

/// One program as memory, host chunks and files hold it, byte for byte.
struct ProgramRecord {
    ProgramName name{}; ///< ends with a zero; behind that lies what was stored, mostly zeros
    std::array<float, kNumParams> normalised{}; ///< in parameter order, 0..1
};
static_assert(sizeof(ProgramRecord) == kProgramRecordBytes && kProgramRecordBytes == 248);

/// A name from any text: its first 23 characters, the rest zeros.
[[nodiscard]] constexpr ProgramName toProgramName(std::string_view text) noexcept {
    ProgramName name{};
    text.substr(0, kProgramNameLength).copy(name.data(), kProgramNameLength);
    return name;
}

/// A stored name as it is, but for one that does not end: it is cut at 23 characters.
[[nodiscard]] constexpr ProgramName terminated(ProgramName name) noexcept {
    if (std::string_view(name.data(), name.size()).find('\0') == std::string_view::npos)
        name.back() = '\0';
    return name;
}

/// The characters of `name` before its zeros; good for as long as `name` is.
[[nodiscard]] constexpr std::string_view nameText(const ProgramName& name) noexcept {
    const std::string_view characters(name.data(), kProgramNameLength);
    return characters.substr(0, characters.find('\0'));
}

} // namespace pedl
