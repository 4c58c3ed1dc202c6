#pragma once

#include "engine/CutoffStage.h"
#include "engine/EnvelopeStage.h"
#include "engine/FilterStage.h"
#include "engine/LfoStage.h"
#include "engine/OutputStage.h"
#include "engine/SignalStage.h"
#include "engine/Stages.h"

namespace pedl {

/// All stages for one set of registers.
template <typename Lanes> constexpr StageTable stageTableOf() {
    return {
        .envelope = EnvelopeStage<Lanes>::run,
        .lfo = LfoStage<Lanes>::run,
        .cutoff = CutoffStage<Lanes>::run,
        .filter = FilterStage<Lanes>::run,
        .limiter = OutputStage<Lanes>::limit,
        .saturator = OutputStage<Lanes>::saturate,
        .input = SignalStage<Lanes>::input,
        .lfoGain = SignalStage<Lanes>::lfoGain,
        .wet = SignalStage<Lanes>::wet,
        .largestSum = SignalStage<Lanes>::largestSum,
        .mix = SignalStage<Lanes>::mix,
    };
}

} // namespace pedl
