#pragma once

#include <cstddef>
#include <vector>

namespace pedl::skin {

/// A plane of numbers: heights, coverages, noise.
struct Field {
    int width = 0;
    int height = 0;
    std::vector<float> values;

    Field() = default;
    Field(int columns, int rows)
        : width(columns), height(rows),
          values(static_cast<std::size_t>(columns) * static_cast<std::size_t>(rows)) {}

    [[nodiscard]] float* row(int y) {
        return values.data() + static_cast<std::ptrdiff_t>(y) * width;
    }
    [[nodiscard]] const float* row(int y) const {
        return values.data() + static_cast<std::ptrdiff_t>(y) * width;
    }
};

/// Gaussian blur; `sigma` in samples, beyond the border its values go on. Wide ones are three
/// running means, at a price that does not depend on the width.
void blur(Field& field, double sigma);

/// Scales to mean 0 and variance 1.
void normalise(Field& field);

} // namespace pedl::skin
