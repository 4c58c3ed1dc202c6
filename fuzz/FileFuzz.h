#pragma once

#include "fuzz/Surroundings.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "presets/StreamFormat.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

namespace pedl::fuzz {

inline void require(bool isTrue) {
    if (!isTrue)
        std::abort();
}

inline bool isNormalised(float value) {
    return value >= 0.0F && value <= 1.0F; // NaN is not
}

inline void requireUsableProgram(const ProgramBank& bank, std::int32_t slot) {
    const ProgramName name = bank.name(slot);
    require(name.back() == '\0' || nameText(name).size() < kProgramNameLength);
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        require(isNormalised(bank.value(slot, parameter)));
}

/// Of two bank streams.
inline void requireSameOtherSlots(std::span<const std::byte> before,
                                  std::span<const std::byte> after, std::size_t slot) {
    const std::size_t begin = kHeaderBytes + slot * kProgramRecordsBytes;
    const std::size_t end = begin + kProgramRecordsBytes;
    require(std::ranges::equal(before.first(begin), after.first(begin)));
    require(std::ranges::equal(before.subspan(end), after.subspan(end)));
}

/// Loads an input as a file of one kind, as found and inverted, into the same effect, and has it
/// keep the promises of every load: values in range, links of things that exist, other slots left
/// alone unless the file is a bank, and what is then saved can be loaded.
inline void loadAsFile(FileKind kind, const std::uint8_t* data, std::size_t size) {
    static Surroundings surroundings; // the effect is costly to make, and any state will do
    static ZMTpedlFilterEffect effect(&Surroundings::host, surroundings.forEffect());
    constexpr std::int32_t kPlayed = 2;
    effect.selectProgram(kPlayed);

    const std::span file(reinterpret_cast<const std::byte*>(data), size);
    for (const OrderDecision decision : {OrderDecision::AsFound, OrderDecision::Inverted}) {
        const auto before = effect.stored(FileKind::Bank);
        const LoadResult result = effect.load(kind, file, decision);
        require(result <= LoadResult::UnknownKind);
        if (result != LoadResult::Loaded || kind == FileKind::MidiSettings)
            require(effect.stored(FileKind::Bank) == before);
        if (kind != FileKind::Bank) {
            require(effect.currentSlot() == kPlayed);
            requireSameOtherSlots(before, effect.stored(FileKind::Bank), kPlayed);
        }
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
            requireUsableProgram(effect.bank(), slot);
        for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
            const std::int32_t controller = effect.midiMap().controllerOf(parameter);
            require(controller == MidiMap::kNone || isController(controller));
        }
        require(effect.load(kind, effect.stored(kind), OrderDecision::AsFound) ==
                LoadResult::Loaded);
        if (kind == FileKind::Bank)
            effect.selectProgram(kPlayed);
    }
}

} // namespace pedl::fuzz
