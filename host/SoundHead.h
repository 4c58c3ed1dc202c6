#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace pedl {

/// Puts the length of the sound into the head of a WAV or AIFF file, which ends where the samples
/// begin: RIFF or FORM, "fact" or "COMM", "data" or "SSND". A head of another kind stays as it is.
///
/// @param lengthFrames  nothing: as many as such a file may have at most, by which programs that
///                      write into a pipe say that they do not know
/// @param frameBytes    of all channels together
void writeLengthInto(std::vector<std::byte>& head, std::optional<std::int64_t> lengthFrames,
                     int frameBytes);

} // namespace pedl
