#include "editor/PanelMeters.h"

#include <algorithm>
#include <cmath>

namespace pedl {

namespace {

constexpr float kFallMs = 500.0F; // from lit to dark

/// Power of a peak that is its light: 48 dB down is still half lit.
constexpr double kPeakBend = 0.125;

float averageOf(const float* values, std::size_t count) {
    float sum = 0.0F;
    for (std::size_t i = 0; i < count; ++i)
        sum += values[i];
    return sum / static_cast<float>(count);
}

/// How far the limiter is from doing nothing.
double reductionOf(double limiterGain) {
    constexpr double kSensitivity = 3.0, kThreshold = 0.08;
    const double gain = std::clamp(limiterGain, 0.0, 1.0);
    return std::clamp((1.0 - gain * gain) * kSensitivity - kThreshold, 0.0, 1.0);
}

} // namespace

void PanelMeters::opened() {
    lastIdleTick_ = 0.0F;
    lfoHistoryLeft_.fill(0.0F);
    lfoHistoryRight_.fill(0.0F);
    lfoHistoryIndex_ = 0;
}

void PanelMeters::idle() {
    MeterSnapshot meters;
    panel_.effect->fillMeterSnapshot(meters);
    const float now = static_cast<float>(panel_.now());
    const float fall = (now - lastIdleTick_) / kFallMs;
    lightFalling(kWetLEDMeter, std::pow(meters.wetPeak, kPeakBend), fall);
    lightFalling(kDryLEDMeter, std::pow(meters.dryPeak, kPeakBend), fall);
    lightLfo(meters);
    lightFalling(kLimiterLEDMeter, reductionOf(meters.limiterGain), fall);
    lightFalling(kSoftSatLED, std::sqrt(std::clamp(meters.saturationLevel, 0.0, 1.0)), fall);
    lightFalling(kEfLEDMeter, std::sqrt(std::sqrt(std::max(meters.envelopeLevel, 0.0))), fall);
    lastIdleTick_ = now;
}

void PanelMeters::lightFalling(std::int32_t tag, double level, float fall) const {
    if (VSTGUI::CControl* const lamp = panel_.controls.find(tag))
        lamp->setValue(std::max(static_cast<float>(level), lamp->getValue() - fall));
}

void PanelMeters::lightLfo(const MeterSnapshot& meters) {
    constexpr float kFastest = static_cast<float>(kHistory - 1);
    constexpr float kBrighterPerHz = 0.03F; // a blur is not darker than a blink
    const auto last =
        static_cast<std::size_t>(std::clamp(static_cast<float>(meters.lfoRateHz), 0.0F, kFastest));
    lfoHistoryLeft_[lfoHistoryIndex_] = static_cast<float>((meters.lfoLeft + 1.0) / 2.0);
    lfoHistoryRight_[lfoHistoryIndex_] = static_cast<float>((meters.lfoRight + 1.0) / 2.0);
    const float boost = kBrighterPerHz * static_cast<float>(last);
    if (VSTGUI::CControl* const left = panel_.controls.find(kLfoLEDMeter_L))
        left->setValue(averageOf(lfoHistoryLeft_.data(), last + 1) + boost);
    if (VSTGUI::CControl* const right = panel_.controls.find(kLfoLEDMeter_R))
        right->setValue(averageOf(lfoHistoryRight_.data(), last + 1) + boost);
    lfoHistoryIndex_ = lfoHistoryIndex_ >= last ? 0 : lfoHistoryIndex_ + 1;
}

} // namespace pedl
