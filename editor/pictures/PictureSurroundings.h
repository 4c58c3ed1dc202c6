#pragma once

#include "foundation/platform/NoDiagnostics.h"
#include "foundation/platform/NoSettings.h"
#include "foundation/platform/StandingClock.h"
#include "foundation/vst24/VstOpcodes.h"
#include "plugin/ZMTpedlFilterEffect.h"

namespace pedl {

/// An effect for pictures, the same in every run: nothing of the user's, a calendar that stands
/// still, and a host that knows one tempo.
struct PictureSurroundings {
    static VstIntPtr VSTCALLBACK answerHost(AEffect* /*effect*/, VstInt32 opcode,
                                            VstInt32 /*index*/, VstIntPtr /*value*/, void* /*ptr*/,
                                            float /*opt*/) {
        constexpr VstInt32 kVstVersion = 2400;
        static VstTimeInfo time = [] {
            VstTimeInfo info{};
            info.tempo = 96.0;
            info.flags = kVstTempoValid;
            return info;
        }();
        if (opcode == audioMasterGetTime)
            return reinterpret_cast<VstIntPtr>(&time);
        return opcode == audioMasterVersion ? kVstVersion : 0;
    }

    StandingClock time;
    NoDiagnostics diagnostics;
    NoSettings settings;
    ZMTpedlFilterEffect effect{answerHost, {time, diagnostics, settings}};
};

} // namespace pedl
