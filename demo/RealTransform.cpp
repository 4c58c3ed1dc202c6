#include "demo/RealTransform.h"

#include <mutex>

namespace pedl::demo {

namespace {

/// Making and destroying plans share tables of the library's without a lock of its own.
std::mutex& plannerLock() {
    static std::mutex lock;
    return lock;
}

} // namespace

RealTransform::RealTransform(std::size_t frames)
    : frames_(frames), input_(fftw_alloc_real(frames)),
      output_(fftw_alloc_complex(frames / 2 + 1)) {
    const std::scoped_lock held(plannerLock());
    plan_ =
        fftw_plan_dft_r2c_1d(static_cast<int>(frames), input_.get(), output_.get(), FFTW_ESTIMATE);
}

RealTransform::~RealTransform() {
    const std::scoped_lock held(plannerLock());
    fftw_destroy_plan(plan_);
}

void RealTransform::run() {
    fftw_execute(plan_);
}

} // namespace pedl::demo
