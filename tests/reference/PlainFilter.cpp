#include "tests/reference/PlainFilter.h"

namespace pedl::reference {

namespace {

constexpr std::size_t kKnots = 12;
constexpr std::array<double, kKnots> kKnotHz{20,   40,   80,   160,   320,   640,
                                             1280, 2560, 5120, 10240, 15360, 20000};
/// Bends the knob's upper half, band-pass to high-pass.
constexpr std::array<double, kKnots> kHighExponent{6.36, 5.6, 4.85, 4.11, 3.38,  2.67,
                                                   2.02, 1.4, 0.9,  0.48, 0.245, 0.075};
/// Bends its lower half, low-pass to band-pass.
constexpr std::array<double, kKnots> kLowExponent{0.00075, 0.0015, 0.003, 0.006, 0.012, 0.024,
                                                  0.047,   0.093,  0.185, 0.39,  0.72,  1.59};
constexpr int kTrigSteps = 65535;

/// Second derivatives of the natural cubic spline: the full system, by elimination without pivots.
std::array<double, kKnots> curvatures(const std::array<double, kKnots>& values) {
    std::array<std::array<double, kKnots + 1>, kKnots> rows{};
    rows[0][0] = rows[kKnots - 1][kKnots - 1] = 1.0; // straight at both ends
    for (std::size_t i = 1; i + 1 < kKnots; ++i) {
        const double before = kKnotHz[i] - kKnotHz[i - 1], after = kKnotHz[i + 1] - kKnotHz[i];
        rows[i][i - 1] = before / 6.0;
        rows[i][i] = (before + after) / 3.0;
        rows[i][i + 1] = after / 6.0;
        rows[i][kKnots] =
            (values[i + 1] - values[i]) / after - (values[i] - values[i - 1]) / before;
    }
    for (std::size_t pivot = 0; pivot < kKnots; ++pivot)
        for (std::size_t i = pivot + 1; i < kKnots; ++i) {
            const double factor = rows[i][pivot] / rows[pivot][pivot];
            for (std::size_t k = pivot; k <= kKnots; ++k)
                rows[i][k] -= factor * rows[pivot][k];
        }
    std::array<double, kKnots> result{};
    for (std::size_t i = kKnots; i-- > 0;) {
        double sum = rows[i][kKnots];
        for (std::size_t k = i + 1; k < kKnots; ++k)
            sum -= rows[i][k] * result[k];
        result[i] = sum / rows[i][i];
    }
    return result;
}

std::vector<double> splineAtEveryHertz(const std::array<double, kKnots>& values) {
    const auto second = curvatures(values);
    std::vector<double> table(20001);
    for (std::size_t hz = 0; hz < table.size(); ++hz) {
        const auto x = static_cast<double>(hz);
        std::size_t i = 0;
        while (i + 2 < kKnots && x > kKnotHz[i + 1])
            ++i;
        const double h = kKnotHz[i + 1] - kKnotHz[i];
        const double a = (kKnotHz[i + 1] - x) / h, b = (x - kKnotHz[i]) / h;
        table[hz] = a * values[i] + b * values[i + 1] +
                    ((a * a * a - a) * second[i] + (b * b * b - b) * second[i + 1]) * h * h / 6.0;
    }
    return table;
}

} // namespace

PlainFilter::PlainFilter(const Settings& settings)
    : set_(settings), highExponent_(splineAtEveryHertz(kHighExponent)),
      lowExponent_(splineAtEveryHertz(kLowExponent)) {
    lowExponent_[0] = 0.0;
    setSampleRate(sampleRateHz_);
}

void PlainFilter::setSampleRate(double sampleRateHz) {
    reset();
    const bool isUsable = sampleRateHz >= 20000.0 && sampleRateHz <= 400000.0;
    sampleRateHz_ = isUsable ? sampleRateHz : 44100.0;
    glideFrames_ = static_cast<int>(sampleRateHz_ * 15.0 / 1000.0);
    smoothing_ = 1.0 - std::exp(-20.0 * kPi / sampleRateHz_);
    sine_.resize(kTrigSteps + 1);
    cosine_.resize(kTrigSteps + 1);
    for (int i = 0; i <= kTrigSteps; ++i) {
        const double omega = 2.0 * kPi * (20.0 + 19980.0 * i / kTrigSteps) / sampleRateHz_;
        sine_[static_cast<std::size_t>(i)] = std::sin(omega);
        cosine_[static_cast<std::size_t>(i)] = std::cos(omega);
    }
}

void PlainFilter::startBlock() {
    const double v = set_.of(kFilterType);
    type_.target = v >= 0.5 ? 0.5 + 0.5 * std::pow(2.0 * (v - 0.5), 0.65)
                            : 0.5 - 0.5 * std::pow(2.0 * (0.5 - v), 0.65);
    const bool is24Db = set_.state(kFilterPole) == 2;
    slope_.target = is24Db ? 1.0 : 0.0;
    const double resonance = set_.of(kFilterReso);
    q_.target = is24Db ? 0.5 * std::pow(10.0, resonance) : 0.3 * std::pow(100.0, resonance);
    const double saturation = set_.of(kFilterSaturation) * 3.999 * 0.5 + 0.001;
    saturationScale_ = saturation * (is24Db ? 4.8 : 0.9) * 0.441 / sampleRateHz_;
}

void PlainFilter::reset() {
    startBlock();
    q_.snap();
    slope_.snap();
    type_.snap();
    zeros_ = {Stereo{-1.0, -1.0}, Stereo{-1.0, -1.0}}; // low-pass, whatever the type
    stages_ = {};
}

void PlainFilter::moveZeros(std::size_t channel, double cutoffHz) {
    const auto hertz = static_cast<std::size_t>(cutoffHz);
    const double t = type_.value;
    Stereo target{};
    if (t <= 0.5)
        target = {-1.0, 2.0 * powerFromZero(2.0 * t, lowExponent_[hertz]) - 1.0};
    else
        target = {1.0 - 2.0 * powerFromZero(2.0 - 2.0 * t, highExponent_[hertz]), 1.0};
    for (std::size_t i = 0; i < 2; ++i) {
        double& zero = zeros_[channel][i];
        zero = flushed(zero + (target[i] - zero) / glideFrames_);
    }
}

PlainFilter::Coefficients PlainFilter::coefficients(std::size_t channel, double cutoffHz) const {
    const double nyquistShare = cutoffHz / (0.5001 * sampleRateHz_);
    const double q = (1.0 - std::pow(nyquistShare, 6.0)) * q_.value;
    const auto at = static_cast<std::size_t>((cutoffHz - 20.0) / 19980.0 * kTrigSteps + 0.5);
    const double s = sine_[at], c = cosine_[at];

    const double alpha = s / (2.0 * q);
    const double a0 = 1.0 + alpha;
    const double a1 = -2.0 * c / a0, a2 = (1.0 - alpha) / a0, g = (1.0 - c) / a0;
    const double z1 = zeros_[channel][0], z2 = zeros_[channel][1];
    double b0 = g, b1 = -(z1 + z2) * g, b2 = z1 * z2 * g;

    const double c2 = 1.0 - 2.0 * s * s, s2 = 2.0 * s * c;
    const double numeratorRe = b0 + b1 * c + b2 * c2, numeratorIm = b1 * s + b2 * s2;
    const double denominatorRe = 1.0 + a1 * c + a2 * c2, denominatorIm = a1 * s + a2 * s2;
    const double h = std::sqrt((numeratorRe * numeratorRe + numeratorIm * numeratorIm) /
                               (denominatorRe * denominatorRe + denominatorIm * denominatorIm));
    for (double* b : {&b0, &b1, &b2})
        *b = h > 0.0 ? *b / h : *b * h; // unity at the cut-off; silence where that is impossible
    return {std::min(q, 1.0),
            std::max(q, 1.0),
            b0,
            b1,
            b2,
            a1,
            a2,
            saturationScale_ * q_.value * cutoffHz};
}

double PlainFilter::runStage(Stage& stage, const Coefficients& k, double input) {
    const double x = input * k.inputScale;
    const double n = k.numeratorScale;
    double y = flushed(x * k.b0 * n + k.b1 * n * stage.x1 + k.b2 * n * stage.x2 -
                       (k.a1 * stage.y1 + k.a2 * stage.y2));
    const double u = std::clamp(k.clipScale * y, -3.0, 3.0);
    y = u * (u * u + 27.0) / (9.0 * u * u + 27.0) / k.clipScale;
    stage = {x, stage.x1, y, stage.y1};
    return y;
}

void PlainFilter::process(Stereo& frame, const Stereo& cutoffHz) {
    q_.stepFlushed(smoothing_);
    type_.stepFlushed(smoothing_);
    slope_.stepFlushed(smoothing_);
    for (std::size_t channel = 0; channel < 2; ++channel) {
        const double f = cutoffHz[channel];
        const double cutoff = (std::abs(f - 20.0) + 20020.0 - std::abs(f - 20000.0)) * 0.5;
        moveZeros(channel, cutoff);
        const Coefficients k = coefficients(channel, cutoff);
        const double slope12 = runStage(stages_[channel][0], k, frame[channel]);
        const double slope24 = runStage(stages_[channel][1], k, slope12);
        frame[channel] = (1.0 - slope_.value) * slope12 + slope_.value * slope24;
    }
}

} // namespace pedl::reference
