#pragma once

#include "engine/ModFilterEngine.h"
#include "tests/reference/PlainEnvelope.h"
#include "tests/reference/PlainFilter.h"
#include "tests/reference/PlainLfo.h"
#include "tests/reference/PlainOutputStages.h"

#include <cstdint>
#include <vector>

namespace pedl::reference {

/// The signal path: one frame after another through the whole chain.
class PlainEngine {
public:
    explicit PlainEngine(std::uint32_t seed);
    PlainEngine(const PlainEngine&) = delete; // its parts read one `set_`
    PlainEngine& operator=(const PlainEngine&) = delete;

    /// The dry and wet levels are those in force, the LFO's rate the one that tempo sync has left.
    void setParameter(int index, float normalised);
    void setPhaseSync(bool isLocked, double phaseCycles);

    void setSampleRate(double sampleRateHz);
    void reset();
    void reinitialise(std::uint32_t seed);

    void processDouble(const double* const* inputs, double* const* outputs, int frames);
    void fillMeterSnapshot(MeterSnapshot& meters);
    [[nodiscard]] ModulationState modulation() const;

private:
    struct Modulation {
        Stereo cutoffHz{1000.0, 1000.0};
        Stereo lfo{0.0, 0.0};
        double envelopeGain = 1.0;
    };

    [[nodiscard]] double lfoToGainAmount() const;
    [[nodiscard]] double envToCutoffAmount() const;
    void updateTargets();
    void startBlock();
    void tick();
    Stereo processFrame(const Stereo& raw);
    Stereo cutoffs(const Stereo& rawLfo, const EnvelopeFrame& envelope);
    Stereo filtered(Stereo gained, const Stereo& cutoffHz);
    Stereo gainModulated(const Stereo& frame, double lfoDepth);
    Stereo routed(Stereo wet, const Stereo& dry);
    void limit(Stereo& frame);
    void saturate(Stereo& frame);
    void measureWet(const Stereo& frame);

    Settings set_;
    PlainEnvelope envelope_{set_};
    PlainLfo lfo_;
    PlainFilter filter_{set_};
    PlainLimiter limiter_{set_};
    PlainSaturator saturator_{set_};
    std::vector<double> cutoffTable_;

    double sampleRateHz_ = 44100.0;
    double slow_ = 0.0, fast_ = 0.0, perSample_ = 0.0;
    std::uint32_t tickCounter_ = 0;
    double tickOffset_ = 1e-36;

    Glide process_, inputGain_{1.0, 1.0}, dry_, wet_;
    Glide filterSwitch_, limiterSwitch_, saturatorSwitch_;
    Glide cutoffBase_, lfoToGain_, envToCutoff_;
    Stereo cutoffStages_[3] = {};
    int modulation_ = 1;
    Modulation used_; // what the last frame without freeze left
    Stereo gain_{1.0, 1.0};
    bool isPhaseLocked_ = false;
    double syncPhase_ = 0.0;

    double envelopeMeter_ = 0.0, dryPeak_ = 0.0, wetPeak_ = 0.0, limiterMeter_ = 1.0;
};

} // namespace pedl::reference
