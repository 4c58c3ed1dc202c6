#include "tests/reference/PlainPedlFilter.h"

namespace pedl::reference {

const std::array<float, kNumParams> kDefaultProgram{
    0.0F,      0.5F,      0.0F, 0.0F, 0.0F, 0.5F, 0.5F, 0.0F,      0.066044F, 0.290323F,
    0.179487F, 0.0F,      0.0F, 0.5F, 0.0F, 0.5F, 0.0F, 0.5F,      0.0F,      1.0F,
    0.300797F, 0.566642F, 0.0F, 1.0F, 0.0F, 0.5F, 0.0F, 0.5F,      0.67191F,  0.5F,
    0.667329F, 0.504156F, 0.0F, 0.0F, 0.0F, 0.5F, 1.0F, 0.849953F, 0.0F,      0.5F,
    0.0F,      0.0F,      1.0F, 0.5F, 1.0F, 0.5F, 0.0F, 0.5F,      0.5F,      1.0F,
    0.5F,      0.5F,      0.0F, 0.0F, 0.0F, 0.0F};

namespace {

/// Whole notes in an LFO cycle.
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
    for (int index = 0; index < kNumParams; ++index)
        setParameter(index, kDefaultProgram[static_cast<std::size_t>(index)]);
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
    if (index == kDry || index == kWet) {
        setLevel(index, index == kDry ? kDryGlobal : kWetGlobal, value);
        return;
    }
    values_[index] = value;
    engine_.setParameter(index, value);
    if (index == kLFOSynchroRate)
        updateTempoSync();
    if (index == kDryGlobal || index == kWetGlobal || index == kDryWetGlobal) {
        engine_.setParameter(kDry, values_[isBankWide() ? kDryGlobal : kDry]);
        engine_.setParameter(kWet, values_[isBankWide() ? kWetGlobal : kWet]);
    }
}

void PlainPedlFilter::setLevel(int index, int bankWideIndex, float normalised) {
    values_[isBankWide() ? bankWideIndex : index] = normalised;
    engine_.setParameter(index, normalised);
}

void PlainPedlFilter::updateTempoSync() {
    const int mode = values_.state(kLFOSyncMode); // free, manual tempo, host
    if (!time_ || mode == 0) {
        engine_.setPhaseSync(false, 0.0);
        return;
    }
    const Division division =
        kDivisions.at(static_cast<std::size_t>(31.0 * values_.of(kLFOSynchroRate)));
    const bool followsHost = mode == 2 && time_->tempoBpm.has_value();
    const double tempo = followsHost ? std::clamp(*time_->tempoBpm, 15.0, 600.0)
                                     : 15.0 + 585.0 * values_.of(kTempoSetup);
    const double rateHz = division.denominator * tempo / (division.numerator * 240.0);
    const auto normalised = static_cast<float>(std::clamp((rateHz - 0.01) / 14.99, 0.0, 1.0));
    if (values_[kLFOFreq] != normalised) { // else its filters stay as they are
        values_[kLFOFreq] = normalised;
        engine_.setParameter(kLFOFreq, normalised);
    }

    double cycles = 0.0;
    if (time_->positionQuarters)
        cycles =
            std::fmod(*time_->positionQuarters, division.numerator * 4.0) * (rateHz * 60.0 / tempo);
    const bool isLocked = followsHost && time_->positionQuarters.has_value();
    engine_.setPhaseSync(isLocked, cycles - std::trunc(cycles));
}

void PlainPedlFilter::process(const double* const* inputs, double* const* outputs, int frames) {
    updateTempoSync();
    engine_.processDouble(inputs, outputs, frames);
}

} // namespace pedl::reference
