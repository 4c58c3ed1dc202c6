#pragma once

#include "foundation/basics/Relaxed.h"
#include "presets/ProgramRecord.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace pedl {

constexpr std::int32_t kNumPrograms = 140;

[[nodiscard]] constexpr bool isProgramSlot(std::int32_t slot) noexcept {
    return slot >= 0 && slot < kNumPrograms;
}

/// The effect's own 140 programs, the slot that is being played and edited, and the edit snapshot.
///
/// Names and values are zero until someone writes them. Slots are 0 to 139 and parameters 0 to 55
/// everywhere; the caller sees to it.
/// Thread: any. Each value and each character is `Relaxed`, so a name read while it is being
/// written may mix both. Values are real time; the edit snapshot is the user interface's alone.
class ProgramBank {
public:
    ProgramBank();

    [[nodiscard]] std::int32_t currentSlot() const noexcept;
    void setCurrentSlot(std::int32_t slot) noexcept;

    [[nodiscard]] float value(std::int32_t slot, std::int32_t parameter) const noexcept;
    void setValue(std::int32_t slot, std::int32_t parameter, float normalised) noexcept;
    void setValueInEverySlot(std::int32_t parameter, float normalised) noexcept;

    [[nodiscard]] ProgramName name(std::int32_t slot) const noexcept;
    void setName(std::int32_t slot, std::string_view text) noexcept;

    /// Takes all 24 bytes as they were stored; a name that does not end is cut at 23 characters.
    void setStoredName(std::int32_t slot, const ProgramName& name) noexcept;

    [[nodiscard]] ProgramRecord record(std::int32_t slot) const noexcept;
    void setRecord(std::int32_t slot, const ProgramRecord& record) noexcept;

    /// Remembers a slot's record as what every program starts from before its stored values are
    /// read into it.
    void takeEditSnapshot(std::int32_t slot) noexcept;

    /// Writes the remembered record into a slot.
    void storeEditSnapshot(std::int32_t slot) noexcept;

private:
    struct Slot {
        std::array<Relaxed<char>, kProgramNameBytes> name{};
        std::array<Relaxed<float>, kNumParams> normalised{};
    };

    [[nodiscard]] Slot& at(std::int32_t slot) const noexcept;

    std::unique_ptr<std::array<Slot, kNumPrograms>> slots_;
    Relaxed<std::int32_t> currentSlot_{0}; // written by the user interface, read by audio
    ProgramRecord editSnapshot_;
};

} // namespace pedl
