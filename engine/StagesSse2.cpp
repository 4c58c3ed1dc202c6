// The stages for every x86-64 processor.

#include "engine/Lanes.h"
#include "engine/StageTableOf.h"

namespace pedl {

extern const StageTable kSse2Stages;
constinit const StageTable kSse2Stages = stageTableOf<Sse2Lanes>();

} // namespace pedl
