// Compiled for AVX2: it holds nothing that code for other processors could be linked to.

#include "tests/engine/VectorMathSamples.h"

void pedl::test::evaluateFourLanes(Function function, const double* x, const double* y,
                                   double* result, int count) {
    evaluate<xsimd::batch<double, xsimd::avx2>>(function, x, y, result, count);
}
