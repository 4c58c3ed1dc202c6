#include "tests/reference/PlainEngine.h"

namespace pedl::reference {

namespace {

constexpr int kCutoffSteps = 99899;
constexpr std::uint32_t kTickFrames = 128;

double level(double normalised) {
    return 4.0 * normalised * normalised;
}

Stereo blended(const Stereo& on, const Stereo& off, double share) {
    return {share * on[0] + (1.0 - share) * off[0], share * on[1] + (1.0 - share) * off[1]};
}

} // namespace

PlainEngine::PlainEngine(std::uint32_t seed) : lfo_(set_, seed), cutoffTable_(kCutoffSteps + 1) {
    for (int i = 0; i <= kCutoffSteps; ++i)
        cutoffTable_[static_cast<std::size_t>(i)] =
            20.0 * std::pow(1000.0, static_cast<double>(i) / kCutoffSteps);
}

void PlainEngine::setParameter(int index, float normalised) {
    set_[index] = normalised;
    // What keeps the sample rate it was set at.
    if (index == kLFOFilter || index == kLFOFreq)
        lfo_.updateFilter();
    if (index == kLFOFreq)
        lfo_.updateRandomSmoothing();
    if (index == kEnvAttack || index == kEnvAttackExtension || index == kEnvRelease)
        envelope_.updateHoldLength();
}

void PlainEngine::setPhaseSync(bool isLocked, double phaseCycles) {
    isPhaseLocked_ =
        isLocked && lfo_.wave() < PlainLfo::Random && std::abs(envelope_.rateAmount()) <= 0.005;
    syncPhase_ = phaseCycles;
}

void PlainEngine::setSampleRate(double sampleRateHz) {
    sampleRateHz_ = std::clamp(sampleRateHz, 44100.0, 384000.0);
    lfo_.setSampleRate(sampleRateHz_);
    envelope_.setSampleRate(sampleRateHz_);
}

void PlainEngine::reset() {
    filter_.reset();
    limiter_.reset();
    saturator_.reset();
}

void PlainEngine::reinitialise(std::uint32_t seed) {
    updateTargets();
    for (Glide* glide : {&process_, &dry_, &wet_, &cutoffBase_, &filterSwitch_, &limiterSwitch_,
                         &saturatorSwitch_})
        glide->snap(); // the input gain keeps ramping
    for (Stereo& stage : cutoffStages_)
        stage = {cutoffBase_.target, cutoffBase_.target};
    lfoToGain_.value = lfoToGainAmount(); // these two without their switches: they ramp from here
    envToCutoff_.value = envToCutoffAmount();
    envelope_.reinitialise();
    isPhaseLocked_ = false;
    syncPhase_ = 0.0;

    slow_ = settlingIn(0.23 * sampleRateHz_ / 127.0);
    fast_ = 6.0 * slow_;
    perSample_ = settlingIn(sampleRateHz_ / 10.0);
    filter_.setSampleRate(sampleRateHz_);
    limiter_.setSampleRate(sampleRateHz_);
    saturator_.setSampleRate(sampleRateHz_);
    lfo_.reinitialise(seed);

    envelopeMeter_ = dryPeak_ = wetPeak_ = 0.0;
    limiterMeter_ = 1.0;
    tickCounter_ = 0;
}

void PlainEngine::processDouble(const double* const* inputs, double* const* outputs, int frames) {
    startBlock();
    for (int i = 0; i < frames; ++i) {
        const Stereo out = processFrame({inputs[0][i], inputs[1][i]});
        outputs[0][i] = out[0];
        outputs[1][i] = out[1];
    }
}

double PlainEngine::lfoToGainAmount() const {
    const double around = 2.0 * set_.of(kGainByLFO) - 1.0;
    return std::copysign(10.0 * around * around, around);
}

double PlainEngine::envToCutoffAmount() const {
    return (2.0 * set_.of(kFilterFreqByENV) - 1.0) * 0.5;
}

void PlainEngine::updateTargets() {
    process_.target = 1.0 - set_.isOn(kPower);
    inputGain_.target = static_cast<float>(std::pow(10.0, (48.0 * set_.of(kGain) - 24.0) / 20.0));
    wet_.target = set_.isOn(kWetDefeat) * level(set_.of(kWet));
    dry_.target = set_.isOn(kDryDefeat) * level(set_.of(kDry));
    filterSwitch_.target = set_.state(kFilterPole) == 0 ? 0.0 : 1.0;
    limiterSwitch_.target = set_.isOn(kLimiterDefeat);
    saturatorSwitch_.target = set_.isOn(kSoftSatDefeat);
    cutoffBase_.target = set_.of(kFilterCutoffFreq);
    modulation_ = static_cast<int>(1.5 - set_.of(kModulationOnOff));
    lfoToGain_.target = modulation_ * set_.isOn(kGainByLFODefeat) * lfoToGainAmount();
    envToCutoff_.target = modulation_ * set_.isOn(kFilterFreqByENVDefeat) * envToCutoffAmount();
}

void PlainEngine::startBlock() {
    updateTargets();
    envelope_.startBlock(modulation_);
    lfo_.startBlock();
    filter_.startBlock();
    limiter_.startBlock();
    saturator_.startBlock();
    if (isPhaseLocked_)
        lfo_.setPhases(syncPhase_ * 2047.0);
    tickOffset_ = 1e-36;
}

void PlainEngine::tick() {
    for (Glide* glide :
         {&process_, &dry_, &inputGain_, &wet_, &limiterSwitch_, &filterSwitch_, &saturatorSwitch_})
        glide->step(fast_, tickOffset_);
    cutoffBase_.step(slow_, tickOffset_);
    envToCutoff_.step(slow_, tickOffset_);
    lfo_.tick(slow_, tickOffset_);
    envelope_.tick(slow_, tickOffset_);
    tickOffset_ = -tickOffset_;
}

Stereo PlainEngine::processFrame(const Stereo& host) {
    tickCounter_ %= kTickFrames;
    if (tickCounter_ == 0)
        tick();
    ++tickCounter_;
    envelope_.smoothDepth(perSample_);
    lfoToGain_.stepFlushed(perSample_);

    Stereo raw{}, gained{};
    for (std::size_t c = 0; c < 2; ++c) {
        raw[c] = std::isfinite(host[c]) ? flushed(host[c]) : 0.0;
        gained[c] = raw[c] * inputGain_.value;
    }
    dryPeak_ = std::max(dryPeak_, (std::abs(gained[0]) + std::abs(gained[1])) * 0.5);

    const EnvelopeFrame envelope = envelope_.process(gained, set_.of(kLFOFreq));
    envelopeMeter_ = envelope.level;
    const Stereo rawLfo = lfo_.process(envelope.lfoRateHz);
    const Stereo cutoffHz = cutoffs(rawLfo, envelope); // goes on while frozen
    if (set_.isOn(kFreez) == 0)
        used_ = {cutoffHz, lfo_.smoothed(), envelope.gain};

    const Stereo wet = gainModulated(filtered(gained, used_.cutoffHz), envelope.lfoDepth);
    return blended(routed(wet, gained), raw, process_.value);
}

Stereo PlainEngine::cutoffs(const Stereo& rawLfo, const EnvelopeFrame& envelope) {
    const double v = set_.of(kFilterFreqByLFO);
    const double lfoAmount =
        modulation_ * set_.isOn(kFilterFreqByLFODefeat) * envelope.lfoDepth * (0.5 * v * v);
    const double offset = envelope.cutoffInput * envToCutoff_.value;
    Stereo result{};
    for (std::size_t c = 0; c < 2; ++c) {
        double x = lfoAmount * rawLfo[c] + cutoffBase_.value;
        for (Stereo& stage : cutoffStages_)
            x = stage[c] = flushed(stage[c] + (x - stage[c]) * lfo_.filterCoefficient());
        const double position = (x + offset) * kCutoffSteps;
        result[c] = cutoffTable_[static_cast<std::size_t>(
            std::clamp(position, 0.0, static_cast<double>(kCutoffSteps)))];
    }
    return result;
}

Stereo PlainEngine::filtered(Stereo gained, const Stereo& cutoffHz) {
    const Stereo before = gained;
    filter_.process(gained, cutoffHz);
    return blended(gained, before, filterSwitch_.value);
}

Stereo PlainEngine::gainModulated(const Stereo& frame, double lfoDepth) {
    const double depth = lfoDepth * lfoToGain_.value;
    for (std::size_t c = 0; c < 2; ++c) {
        // 4.082988 is 1 / tanh(0.25): no modulation is unity.
        const double byLfo =
            std::max(0.0, 4.082988 * std::tanh(0.25 * std::pow(2.0, depth * used_.lfo[c])));
        gain_[c] = byLfo * used_.envelopeGain * envelope_.makeup();
    }
    return {frame[0] * gain_[0], frame[1] * gain_[1]};
}

Stereo PlainEngine::routed(Stereo wet, const Stereo& dry) {
    const auto mixed = [&](double wetLevel) {
        return Stereo{wetLevel * wet[0] + dry_.value * dry[0],
                      wetLevel * wet[1] + dry_.value * dry[1]};
    };
    const int routing = set_.state(kLimSoftSatRouting);
    if (routing == 0) { // before the wet level
        limit(wet);
        saturate(wet);
        measureWet(wet);
        return mixed(wet_.value);
    }
    measureWet(wet);
    if (routing == 1) { // behind the wet level
        wet = {wet_.value * wet[0], wet_.value * wet[1]};
        limit(wet);
        saturate(wet);
        return mixed(1.0);
    }
    Stereo mix = mixed(wet_.value);
    limit(mix);
    saturate(mix);
    return mix;
}

void PlainEngine::limit(Stereo& frame) {
    const Stereo before = frame;
    limiter_.process(frame);
    limiterMeter_ = limiterSwitch_.target != 0.0 ? limiter_.gain() : 1.0;
    frame = blended(frame, before, limiterSwitch_.value);
}

void PlainEngine::saturate(Stereo& frame) {
    const Stereo before = frame;
    saturator_.process(frame);
    frame = blended(frame, before, saturatorSwitch_.value);
}

void PlainEngine::measureWet(const Stereo& frame) {
    wetPeak_ = std::max(wetPeak_, std::abs(frame[0]) + std::abs(frame[1]));
}

void PlainEngine::fillMeterSnapshot(MeterSnapshot& meters) {
    const bool isAround = envelope_.mode() == PlainEnvelope::Around;
    meters.envelopeLevel = isAround ? envelopeMeter_ * 0.5 : envelopeMeter_;
    meters.dryPeak = dryPeak_ * 0.5;
    meters.wetPeak = wetPeak_ * 0.5;
    meters.lfoLeft = lfo_.smoothed()[0];
    meters.lfoRight = lfo_.smoothed()[1];
    meters.limiterGain = limiterMeter_;
    meters.saturationLevel = saturator_.readMeter() * 0.251188643;
    meters.lfoRateHz = 0.01 + 14.99 * set_.of(kLFOFreq);
    envelopeMeter_ = dryPeak_ = wetPeak_ = 0.0;
}

ModulationState PlainEngine::modulation() const {
    return {used_.cutoffHz[0],  used_.cutoffHz[1], used_.lfo[0], used_.lfo[1],
            used_.envelopeGain, gain_[0],          gain_[1]};
}

} // namespace pedl::reference
