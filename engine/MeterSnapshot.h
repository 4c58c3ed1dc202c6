#pragma once

namespace pedl {

/// What the engine hands to a view at each look: live values and the peaks since the last look.
struct MeterSnapshot {
    double envelopeLevel = 0.0;   ///< envelope in its logarithmic units; halved in mode "around"
    double dryPeak = 0.0;         ///< half of the largest (|L| + |R|) / 2 behind the input gain
    double wetPeak = 0.0;         ///< half of the largest |L| + |R| before the wet level
    double lfoLeft = -1.0;        ///< smoothed LFO output, -1..1
    double lfoRight = -1.0;       ///< the same, right
    double limiterGain = 1.0;     ///< the limiter's gain factor; 1 while its switch is off
    double saturationLevel = 0.0; ///< the saturator's peak in meter units; 0 while it is off
    double lfoRateHz = 0.0;       ///< base LFO rate without envelope modulation
};

} // namespace pedl
