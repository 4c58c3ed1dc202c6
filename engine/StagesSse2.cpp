// The stages for every x86-64 processor.

#include "engine/Lanes.h"
#include "engine/StageTableOf.h"

namespace pedl {

constinit const StageTable kSse2Stages = stageTableOf<Sse2Lanes>();

} // namespace pedl
