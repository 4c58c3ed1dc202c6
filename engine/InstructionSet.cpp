#include "engine/InstructionSet.h"

namespace pedl {

InstructionSet widestInstructionSet() noexcept {
    return __builtin_cpu_supports("avx2") != 0 ? InstructionSet::Avx2 : InstructionSet::Sse2;
}

} // namespace pedl
