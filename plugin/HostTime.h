#pragma once

#include <optional>

namespace pedl {

/// Where the host's song is, as far as the host says and as far as it makes sense.
struct HostTime {
    std::optional<double> tempoBpm;
    std::optional<double> positionQuarters; ///< negative in a count-in
};

} // namespace pedl
