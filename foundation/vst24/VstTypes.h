#pragma once

#include <cstdint>

/// The basic types of the VST 2.4 binary interface, under the names all plug-in code uses.
///
/// Nothing here depends on the platform's `long`, so Linux and Windows share one layout.

using VstInt16 = std::int16_t;
using VstInt32 = std::int32_t;
using VstInt64 = std::int64_t;
using VstIntPtr = std::intptr_t; // holds an integer or a pointer, whichever a call carries

// 32-bit Windows knows several calling conventions; elsewhere there is one and nothing to say.
#if defined(_WIN32)
#define VSTCALLBACK __cdecl
#else
#define VSTCALLBACK
#endif

/// Four-character code: the first character stands in the most significant byte.
constexpr VstInt32 CCONST(char first, char second, char third, char fourth) noexcept {
    const auto byte = [](char c) {
        return static_cast<std::uint32_t>(static_cast<unsigned char>(c));
    };
    return static_cast<VstInt32>(byte(first) << 24 | byte(second) << 16 | byte(third) << 8 |
                                 byte(fourth));
}
