#pragma once

#include "engine/ModFilterEngine.h"
#include "parameters/ParameterIndex.h"
#include "tests/reference/Music.h"
#include "tests/reference/PlainEngine.h"
#include "tests/reference/RandomSettings.h"

namespace pedl::reference {

/// Hands a parameter to the engine by its index, as the effect does; what the engine has no setter
/// for is ignored.
inline void setParameter(ModFilterEngine& engine, int index, float normalised) {
    using Setter = void (ModFilterEngine::*)(float) noexcept;
    struct Row {
        int index;
        Setter setter;
    };
    using E = ModFilterEngine;
    static constexpr Row kRows[] = {
        {kPower, &E::setPower},
        {kGain, &E::setInputGain},
        {kFreez, &E::setFreeze},
        {kLFOType, &E::setLfoType},
        {kLFOFilter, &E::setLfoFilter},
        {kLFOWidth, &E::setLfoWidth},
        {kLFOFreq, &E::setLfoRate},
        {kLFORndmizationType, &E::setLfoRandomType},
        {kLFORndmization, &E::setLfoRandomAmount},
        {kLFOSpread, &E::setLfoSpread},
        {kRateLFOByEnvDefeat, &E::setEnvToLfoRateSwitch},
        {kRateLFOByEnv, &E::setEnvToLfoRate},
        {kDepthLFOByEnvDefeat, &E::setEnvToLfoDepthSwitch},
        {kDepthLFOByEnv, &E::setEnvToLfoDepth},
        {kFilterType, &E::setFilterType},
        {kFilterPole, &E::setFilterSlope},
        {kFilterReso, &E::setResonance},
        {kFilterCutoffFreq, &E::setCutoff},
        {kFilterSaturation, &E::setFilterSaturation},
        {kEnvThresholdMode, &E::setEnvThresholdMode},
        {kEnvThreshold, &E::setEnvThreshold},
        {kEnvAttack, &E::setEnvAttack},
        {kEnvAttackExtension, &E::setEnvAttackExtension},
        {kEnvRelease, &E::setEnvRelease},
        {kEnvRange, &E::setEnvRange},
        {kFilterFreqByLFODefeat, &E::setLfoToCutoffSwitch},
        {kFilterFreqByLFO, &E::setLfoToCutoff},
        {kGainByLFODefeat, &E::setLfoToGainSwitch},
        {kGainByLFO, &E::setLfoToGain},
        {kFilterFreqByENVDefeat, &E::setEnvToCutoffSwitch},
        {kFilterFreqByENV, &E::setEnvToCutoff},
        {kGainByENVDefeat, &E::setEnvToGainSwitch},
        {kGainByENV, &E::setEnvToGain},
        {kLimSoftSatRouting, &E::setRouting},
        {kLimiterDefeat, &E::setLimiterSwitch},
        {kLimiterTreshold, &E::setLimiterLevel},
        {kSoftSatDefeat, &E::setSaturatorSwitch},
        {kSoftSatTreshold, &E::setSaturatorDrive},
        {kDryDefeat, &E::setDrySwitch},
        {kDry, &E::setDryLevel},
        {kWetDefeat, &E::setWetSwitch},
        {kWet, &E::setWetLevel},
        {kModulationOnOff, &E::setModulation},
    };
    for (const Row& row : kRows)
        if (row.index == index)
            (engine.*row.setter)(normalised);
}

inline void setParameter(PlainEngine& engine, int index, float normalised) {
    engine.setParameter(index, normalised);
}

/// The staged engine or the plain one, resumed and ready to play.
template <typename Engine> class EnginePlayer {
public:
    static constexpr std::uint32_t kSeed = 20; // of the random waves

    template <typename... Arguments>
    EnginePlayer(double sampleRateHz, const std::vector<ParameterValue>& program,
                 Arguments... furtherArguments)
        : engine_(kSeed, furtherArguments...) {
        apply(program);
        engine_.setSampleRate(sampleRateHz);
        engine_.reset();
        engine_.reinitialise(kSeed);
    }

    void apply(const std::vector<ParameterValue>& values) {
        for (const auto& [index, normalised] : values)
            setParameter(engine_, index, normalised);
    }

    /// Plays all of one sound into another.
    void play(const Sound& from, Sound& to) {
        const double* const inputs[] = {from[0].data(), from[1].data()};
        double* const outputs[] = {to[0].data(), to[1].data()};
        engine_.processDouble(inputs, outputs, static_cast<int>(from[0].size()));
    }

    /// Plays the frames from `first` on in place.
    void play(Sound& sound, std::size_t first, int frames) {
        double* const channels[] = {sound[0].data() + first, sound[1].data() + first};
        engine_.processDouble(channels, channels, frames);
    }

    MeterSnapshot meters() {
        MeterSnapshot snapshot;
        engine_.fillMeterSnapshot(snapshot);
        return snapshot;
    }
    ModulationState modulation() const { return engine_.modulation(); }

private:
    Engine engine_;
};

using PlainPlayer = EnginePlayer<PlainEngine>;
using StagedPlayer = EnginePlayer<ModFilterEngine>;

} // namespace pedl::reference
