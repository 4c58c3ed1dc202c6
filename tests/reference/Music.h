#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace pedl::reference {

/// Left and right sound, full scale at 1.0.
using Sound = std::array<std::vector<double>, 2>;

/// Decaying saw chords, each struck with a burst of noise, a little apart on the two sides. Loud
/// and soft chords follow each other, so that envelopes have something to follow.
Sound music(std::size_t frames, double sampleRateHz, std::uint32_t seed);

} // namespace pedl::reference
