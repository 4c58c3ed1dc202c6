#include "tests/reference/PlainPedlFilter.h"

namespace pedl::reference {

const ProgramValues kDefaultProgram{
    0.0F,      0.5F,      0.0F, 0.0F, 0.0F, 0.5F, 0.5F, 0.0F,      0.066044F, 0.290323F,
    0.179487F, 0.0F,      0.0F, 0.5F, 0.0F, 0.5F, 0.0F, 0.5F,      0.0F,      1.0F,
    0.300797F, 0.566642F, 0.0F, 1.0F, 0.0F, 0.5F, 0.0F, 0.5F,      0.67191F,  0.5F,
    0.667329F, 0.504156F, 0.0F, 0.0F, 0.0F, 0.5F, 1.0F, 0.849953F, 0.0F,      0.5F,
    0.0F,      0.0F,      1.0F, 0.5F, 1.0F, 0.5F, 0.0F, 0.5F,      0.5F,      1.0F,
    0.5F,      0.5F,      0.0F, 0.0F, 0.0F, 0.0F};

namespace {

struct Division {
    int numerator, denominator;
};

constexpr std::array<Division, 32> kDivisions{
    {{8, 1},  {7, 1},  {6, 1},  {5, 1},  {4, 1},  {3, 1},  {2, 1},  {3, 2},
     {1, 1},  {1, 2},  {3, 8},  {1, 3},  {1, 4},  {1, 5},  {3, 16}, {1, 6},
     {1, 7},  {1, 8},  {1, 10}, {3, 32}, {1, 12}, {1, 14}, {1, 16}, {1, 20},
     {3, 64}, {1, 24}, {1, 28}, {1, 32}, {1, 40}, {1, 48}, {1, 56}, {1, 64}}};

} // namespace

PlainPedlFilter::PlainPedlFilter(double hostRateHz, std::uint32_t seed) : engine_(seed) {
    isLoading_ = true;
    for (int index = 0; index < kNumParams; ++index)
        setParameter(index, kDefaultProgram[static_cast<std::size_t>(index)]);
    isLoading_ = false;
    engine_.reset();
    resume(hostRateHz, seed);
    engine_.reset();
}

void PlainPedlFilter::resume(double hostRateHz, std::uint32_t seed) {
    engine_.setSampleRate(hostRateHz);
    engine_.reinitialise(seed);
}

void PlainPedlFilter::setParameter(int index, float normalised) {
    if (!isParameter(index))
        return;
    const float value = normalised > 0.0F ? std::min(normalised, 1.0F) : 0.0F;
    const double v = static_cast<double>(value);
    if (index == kDry || index == kWet) {
        setLevel(index, index == kDry ? kDryGlobal : kWetGlobal, value);
        return;
    }
    held(index) = value;
    engine_.setParameter(index, value);
    switch (index) {
    case kLFOSyncMode:
        syncMode_ = selectorState(v) * 0.5;
        break;
    case kLFOSynchroRate: {
        const Division division = kDivisions.at(static_cast<std::size_t>(31.0 * v));
        numerator_ = division.numerator;
        denominator_ = division.denominator;
        updateTempoSync();
        break;
    }
    case kTempoSetup:
        manualTempoBpm_ = 15.0 + 585.0 * v;
        break;
    case kEnvRelease:
        engine_.setParameter(kEnvAttack, held(kEnvAttack));
        break;
    case kDryGlobal:
    case kWetGlobal:
    case kDryWetGlobal:
        isBankWide_ = switchState(held(kDryWetGlobal)) != 0;
        engine_.setParameter(kDry, held(isBankWide_ ? kDryGlobal : kDry));
        engine_.setParameter(kWet, held(isBankWide_ ? kWetGlobal : kWet));
        break;
    default:
        break;
    }
}

void PlainPedlFilter::setLevel(int index, int bankWideIndex, float normalised) {
    held(isBankWide_ && !isLoading_ ? bankWideIndex : index) = normalised;
    engine_.setParameter(index, normalised);
}

void PlainPedlFilter::updateTempoSync() {
    if (!time_) {
        engine_.setPhaseSync(false, 0.0);
        return;
    }
    const bool followsHost = syncMode_ == 1.0 && time_->tempoBpm.has_value();
    const double tempo = followsHost ? std::clamp(*time_->tempoBpm, 15.0, 600.0) : manualTempoBpm_;
    if (syncMode_ == 0.0) {
        engine_.setPhaseSync(false, 0.0);
        return;
    }
    const double rateHz = denominator_ * tempo / (numerator_ * 240.0);
    const double normalised = std::clamp((rateHz - 0.01) / 14.99, 0.0, 1.0);
    if (held(kLFOFreq) != static_cast<float>(normalised)) { // else its filters stay as they are
        held(kLFOFreq) = static_cast<float>(normalised);
        engine_.setParameter(kLFOFreq, held(kLFOFreq));
    }

    if (syncMode_ == 1.0 && time_->positionQuarters) {
        const double cycles =
            std::fmod(*time_->positionQuarters, numerator_ * 4.0) * (rateHz * 60.0 / tempo);
        engine_.setPhaseSync(followsHost, cycles - std::trunc(cycles));
    } else {
        engine_.setPhaseSync(false, 0.0);
    }
}

void PlainPedlFilter::process(const double* const* inputs, double* const* outputs, int frames) {
    updateTempoSync();
    engine_.process(inputs, outputs, frames);
}

} // namespace pedl::reference
