#include "demo/ProgramPlay.h"

#include "foundation/platform/NoDiagnostics.h"
#include "foundation/platform/NoSettings.h"
#include "foundation/platform/StandingClock.h"
#include "host/HostServices.h"
#include "plugin/ZMTpedlFilterEffect.h"

#include <algorithm>
#include <cmath>

namespace pedl::demo {

struct ProgramWalk::Parts {
    Parts(int sampleRateHz, const PlayConditions& conditions) : clock(conditions.seed) {
        services.sampleRateHz = sampleRateHz;
        services.blockFrames = kBlockFrames;
        services.transport.isPlaying = true;
        services.transport.tempoBpm = conditions.tempoBpm;
        const HostServices::Active active(services);
        effect = std::make_unique<ZMTpedlFilterEffect>(
            HostServices::callback, EffectSurroundings{clock, diagnostics, settings});
    }

    StandingClock clock;
    NoDiagnostics diagnostics;
    NoSettings settings;
    HostServices services;
    std::unique_ptr<ZMTpedlFilterEffect> effect;
};

ProgramWalk::ProgramWalk(const ProgramRecord& program, int sampleRateHz,
                         const PlayConditions& conditions)
    : parts_(std::make_unique<Parts>(sampleRateHz, conditions)) {
    change(program);
    const HostServices::Active active(parts_->services);
    parts_->effect->resume();
}

ProgramWalk::~ProgramWalk() = default;

void ProgramWalk::change(const ProgramRecord& program) {
    const HostServices::Active active(parts_->services);
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        parts_->effect->setParameter(parameter,
                                     program.normalised[static_cast<std::size_t>(parameter)]);
}

void ProgramWalk::play(StereoSound& sound, std::size_t fromFrame, std::size_t frames,
                       ModulationTrace* trace) {
    const HostServices::Active active(parts_->services);
    const std::size_t end = std::min(fromFrame + frames, sound.lengthFrames());
    for (std::size_t frame = fromFrame; frame < end;) {
        const auto count = static_cast<VstInt32>(std::min<std::size_t>(kBlockFrames, end - frame));
        float* channels[] = {sound.left.data() + frame, sound.right.data() + frame};
        parts_->effect->processReplacing(channels, channels, count);
        parts_->services.advance(count);
        frame += static_cast<std::size_t>(count);
        if (trace == nullptr)
            continue;
        const ModulationState state = parts_->effect->modulation();
        trace->push_back({static_cast<double>(frame) / sound.sampleRateHz, state.cutoffLeftHz,
                          state.cutoffRightHz, state.gainLeft, state.gainRight});
    }
}

PlayedProgram playProgram(const ProgramRecord& program, const StereoSound& input,
                          const PlayConditions& conditions) {
    PlayedProgram played{input, {}};
    const auto factor = static_cast<float>(std::pow(10.0, conditions.inputGainDb / 20.0));
    for (auto* channel : {&played.output.left, &played.output.right})
        for (float& sample : *channel)
            sample *= factor;
    ProgramWalk walk(program, input.sampleRateHz, conditions);
    walk.play(played.output, 0, played.output.lengthFrames(), &played.trace);
    return played;
}

} // namespace pedl::demo
