#pragma once

#include "engine/InstructionSet.h"
#include "engine/MeterSnapshot.h"

#include <cstdint>

namespace pedl {

/// The live results of the modulation, as the last processed frame left them.
struct ModulationState {
    double cutoffLeftHz = 1000.0;
    double cutoffRightHz = 1000.0;
    double lfoLeft = 0.0;      ///< smoothed LFO, -1..1
    double lfoRight = 0.0;     ///< the same, right
    double envelopeGain = 1.0; ///< envelope output-gain factor, linear, without the makeup
};

/// The audio engine (public face; the private part follows).
class ModFilterEngine {
public:
    /// @param seed  start of the random waves
    explicit ModFilterEngine(std::uint32_t seed,
                             InstructionSet instructions = widestInstructionSet());
    ~ModFilterEngine();

    void processFloat(const float* const* inputs, float* const* outputs,
                      std::int32_t frames) noexcept;
    void processDouble(const double* const* inputs, double* const* outputs,
                       std::int32_t frames) noexcept;

    void fillMeterSnapshot(MeterSnapshot& snapshot) noexcept;
    [[nodiscard]] ModulationState modulation() const noexcept;

    void setSampleRate(double sampleRateHz);
    void reset() noexcept;
    void reinitialise(std::uint32_t seed);

    // One setter a parameter; every one takes the normalised host value 0..1.
    void setPower(float normalised) noexcept;
    void setInputGain(float normalised) noexcept;
    void setFreeze(float normalised) noexcept;
    void setLfoType(float normalised) noexcept;
    void setLfoFilter(float normalised) noexcept;
    void setLfoWidth(float normalised) noexcept;
    void setLfoRate(float normalised) noexcept;
    void setLfoRandomType(float normalised) noexcept;
    void setLfoRandomAmount(float normalised) noexcept;
    void setLfoSpread(float normalised) noexcept;
    void setEnvToLfoRateSwitch(float normalised) noexcept;
    void setEnvToLfoRate(float normalised) noexcept;
    void setEnvToLfoDepthSwitch(float normalised) noexcept;
    void setEnvToLfoDepth(float normalised) noexcept;
    void setFilterType(float normalised) noexcept;
    void setFilterSlope(float normalised) noexcept;
    void setResonance(float normalised) noexcept;
    void setCutoff(float normalised) noexcept;
    void setFilterSaturation(float normalised) noexcept;
    void setEnvThresholdMode(float normalised) noexcept;
    void setEnvThreshold(float normalised) noexcept;
    void setEnvAttack(float normalised) noexcept;
    void setEnvAttackExtension(float normalised) noexcept;
    void setEnvRelease(float normalised) noexcept; // the caller applies the attack again after it
    void setEnvRange(float normalised) noexcept;
    void setLfoToCutoffSwitch(float normalised) noexcept;
    void setLfoToCutoff(float normalised) noexcept;
    void setLfoToGainSwitch(float normalised) noexcept;
    void setLfoToGain(float normalised) noexcept;
    void setEnvToCutoffSwitch(float normalised) noexcept;
    void setEnvToCutoff(float normalised) noexcept;
    void setEnvToGainSwitch(float normalised) noexcept;
    void setEnvToGain(float normalised) noexcept;
    void setRouting(float normalised) noexcept;
    void setLimiterSwitch(float normalised) noexcept;
    void setLimiterLevel(float normalised) noexcept;
    void setSaturatorSwitch(float normalised) noexcept;
    void setSaturatorDrive(float normalised) noexcept;
    void setDrySwitch(float normalised) noexcept;
    void setDryLevel(float normalised) noexcept;
    void setWetSwitch(float normalised) noexcept;
    void setWetLevel(float normalised) noexcept;
    void setModulation(float normalised) noexcept;

    /// Locks the LFO's phases to the host's position from the next block on.
    void setPhaseSync(bool isLocked, double phaseCycles) noexcept;
};

} // namespace pedl
