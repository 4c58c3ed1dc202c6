#pragma once

#include "parameters/ParameterIndex.h"

#include <atomic>
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

    void startLearn() noexcept { learn_.store(kNoTarget, kRelaxed); }
    void stopLearn() noexcept { learn_.store(kOff, kRelaxed); }
    [[nodiscard]] bool isLearning() const noexcept { return learn_.load(kRelaxed) != kOff; }

    /// Counts while learning only. A target that is no parameter is none.
    void setTarget(std::int32_t parameter) noexcept {
        const std::int32_t target = isParameter(parameter) ? parameter : kNoTarget;
        std::int32_t before = learn_.load(kRelaxed);
        while (before != kOff && !learn_.compare_exchange_weak(before, target, kRelaxed)) {
        }
    }

    /// The parameter that the next controller is to be linked to, or `kNoTarget`.
    [[nodiscard]] std::int32_t target() const noexcept {
        const std::int32_t learn = learn_.load(kRelaxed);
        return isParameter(learn) ? learn : kNoTarget;
    }

    void startForget() noexcept { isForgetting_.store(true, kRelaxed); }
    void stopForget() noexcept { isForgetting_.store(false, kRelaxed); }
    [[nodiscard]] bool isForgetting() const noexcept { return isForgetting_.load(kRelaxed); }

    void enableHooks(bool isEnabled) noexcept { hasHooks_.store(isEnabled, kRelaxed); }
    [[nodiscard]] bool hasHooks() const noexcept { return hasHooks_.load(kRelaxed); }

private:
    static constexpr auto kRelaxed = std::memory_order_relaxed;
    static constexpr std::int32_t kOff = -2;

    std::atomic<std::int32_t> learn_{kOff}; // off, no target, or the target
    std::atomic<bool> isForgetting_{false};
    std::atomic<bool> hasHooks_{true};
};

} // namespace pedl
