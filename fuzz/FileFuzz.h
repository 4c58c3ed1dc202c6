#pragma once

#include "fuzz/Require.h"
#include "fuzz/Surroundings.h"
#include "plugin/ZMTpedlFilterEffect.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pedl::fuzz {

inline bool isNormalised(float value) {
    return value >= 0.0F && value <= 1.0F; // NaN is not
}

inline void requireUsable(const ProgramRecord& program) {
    require(std::ranges::find(program.name, '\0') != program.name.end());
    require(std::ranges::all_of(program.normalised, isNormalised));
}

using Bank = std::vector<ProgramRecord>;

inline Bank copyOf(const ProgramBank& bank) {
    Bank records;
    records.reserve(kNumPrograms);
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        records.push_back(bank.record(slot));
    return records;
}

/// Byte by byte: a zero has a sign, too.
inline bool isSame(const ProgramRecord& a, const ProgramRecord& b) {
    return std::ranges::equal(std::as_bytes(std::span(&a, 1)), std::as_bytes(std::span(&b, 1)));
}

/// Loads an input as a file of one kind, as found and inverted, into the same effect, and has it
/// keep the promises of every load: values in range, links of things that exist, slots left alone
/// that the file is not about. What is then saved can be loaded; not so for banks, whose writing
/// would leave no time to search.
inline void loadAsFile(FileKind kind, const std::uint8_t* data, std::size_t size) {
    static Surroundings surroundings; // the effect is costly to make, and any state will do
    static ZMTpedlFilterEffect effect(&Surroundings::host, surroundings.forEffect());
    constexpr std::int32_t kPlayed = 2;
    effect.selectProgram(kPlayed);

    const std::span file(reinterpret_cast<const std::byte*>(data), size);
    for (const OrderDecision decision : {OrderDecision::AsFound, OrderDecision::Inverted}) {
        const Bank before = copyOf(effect.bank());
        const LoadResult result = effect.load(kind, file, decision);
        require(result <= LoadResult::UnknownKind);
        const Bank after = copyOf(effect.bank());
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot) {
            const auto position = static_cast<std::size_t>(slot);
            const bool mayChange =
                kind == FileKind::Bank || (kind == FileKind::Program && slot == kPlayed);
            if (result == LoadResult::Loaded && mayChange)
                requireUsable(after[position]);
            else
                require(isSame(before[position], after[position]));
        }
        for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
            const std::int32_t controller = effect.midiMap().controllerOf(parameter);
            require(controller == MidiMap::kNone || isController(controller));
        }
        if (kind == FileKind::Bank)
            effect.selectProgram(kPlayed);
        else
            require(effect.load(kind, effect.stored(kind), OrderDecision::AsFound) ==
                    LoadResult::Loaded);
        require(effect.currentSlot() == kPlayed);
    }
}

} // namespace pedl::fuzz
