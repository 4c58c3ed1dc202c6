#pragma once

#include "engine/ModFilterEngine.h"
#include "parameters/ParameterIndex.h"

namespace pedl::reference {

/// Hands a parameter to the engine by its index, as the effect does; what the engine has no setter
/// for is ignored. After the release the attack is applied again by the caller.
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

} // namespace pedl::reference
