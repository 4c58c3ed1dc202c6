/// @file
/// The Fourier transform of the measuring programs' windows.
#pragma once

#include <cstddef>
#include <memory>
#include <span>

#include <fftw3.h>

namespace pedl::demo {

/// A discrete Fourier transform of one fixed number of real values, with its memory. Each object
/// belongs to one thread at a time; objects may be made, used and destroyed on any threads at once,
/// though the planner below is not safe for that.
class RealTransform {
public:
    /// @param frames  values in, at least 2
    explicit RealTransform(std::size_t frames);
    ~RealTransform();
    RealTransform(const RealTransform&) = delete;
    RealTransform& operator=(const RealTransform&) = delete;

    /// The values to transform; the caller writes them, run() leaves them as they are.
    [[nodiscard]] std::span<double> input() { return {input_.get(), frames_}; }

    void run();

    /// |X|^2 of one bin, 0 to frames / 2, after run(); not scaled.
    [[nodiscard]] double power(std::size_t bin) const {
        return output_[bin][0] * output_[bin][0] + output_[bin][1] * output_[bin][1];
    }

private:
    struct Free {
        void operator()(void* memory) const { fftw_free(memory); }
    };

    std::size_t frames_;
    std::unique_ptr<double[], Free> input_;
    std::unique_ptr<fftw_complex[], Free> output_;
    fftw_plan plan_;
};

} // namespace pedl::demo
