#pragma once

#include "tests/reference/RandomSettings.h"

#include <vector>

namespace pedl::bench {

/// A sound whose cost is looked at. Engine and reference are set from the same rows.
struct Setting {
    const char* name;
    double aimSse2; ///< share of the reference's time; 0: no aim
    double aimAvx2;
    std::vector<reference::ParameterValue> changes; ///< to the Default program
};

/// @return Default, everything on, and nearly everything off
inline std::vector<Setting> benchSettings() {
    return {
        {"Default", 0.28, 0.22, {}},
        {"everything on",
         0.40,
         0.30,
         {{kGain, 0.55F},
          {kLFOType, 1.0F}, // random value
          {kLFOFilter, 0.4F},
          {kLFOWidth, 0.3F},
          {kLFOFreq, 0.4F},
          {kLFORndmization, 0.6F},
          {kLFOSpread, 0.8F},
          {kRateLFOByEnvDefeat, 1.0F},
          {kRateLFOByEnv, 0.7F},
          {kDepthLFOByEnvDefeat, 1.0F},
          {kDepthLFOByEnv, 0.7F},
          {kFilterType, 0.3F},
          {kFilterPole, 1.0F},
          {kFilterReso, 0.5F},
          {kEnvThreshold, 0.4F},
          {kEnvAttack, 0.3F},
          {kEnvRelease, 0.4F},
          {kFilterFreqByLFODefeat, 1.0F},
          {kFilterFreqByLFO, 0.6F},
          {kGainByLFODefeat, 1.0F},
          {kGainByLFO, 0.7F},
          {kGainByENVDefeat, 1.0F},
          {kGainByENV, 0.7F},
          {kLimSoftSatRouting, 1.0F}, // behind the mix
          {kLimiterTreshold, 0.6F},
          {kSoftSatTreshold, 0.6F},
          {kDryDefeat, 1.0F},
          {kDry, 0.3F},
          {kWet, 0.6F}}},
        {"filter off, no modulation",
         0.0,
         0.0,
         {{kFilterPole, 0.0F}, {kFilterFreqByENVDefeat, 0.0F}, {kModulationOnOff, 1.0F}}},
    };
}

} // namespace pedl::bench
