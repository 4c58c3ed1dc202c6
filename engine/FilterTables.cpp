#include "engine/FilterTables.h"

#include "parameters/ValueLaws.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <numbers>
#include <thread>
#include <vector>

namespace pedl {

namespace {

constexpr std::size_t kKnots = 12;
using Knots = std::array<double, kKnots>;

// clang-format off
constexpr Knots kKnotHz            {20,   40,  80,   160,  320,  640,  1280, 2560, 5120, 10240, 15360, 20000};
constexpr Knots kTowardsHighPass   {6.36, 5.6, 4.85, 4.11, 3.38, 2.67, 2.02, 1.4,  0.9,  0.48,  0.245, 0.075};
constexpr Knots kTowardsLowPass    {0.00075, 0.0015, 0.003, 0.006, 0.012, 0.024, 0.047, 0.093, 0.185, 0.39, 0.72, 1.59};
// clang-format on

/// Waits until the flag is free, then holds it to the end of the scope. Not a mutex of the library:
/// that brings constructors which would run whenever a host loads the plug-in.
class Turn {
public:
    explicit Turn(std::atomic_flag& flag) noexcept : flag_(flag) {
        while (flag_.test_and_set(std::memory_order_acquire))
            std::this_thread::yield();
    }
    ~Turn() { flag_.clear(std::memory_order_release); }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

private:
    std::atomic_flag& flag_;
};

/// Second derivatives of the natural cubic spline through the knots: 0 at both ends, found by one
/// forward and one backward pass over the tridiagonal system. Source: C. de Boor, "A Practical
/// Guide to Splines", 1978, chapter IV.
[[nodiscard]] Knots secondDerivatives(const Knots& x, const Knots& y) {
    Knots second{}, rest{};
    for (std::size_t i = 1; i + 1 < kKnots; ++i) {
        const double ratio = (x[i] - x[i - 1]) / (x[i + 1] - x[i - 1]);
        const double pivot = ratio * second[i - 1] + 2.0;
        second[i] = (ratio - 1.0) / pivot;
        const double bend =
            (y[i + 1] - y[i]) / (x[i + 1] - x[i]) - (y[i] - y[i - 1]) / (x[i] - x[i - 1]);
        rest[i] = (6.0 * bend / (x[i + 1] - x[i - 1]) - ratio * rest[i - 1]) / pivot;
    }
    second[kKnots - 1] = 0.0;
    for (std::size_t i = kKnots - 1; i-- > 0;)
        second[i] = second[i] * second[i + 1] + rest[i];
    return second;
}

/// The spline at `hz`; below the first knot its first piece goes on.
[[nodiscard]] double splineAt(double hz, const Knots& y, const Knots& second) {
    std::size_t high = 1;
    while (high + 1 < kKnots && kKnotHz[high] < hz)
        ++high;
    const std::size_t low = high - 1;
    const double width = kKnotHz[high] - kKnotHz[low];
    const double a = (kKnotHz[high] - hz) / width;
    const double b = (hz - kKnotHz[low]) / width;
    return a * y[low] + b * y[high] +
           ((a * a * a - a) * second[low] + (b * b * b - b) * second[high]) * width * width / 6.0;
}

} // namespace

/// Asked of the library for one angle in 32, and turned from there by the angles between: the last
/// bit may differ, and a new sample rate costs a tenth of the time.
TrigonometryTable::TrigonometryTable(double sampleRateHz) {
    constexpr double kTwoPi = 2.0 * std::numbers::pi;
    constexpr double kSpanHz = laws::kHighestCutoffHz - laws::kLowestCutoffHz;
    constexpr std::size_t kTurns = 32;
    static_assert(kEntries % kTurns == 0);

    std::array<SineCosine, kTurns> turns;
    for (std::size_t i = 0; i < kTurns; ++i) {
        const double hz = kSpanHz * static_cast<double>(i) / (kEntries - 1.0);
        const double omega = kTwoPi * hz / sampleRateHz;
        turns[i] = {std::sin(omega), std::cos(omega)};
    }
    for (std::size_t first = 0; first < kEntries; first += kTurns) {
        const double hz =
            laws::kLowestCutoffHz + kSpanHz * static_cast<double>(first) / (kEntries - 1.0);
        const double omega = kTwoPi * hz / sampleRateHz;
        const double sine = std::sin(omega);
        const double cosine = std::cos(omega);
        for (std::size_t i = 0; i < kTurns; ++i)
            entries_[first + i] = {sine * turns[i].cosine + cosine * turns[i].sine,
                                   cosine * turns[i].cosine - sine * turns[i].sine};
    }
}

std::shared_ptr<const TrigonometryTable> TrigonometryTable::forRate(double sampleRateHz) {
    /// Tables kept although no instance uses them: a new instance starts at one rate and goes on
    /// to the host's, and finds both.
    constexpr std::size_t kKept = 4;
    struct Entry {
        double sampleRateHz;
        std::shared_ptr<const TrigonometryTable> table;
    };
    // Several instances may resume at once; audio never comes here.
    static std::atomic_flag isTaken;
    static std::vector<Entry> entries;
    const Turn turn(isTaken);
    const auto known = std::ranges::find(entries, sampleRateHz, &Entry::sampleRateHz);
    if (known != entries.end())
        return known->table;
    if (entries.size() >= kKept)
        std::erase_if(entries, [](const Entry& entry) { return entry.table.use_count() == 1; });
    entries.push_back({sampleRateHz, std::make_shared<const TrigonometryTable>(sampleRateHz)});
    return entries.back().table;
}

const MorphTable& MorphTable::shared() {
    static const MorphTable table = [] {
        MorphTable built;
        const Knots secondHigh = secondDerivatives(kKnotHz, kTowardsHighPass);
        const Knots secondLow = secondDerivatives(kKnotHz, kTowardsLowPass);
        for (int hz = 0; hz < kEntries; ++hz) {
            const auto at = static_cast<std::size_t>(hz);
            built.towardsHighPass[at] = splineAt(hz, kTowardsHighPass, secondHigh);
            built.towardsLowPass[at] = hz == 0 ? 0.0 : splineAt(hz, kTowardsLowPass, secondLow);
        }
        return built;
    }();
    return table;
}

} // namespace pedl
