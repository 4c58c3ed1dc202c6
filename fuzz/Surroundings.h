#pragma once

#include "foundation/platform/Clock.h"
#include "foundation/platform/DiagnosticStream.h"
#include "foundation/platform/NoSettings.h"
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
    struct StillClock final : Clock {
        [[nodiscard]] std::uint32_t tickMs() const override { return 0; }
        void sleepMs(std::uint32_t) override {}
        [[nodiscard]] std::uint32_t calendarSeconds() const override { return 1; }
    } clock_;

    struct SilentStream final : DiagnosticStream {
        void line(std::string_view) override {}
    } diagnostics_;

    NoSettings settings_;
};

} // namespace pedl::fuzz
