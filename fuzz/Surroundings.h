#pragma once

#include "foundation/platform/NoDiagnostics.h"
#include "foundation/platform/NoSettings.h"
#include "foundation/platform/StandingClock.h"
#include "foundation/vst24/VstOpcodes.h"
#include "plugin/ZMTpedlFilterEffect.h"

namespace pedl::fuzz {

/// What a fuzz target builds an effect on: no time passes, nothing is printed, and the host answers
/// its version alone.
class Surroundings {
public:
    [[nodiscard]] EffectSurroundings forEffect() { return {clock_, diagnostics_, settings_}; }

    static VstIntPtr host(AEffect*, VstInt32 opcode, VstInt32, VstIntPtr, void*, float) {
        return opcode == audioMasterVersion ? 2400 : 0;
    }

private:
    StandingClock clock_;
    NoDiagnostics diagnostics_;
    NoSettings settings_;
};

} // namespace pedl::fuzz
