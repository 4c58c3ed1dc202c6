#include "engine/Stages.h"

namespace pedl {

extern const StageTable kSse2Stages;
extern const StageTable kAvx2Stages;

const StageTable& stagesFor(InstructionSet instructions) noexcept {
    return instructions == InstructionSet::Avx2 ? kAvx2Stages : kSse2Stages;
}

} // namespace pedl
