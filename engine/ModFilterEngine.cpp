#include "engine/ModFilterEngine.h"

#include "engine/Stages.h"
#include "parameters/ValueLaws.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

namespace pedl {

namespace {

/// Below this share a blended-in signal cannot change the last bit of what it is blended into.
constexpr double kInaudibleShare = 1e-20;

template <typename Sample> [[nodiscard]] Sample narrowed(double sample) noexcept {
    if constexpr (std::is_same_v<Sample, double>) {
        return sample;
    } else {
        constexpr double kLargest = std::numeric_limits<float>::max();
        return static_cast<float>(std::min(std::max(sample, -kLargest), kLargest));
    }
}

void fill(MonoStretch& stretch, double value, int frames) noexcept {
    std::fill_n(stretch.at, frames, value);
}

void fill(StereoStretch& stretch, const double (&value)[2], int frames) noexcept {
    for (int i = 0; i < frames; ++i) {
        stretch.at[2 * i] = value[0];
        stretch.at[2 * i + 1] = value[1];
    }
}

/// Time for which a peak is held, by the attack: fitted so that a rise is never cut short. In
/// single precision, as the attack is.
[[nodiscard]] float holdMs(float attackMs) noexcept {
    constexpr float kCubic = 7.279e-8F;
    constexpr float kSquare = 0.0002075F;
    constexpr float kLinear = 0.2643F;
    constexpr float kConstant = 0.3773F;
    constexpr float kOffset = 0.64139F; // the shortest attacks hold nothing
    const float ms = kCubic * attackMs * attackMs * attackMs - kSquare * attackMs * attackMs +
                     kLinear * attackMs + kConstant - kOffset;
    return std::max(0.0F, ms);
}

} // namespace

ModFilterEngine::ModFilterEngine(std::uint32_t seed, InstructionSet instructions)
    : stages_(stagesFor(instructions)), envelope_(instructions), lfo_(seed, instructions),
      cutoff_(instructions), filter_(kStartRateHz, instructions), limiter_(instructions),
      saturator_(instructions) {
    frozenCutoffHz_.isConstant = true;
    updateCoefficients();
    stages_.lfoGain(MonoStretch{}, MonoStretch{}, StereoStretch{}, kStretchFrames, unityGain_);
}

void ModFilterEngine::processFloat(const float* const* inputs, float* const* outputs,
                                   std::int32_t frames) noexcept {
    process(inputs, outputs, frames);
}

void ModFilterEngine::processDouble(const double* const* inputs, double* const* outputs,
                                    std::int32_t frames) noexcept {
    process(inputs, outputs, frames);
}

template <typename Sample>
void ModFilterEngine::process(const Sample* const* inputs, Sample* const* outputs,
                              std::int32_t frames) noexcept {
    const Block block = startBlock();
    for (std::int32_t done = 0; done < frames;) {
        const auto inTick = static_cast<int>(tickFrame_ % kTickFrames);
        if (inTick == 0)
            controlTick(block);
        const int length = std::min({frames - done, kTickFrames - inTick, kStretchFrames});
        // Both inputs of a frame are read before either output is written: they may be one memory.
        for (int i = 0; i < length; ++i) {
            raw_.at[2 * i] = static_cast<double>(inputs[0][done + i]);
            raw_.at[2 * i + 1] = static_cast<double>(inputs[1][done + i]);
        }
        processStretch(block, length);
        for (int i = 0; i < length; ++i) {
            outputs[0][done + i] = narrowed<Sample>(wetSignal_.at[2 * i]);
            outputs[1][done + i] = narrowed<Sample>(wetSignal_.at[2 * i + 1]);
        }
        tickFrame_ = static_cast<std::uint32_t>(inTick + length);
        done += length;
    }
}

/// What follows from values that are set one by one.
void ModFilterEngine::updateTargets() noexcept {
    wet_.target.set(wetSwitch_.get() * wetLevel_.get());
    dry_.target.set(drySwitch_.get() * dryLevel_.get());
}

void ModFilterEngine::deriveChanged() noexcept {
    const auto changed = changes_.take();
    if (changed.has(Group::Attack))
        deriveAttack();
    if (changed.has(Group::Slope))
        deriveSlope();
}

/// In single precision throughout: the attack of saved songs was computed so.
void ModFilterEngine::deriveAttack() noexcept {
    const float bent = laws::attackBend(envAttack_.get());
    const float attackMs = laws::attackMs(bent);
    envelope_.setAttackTime(attackMs);
    envelope_.setAttackShape(2.0F * bent); // long attacks rise by two poles
    envelope_.setHoldTime(holdMs(attackMs));
}

/// Off, the filter runs on at 12 dB an octave and is not heard.
void ModFilterEngine::deriveSlope() noexcept {
    constexpr int kOff = 0;
    constexpr int kDb24 = 2;
    const int slope = filterSlope_.get();
    filterSwitch_.target.set(slope == kOff ? 0.0 : 1.0);
    filter_.setSlope(slope == kDb24);
}

ModFilterEngine::Block ModFilterEngine::startBlock() noexcept {
    deriveChanged();
    const double lockedPhase = lockedPhase_.get();
    if (!std::isnan(lockedPhase))
        lfo_.lockPhase(lockedPhase);
    tick_.nudge = kDenormalGuard;
    const double modulation = modulation_.get();
    return {
        .isFrozen = isFrozen_.get(),
        .routing = static_cast<Routing>(routing_.get()),
        .modulation = modulation,
        .lfoToCutoff = modulation * lfoToCutoffSwitch_.get() * lfoToCutoff_.get(),
        .lfoToGain = modulation * lfoToGainSwitch_.get() * lfoToGain_.get(),
    };
}

void ModFilterEngine::controlTick(const Block& block) noexcept {
    updateTargets();
    power_.move(tick_, tick_.fast);
    dry_.move(tick_, tick_.fast);
    inputGain_.move(tick_, tick_.fast);
    cutoff_.tick(tick_);
    wet_.move(tick_, tick_.fast);
    limiterSwitch_.move(tick_, tick_.fast);
    lfo_.tick(tick_);
    filterSwitch_.move(tick_, tick_.fast);
    saturatorSwitch_.move(tick_, tick_.fast);
    envelope_.tick(tick_, block.modulation);
    tick_.nudge = -tick_.nudge;
}

void ModFilterEngine::processStretch(const Block& block, int frames) noexcept {
    stages_.input(raw_, inputGain_.value, gained_, frames);
    dryPeak_.raiseTo(stages_.largestSum(gained_, frames) * 0.5);
    modulate(block, frames);
    const CutoffStretch& cutoffHz = block.isFrozen ? frozenCutoffHz_ : cutoffHz_;
    const MonoStretch& envelopeGain = block.isFrozen ? frozenEnvelopeGain_ : envelopeOutput_.gain;

    wetSignal_ = gained_;
    filter_.process(wetSignal_, cutoffHz, frames);
    const bool isGainModulated =
        !lfoToGainSmoother_.isConstant() || lfoToGainSmoother_.value() != 0.0;
    if (isGainModulated)
        stages_.lfoGain(envelopeOutput_.depth, lfoToGainSmoother_.stretch(),
                        block.isFrozen ? frozenLfo_ : lfoOutput_.smoothed, frames, outputGain_);
    const StereoStretch& gain = isGainModulated ? outputGain_ : unityGain_;
    stages_.wet(wetSignal_, gained_, filterSwitch_.value, gain, envelopeGain, envelope_.makeup(),
                frames);
    const int last = frames - 1;
    const double envelopeShare = envelopeGain.at[last] * envelope_.makeup();
    shownGainLeft_.set(gain.at[2 * last] * envelopeShare);
    shownGainRight_.set(gain.at[2 * last + 1] * envelopeShare);

    route(block, frames);
    stages_.mix(wetSignal_, power_.value, raw_, 1.0 - power_.value, frames);
}

/// Envelope follower, LFO and cut-off run on while frozen; only the use of what they say stops.
void ModFilterEngine::modulate(const Block& block, int frames) noexcept {
    lfoToGainSmoother_.advance(block.lfoToGain, perFrame_, frames);
    envelope_.process(gained_, lfo_.normalisedRate(), perFrame_, frames, envelopeOutput_);
    lfo_.process(envelopeOutput_.rateHz, frames, lfoOutput_);
    cutoff_.process(block.lfoToCutoff, envelopeOutput_.depth, lfoOutput_.raw,
                    envelopeOutput_.cutoffOffset, lfo_.filterCoefficient(), frames, cutoffHz_);
    const int last = frames - 1;
    envelopeMeter_.set(envelopeOutput_.level.at[last]);
    lfoMeterLeft_.set(lfoOutput_.smoothed.at[2 * last]);
    lfoMeterRight_.set(lfoOutput_.smoothed.at[2 * last + 1]);
    if (block.isFrozen)
        freezeModulation(frames);
    else
        keepModulation(frames);
    shownCutoffLeft_.set(snapshot_.cutoffHz[0]);
    shownCutoffRight_.set(snapshot_.cutoffHz[1]);
    shownLfoLeft_.set(snapshot_.lfo[0]);
    shownLfoRight_.set(snapshot_.lfo[1]);
    shownEnvelopeGain_.set(snapshot_.envelopeGain);
}

void ModFilterEngine::freezeModulation(int frames) noexcept {
    fill(frozenCutoffHz_.hz, snapshot_.cutoffHz, frames);
    fill(frozenLfo_, snapshot_.lfo, frames);
    fill(frozenEnvelopeGain_, snapshot_.envelopeGain, frames);
}

void ModFilterEngine::keepModulation(int frames) noexcept {
    const int last = frames - 1;
    for (int channel = 0; channel < 2; ++channel) {
        snapshot_.cutoffHz[channel] = cutoffHz_.hz.at[2 * last + channel];
        snapshot_.lfo[channel] = lfoOutput_.smoothed.at[2 * last + channel];
    }
    snapshot_.envelopeGain = envelopeOutput_.gain.at[last];
}

void ModFilterEngine::route(const Block& block, int frames) noexcept {
    switch (block.routing) {
    case Routing::PreWet:
        limitAndSaturate(wetSignal_, frames);
        wetPeak_.raiseTo(stages_.largestSum(wetSignal_, frames));
        stages_.mix(wetSignal_, wet_.value, gained_, dry_.value, frames);
        break;
    case Routing::PostWet:
        wetPeak_.raiseTo(stages_.largestSum(wetSignal_, frames));
        stages_.mix(wetSignal_, wet_.value, gained_, 0.0, frames);
        limitAndSaturate(wetSignal_, frames);
        stages_.mix(wetSignal_, 1.0, gained_, dry_.value, frames);
        break;
    case Routing::PostMix:
        wetPeak_.raiseTo(stages_.largestSum(wetSignal_, frames));
        stages_.mix(wetSignal_, wet_.value, gained_, dry_.value, frames);
        limitAndSaturate(wetSignal_, frames);
        break;
    }
}

/// Both always run, since their state moves on; the switches blend.
void ModFilterEngine::limitAndSaturate(StereoStretch& signal, int frames) noexcept {
    scratch_ = signal;
    limiter_.process(scratch_, frames);
    const double limited = limiterSwitch_.value;
    limiterMeter_.set(limiter_.gain());
    stages_.mix(signal, 1.0 - limited, scratch_, limited, frames);

    const double saturated = saturatorSwitch_.value;
    const bool isHeard = std::abs(saturated) > kInaudibleShare;
    scratch_ = signal;
    saturator_.process(scratch_, isHeard, frames);
    if (isHeard)
        stages_.mix(signal, 1.0 - saturated, scratch_, saturated, frames);
}

void ModFilterEngine::fillMeterSnapshot(MeterSnapshot& snapshot) noexcept {
    const bool isAround = envelope_.mode() == EnvelopeFollower::ThresholdMode::Around;
    const bool isLimiterOn = limiterSwitch_.target.get() != 0.0;
    constexpr double kSaturationScale = 0.251188643; // -12 dB
    saturator_.setOff(saturatorSwitch_.target.get() == 0.0);
    snapshot.envelopeLevel = envelopeMeter_.exchange(0.0) * (isAround ? 0.5 : 1.0);
    snapshot.dryPeak = dryPeak_.exchange(0.0) * 0.5;
    snapshot.wetPeak = wetPeak_.exchange(0.0) * 0.5;
    snapshot.lfoLeft = lfoMeterLeft_.get();
    snapshot.lfoRight = lfoMeterRight_.get();
    snapshot.limiterGain = isLimiterOn ? limiterMeter_.get() : 1.0;
    snapshot.saturationLevel = saturator_.readMeter() * kSaturationScale;
    snapshot.lfoRateHz = laws::lfoRateHz(lfo_.normalisedRate());
}

ModulationState ModFilterEngine::modulation() const noexcept {
    return {
        .cutoffLeftHz = shownCutoffLeft_.get(),
        .cutoffRightHz = shownCutoffRight_.get(),
        .lfoLeft = shownLfoLeft_.get(),
        .lfoRight = shownLfoRight_.get(),
        .envelopeGain = shownEnvelopeGain_.get(),
        .gainLeft = shownGainLeft_.get(),
        .gainRight = shownGainRight_.get(),
    };
}

void ModFilterEngine::setSampleRate(double sampleRateHz) noexcept {
    // Coefficients are never computed for less than 44.1 kHz: slower streams are processed as if
    // they were that fast.
    constexpr double kLowestRateHz = 44100.0;
    constexpr double kHighestRateHz = 384000.0;
    deriveChanged(); // the hold has its length at the old rate
    sampleRateHz_ =
        sampleRateHz >= kLowestRateHz ? std::min(sampleRateHz, kHighestRateHz) : kLowestRateHz;
    lfo_.setSampleRate(sampleRateHz_);
    envelope_.setSampleRate(sampleRateHz_);
}

void ModFilterEngine::reset() noexcept {
    deriveChanged();
    filter_.reset();
    limiter_.reset();
    saturator_.reset();
}

void ModFilterEngine::reinitialise(std::uint32_t seed) {
    deriveChanged();
    filter_.setSampleRate(sampleRateHz_); // before all else: where memory is short, it throws
    updateTargets();
    for (Ticked* value :
         {&power_, &dry_, &wet_, &filterSwitch_, &limiterSwitch_, &saturatorSwitch_})
        value->snap();
    // The input gain goes on gliding: a resumed track must not jump in level.
    cutoff_.reinitialise();
    lfoToGainSmoother_.snap(lfoToGain_.get()); // as set, whether switched on or not
    envelope_.reinitialise();
    lockedPhase_.set(kNotLocked);

    updateCoefficients();
    lfo_.reinitialise(seed);
    limiter_.setDefaults();
    limiter_.setSampleRate(sampleRateHz_);
    saturator_.setSampleRate(sampleRateHz_);

    for (Relaxed<double>* meter : {&envelopeMeter_, &dryPeak_, &wetPeak_})
        meter->set(0.0);
    lfoMeterLeft_.set(-1.0);
    lfoMeterRight_.set(-1.0);
    limiterMeter_.set(1.0);
    tickFrame_ = 0;
}

void ModFilterEngine::updateCoefficients() noexcept {
    constexpr double kSlowSeconds = 0.23;
    constexpr double kFramesATick = kTickFrames - 1;
    constexpr double kPerFrameSeconds = 0.1;
    constexpr double kFastOverSlow = 6.0;
    tick_.slow = settleCoefficient(kSlowSeconds * sampleRateHz_ / kFramesATick);
    tick_.fast = kFastOverSlow * tick_.slow;
    perFrame_ = settleCoefficient(kPerFrameSeconds * sampleRateHz_);
}

void ModFilterEngine::setPower(float normalised) noexcept {
    power_.target.set(std::clamp(1.0 - laws::twoWayState(normalised), 0.0, 1.0));
}

void ModFilterEngine::setInputGain(float normalised) noexcept {
    const double gain = laws::factorFromDb(laws::inputGainDb<double>(normalised));
    inputGain_.target.set(static_cast<double>(static_cast<float>(gain)));
}

void ModFilterEngine::setFreeze(float normalised) noexcept {
    isFrozen_.set(laws::twoWayState(normalised) != 0);
}

void ModFilterEngine::setFilterType(float normalised) noexcept {
    // Bent so that the middle of the knob, where the types change fastest, has more room.
    constexpr double kBend = 0.65;
    const double v = normalised;
    const double type = v >= 0.5 ? 0.5 + 0.5 * std::pow(2.0 * (v - 0.5), kBend)
                                 : 0.5 - 0.5 * std::pow(2.0 * (0.5 - v), kBend);
    filter_.setType(type);
}

void ModFilterEngine::setFilterSlope(float normalised) noexcept {
    filterSlope_.set(laws::threeWayState(normalised));
    changes_.mark(Group::Slope);
}

void ModFilterEngine::setFilterSaturation(float normalised) noexcept {
    constexpr double kSpan = 3.999;
    constexpr double kLowest = 0.001; // as good as none
    filter_.setSaturation(static_cast<double>(normalised) * kSpan * 0.5 + kLowest);
}

void ModFilterEngine::setEnvAttack(float normalised) noexcept {
    envAttack_.set(normalised);
    changes_.mark(Group::Attack);
}

void ModFilterEngine::setEnvRelease(float normalised) noexcept {
    envelope_.setReleaseTime(laws::releaseMs(normalised));
    changes_.mark(Group::Attack); // applied again: a hold then has its length at the present rate
}

void ModFilterEngine::setLfoToCutoffSwitch(float normalised) noexcept {
    lfoToCutoffSwitch_.set(laws::twoWayState(normalised));
}

void ModFilterEngine::setLfoToCutoff(float normalised) noexcept {
    const double v = normalised;
    lfoToCutoff_.set(0.5 * v * v);
}

void ModFilterEngine::setLfoToGainSwitch(float normalised) noexcept {
    lfoToGainSwitch_.set(laws::twoWayState(normalised));
}

void ModFilterEngine::setLfoToGain(float normalised) noexcept {
    constexpr double kLargest = 10.0; // octaves, before the tangent that bounds the gain
    const double way = 2.0 * static_cast<double>(normalised) - 1.0;
    lfoToGain_.set(std::copysign(kLargest * way * way, way));
}

void ModFilterEngine::setRouting(float normalised) noexcept {
    routing_.set(laws::threeWayState(normalised));
}

void ModFilterEngine::setLimiterSwitch(float normalised) noexcept {
    limiterSwitch_.target.set(laws::twoWayState(normalised));
}

void ModFilterEngine::setLimiterLevel(float normalised) noexcept {
    constexpr double kCurve = 1.5145731728; // ln 0.35 / ln 0.5: -1.5 dB with the knob in the middle
    constexpr double kSpanDb = 30.0;
    constexpr double kLowestDb = -21.0;
    const double curve = std::pow(static_cast<double>(normalised), kCurve);
    limiter_.setLevel(laws::factorFromDb((1.0 - curve) * kSpanDb + kLowestDb));
}

void ModFilterEngine::setSaturatorSwitch(float normalised) noexcept {
    saturatorSwitch_.target.set(laws::twoWayState(normalised));
}

void ModFilterEngine::setDrySwitch(float normalised) noexcept {
    drySwitch_.set(laws::twoWayState(normalised));
}

void ModFilterEngine::setDryLevel(float normalised) noexcept {
    dryLevel_.set(laws::dryWetLevel(normalised));
}

void ModFilterEngine::setWetSwitch(float normalised) noexcept {
    wetSwitch_.set(laws::twoWayState(normalised));
}

void ModFilterEngine::setWetLevel(float normalised) noexcept {
    wetLevel_.set(laws::dryWetLevel(normalised));
}

void ModFilterEngine::setModulation(float normalised) noexcept {
    constexpr double kOffFrom = 0.5; // on up to it, itself included
    modulation_.set(static_cast<int>(1.0 + kOffFrom - static_cast<double>(normalised)));
}

void ModFilterEngine::setPhaseSync(bool isLocked, double phaseCycles) noexcept {
    constexpr double kRateAtRest = 0.005; // of the envelope's share in the rate
    const bool isLockable =
        lfo_.wave() != Lfo::Wave::Random && std::abs(envelope_.rateAmount()) <= kRateAtRest;
    lockedPhase_.set(isLocked && isLockable ? phaseCycles : kNotLocked);
}

} // namespace pedl
