#pragma once

#include "engine/VectorMath.h"

namespace pedl::test {

enum class Function { Exp, Exp2, Log, Tanh, Pow };

/// `function` of each of `count` arguments, four lanes at a time; needs a processor with AVX2.
/// @param y      exponents of the power, else unread
/// @param count  a multiple of 4
void evaluateFourLanes(Function function, const double* x, const double* y, double* result,
                       int count);

/// The same in registers of type `V`.
template <typename V>
void evaluate(Function function, const double* x, const double* y, double* result, int count) {
    for (int i = 0; i < count; i += static_cast<int>(V::size)) {
        const V at = V::load_unaligned(x + i);
        V value = at;
        switch (function) {
        case Function::Exp:
            value = vectormath::exp(at);
            break;
        case Function::Exp2:
            value = vectormath::exp2(at);
            break;
        case Function::Log:
            value = vectormath::log(at);
            break;
        case Function::Tanh:
            value = vectormath::tanh(at);
            break;
        case Function::Pow:
            value = vectormath::pow(at, V::load_unaligned(y + i));
            break;
        }
        value.store_unaligned(result + i);
    }
}

} // namespace pedl::test
