#include "resources/painter/Field.h"

#include <algorithm>
#include <cmath>

namespace pedl::skin {

namespace {

constexpr double kWidestKernel = 5.0; // sigma in samples, beyond which running means are cheaper

/// One line with its surroundings, so that a filter need not look where it is.
class Line {
public:
    Line(int length, int margin) : margin_(margin), length_(length) {
        samples_.resize(static_cast<std::size_t>(length) + 2 * static_cast<std::size_t>(margin));
    }

    void load(const float* from, std::ptrdiff_t step) {
        std::fill_n(samples_.begin(), margin_, from[0]);
        std::fill(samples_.end() - margin_, samples_.end(), from[step * (length_ - 1)]);
        float* const inside = samples_.data() + margin_;
        for (int i = 0; i < length_; ++i)
            inside[i] = from[step * i];
    }

    [[nodiscard]] const float* data() const { return samples_.data(); }

private:
    int margin_;
    int length_;
    std::vector<float> samples_;
};

/// Calls `filter` (padded line, result) for every row, then for every column.
template <class Filter> void separable(Field& field, int margin, Filter filter) {
    std::vector<float> result(static_cast<std::size_t>(std::max(field.width, field.height)));
    Line across(field.width, margin);
    for (int y = 0; y < field.height; ++y) {
        across.load(field.row(y), 1);
        filter(across.data(), field.width, result.data());
        std::copy_n(result.data(), field.width, field.row(y));
    }
    Line down(field.height, margin);
    for (int x = 0; x < field.width; ++x) {
        down.load(field.values.data() + x, field.width);
        filter(down.data(), field.height, result.data());
        for (int y = 0; y < field.height; ++y)
            field.row(y)[x] = result[static_cast<std::size_t>(y)];
    }
}

void blurByKernel(Field& field, double sigma) {
    const int reach = static_cast<int>(3.0 * sigma + 1.0);
    std::vector<float> kernel(2 * static_cast<std::size_t>(reach) + 1);
    double sum = 0.0;
    for (int i = -reach; i <= reach; ++i)
        sum += std::exp(-0.5 * i * i / (sigma * sigma));
    for (int i = 0; float& share : kernel) {
        const int from = i++ - reach;
        share = static_cast<float>(std::exp(-0.5 * from * from / (sigma * sigma)) / sum);
    }
    separable(field, reach, [&kernel](const float* line, int length, float* result) {
        std::fill_n(result, length, 0.0F);
        for (std::size_t k = 0; k < kernel.size(); ++k)
            for (int i = 0; i < length; ++i)
                result[i] += kernel[k] * line[static_cast<std::size_t>(i) + k];
    });
}

/// A running mean of 2 `reach` + 1 samples has the variance reach (reach + 1) / 3; three of them
/// look like the bell.
void blurByMeans(Field& field, double sigma) {
    const int reach =
        std::max(1, static_cast<int>(std::lround(-0.5 + std::sqrt(0.25 + sigma * sigma))));
    for (int pass = 0; pass < 3; ++pass)
        separable(field, reach, [reach](const float* line, int length, float* result) {
            const double share = 1.0 / (2 * reach + 1);
            double sum = 0.0;
            for (int i = 0; i < 2 * reach; ++i)
                sum += line[i];
            for (int i = 0; i < length; ++i) {
                sum += line[i + 2 * reach];
                result[i] = static_cast<float>(sum * share);
                sum -= line[i];
            }
        });
}

} // namespace

void blur(Field& field, double sigma) {
    if (sigma <= 0.0 || field.values.empty())
        return;
    if (sigma > kWidestKernel)
        blurByMeans(field, sigma);
    else
        blurByKernel(field, sigma);
}

void normalise(Field& field) {
    const auto count = static_cast<double>(field.values.size());
    double mean = 0.0;
    for (const float value : field.values)
        mean += value;
    mean /= count;
    double variance = 0.0;
    for (const float value : field.values)
        variance += (value - mean) * (value - mean);
    const double scale = 1.0 / std::sqrt(variance / count);
    for (float& value : field.values)
        value = static_cast<float>((value - mean) * scale);
}

} // namespace pedl::skin
