#pragma once

#include <cstdint>

namespace pedl {

/// Bytes that a control hands to a procedure below for its text, the final zero included.
inline constexpr int kValueTextBytes = 256;

// How an owner gives a control the text of its value: UTF-8 with a final zero, into a buffer of
// `kValueTextBytes` that holds zeros.

using ValueToTextProc = void (*)(float value, char* text);
using ValueToTextProcWithData = void (*)(float value, char* text, void* userData, int32_t tag);

} // namespace pedl
