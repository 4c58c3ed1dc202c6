// The host's time: asked for before every block, it gives the LFO its rate and phase.

#include "plugin/HostTime.h"
#include "plugin/ZMTpedlFilterEffect.h"

#include <cmath>
#include <optional>

namespace pedl {

namespace {

std::optional<double> finite(bool isValid, double value) {
    return isValid && std::isfinite(value) ? std::optional<double>(value) : std::nullopt;
}

} // namespace

/// Nothing where the host has no time. Some hosts fill only the fields that the mask names and hand
/// out one record of their own, so what is needed is read before the next question.
std::optional<HostTime> ZMTpedlFilterEffect::askHostTime() {
    const auto read = [](const VstTimeInfo& info) {
        return HostTime{finite((info.flags & kVstTempoValid) != 0, info.tempo),
                        finite((info.flags & kVstPpqPosValid) != 0, info.ppqPos)};
    };
    const VstTimeInfo* const info = getTimeInfo(kVstPpqPosValid);
    if (info == nullptr)
        return std::nullopt;
    const HostTime time = read(*info);
    if (time.tempoBpm || tempoSync_.mode() != SyncMode::HostTempo)
        return time;
    const VstTimeInfo* const fuller = getTimeInfo(kVstPpqPosValid | kVstTempoValid);
    return fuller != nullptr ? read(*fuller) : time;
}

/// The rate is derived, not edited: neither host nor program hears of it.
void ZMTpedlFilterEffect::updateTempoSync() noexcept {
    const std::optional<HostTime> time = askHostTime();
    const TempoSync::Result sync = time ? tempoSync_.update(*time) : TempoSync::Result{};
    if (sync.hasRate && sync.normalisedRate != engine_.normalisedLfoRate())
        engine_.setLfoRate(sync.normalisedRate);
    engine_.setPhaseSync(sync.isPhaseLocked, sync.phaseCycles);
}

} // namespace pedl
