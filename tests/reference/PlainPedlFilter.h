#pragma once

#include "tests/reference/PlainEngine.h"

#include <array>
#include <optional>

namespace pedl::reference {

/// What every new instance plays.
extern const std::array<float, kNumParams> kDefaultProgram;

/// What a host knows of its transport when asked.
struct HostTime {
    std::optional<double> tempoBpm;
    std::optional<double> positionQuarters;
};

/// The whole effect's sound as a host hears it: the signal path, tempo sync, and whose dry and wet
/// levels are in force.
class PlainPedlFilter {
public:
    /// @param hostRateHz  what the host answers when asked for its sample rate
    /// @param seed        start of the random waves
    PlainPedlFilter(double hostRateHz, std::uint32_t seed);

    /// @param index       0..55, others are ignored
    /// @param normalised  outside 0..1 taken as the nearer bound, NaN as 0
    void setParameter(int index, float normalised);
    /// The held value; tempo sync moves the one of the LFO's rate.
    [[nodiscard]] float parameter(int index) const {
        return values_.normalised.at(static_cast<std::size_t>(index));
    }

    /// What the host answers from now on; nothing when it has no time record.
    void setTime(std::optional<HostTime> time) { time_ = time; }
    void setSampleRate(double hostRateHz) { engine_.setSampleRate(hostRateHz); }
    void suspend() { engine_.reset(); }
    void resume(double hostRateHz, std::uint32_t seed);

    void process(const double* const* inputs, double* const* outputs, int frames);

private:
    void setLevel(int index, int bankWideIndex, float normalised);
    [[nodiscard]] bool isBankWide() const { return values_.isOn(kDryWetGlobal) != 0; }
    void updateTempoSync();

    PlainEngine engine_;
    Settings values_;
    std::optional<HostTime> time_;
};

} // namespace pedl::reference
