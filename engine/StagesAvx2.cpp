// The stages for processors with AVX2; this file alone is compiled for them. Nothing in here may be
// emitted under a name that other files use, too: see Lanes.h.

#include "engine/Lanes.h"
#include "engine/StageTableOf.h"

namespace pedl {

constinit const StageTable kAvx2Stages = stageTableOf<Avx2Lanes>();

} // namespace pedl
