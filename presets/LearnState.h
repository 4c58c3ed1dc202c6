#pragma once

#include "foundation/basics/Relaxed.h"
#include "parameters/ParameterIndex.h"

#include <cstdint>

namespace pedl {

/// How far MIDI learn and MIDI forget have come.
///
/// Learn: off, armed without a target, armed with one, off again. Forget: off, armed, off again.
/// The effect decides what moves them on; "hooks" are its looking at parameter changes to do so.
///
/// Thread: any, real time. The user interface arms while audio ends, so learning and its target
/// are one atomic: a target that comes too late cannot arm learning again.
class LearnState {
public:
    static constexpr std::int32_t kNoTarget = -1;

    void startLearn() noexcept { learn_.set(kNoTarget); }
    void stopLearn() noexcept { learn_.set(kOff); }
    [[nodiscard]] bool isLearning() const noexcept { return learn_.get() != kOff; }

    /// Counts while learning only. A target that is no parameter is none.
    void setTarget(std::int32_t parameter) noexcept {
        const std::int32_t target = isParameter(parameter) ? parameter : kNoTarget;
        std::int32_t before = learn_.get();
        while (before != kOff && !learn_.replace(before, target)) {
        }
    }

    /// The parameter that the next controller is to be linked to, or `kNoTarget`.
    [[nodiscard]] std::int32_t target() const noexcept {
        const std::int32_t learn = learn_.get();
        return isParameter(learn) ? learn : kNoTarget;
    }

    void startForget() noexcept { isForgetting_.set(true); }
    void stopForget() noexcept { isForgetting_.set(false); }
    [[nodiscard]] bool isForgetting() const noexcept { return isForgetting_.get(); }

    void enableHooks(bool isEnabled) noexcept { hasHooks_.set(isEnabled); }
    [[nodiscard]] bool hasHooks() const noexcept { return hasHooks_.get(); }

private:
    static constexpr std::int32_t kOff = -2;

    Relaxed<std::int32_t> learn_{kOff}; // off, no target, or the target
    Relaxed<bool> isForgetting_{false};
    Relaxed<bool> hasHooks_{true};
};

} // namespace pedl
