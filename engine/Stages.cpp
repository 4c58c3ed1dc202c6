#include "engine/Stages.h"

namespace pedl {

const StageTable& stagesFor(InstructionSet instructions) noexcept {
    return instructions == InstructionSet::Avx2 ? kAvx2Stages : kSse2Stages;
}

} // namespace pedl
