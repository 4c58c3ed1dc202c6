// Host chunks, broken ones too. Whatever arrives is taken or refused, is not written to, and leaves
// a state in its ranges: values, names, current slot, both ends of the MIDI map.
//
// An input is the chunk.

#include "fuzz/Require.h"
#include "fuzz/Surroundings.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "presets/ValueRepair.h"

#include <algorithm>
#include <vector>

namespace {

using pedl::MidiMap;
using pedl::ZMTpedlFilterEffect;
using pedl::fuzz::require;

void checkBank(const pedl::ProgramBank& bank) {
    require(pedl::isProgramSlot(bank.currentSlot()));
    for (std::int32_t slot = 0; slot < pedl::kNumPrograms; ++slot) {
        const pedl::ProgramRecord program = bank.record(slot);
        require(std::ranges::find(program.name, '\0') != program.name.end());
        require(std::ranges::all_of(program.normalised, pedl::isNormalised));
    }
}

void checkLinks(ZMTpedlFilterEffect& effect) {
    for (std::int32_t parameter = 0; parameter < pedl::kNumParams; ++parameter) {
        require(effect.getParameter(pedl::kFirstMidiLink + parameter) >= 0.0F);
        const std::int32_t controller = effect.midiMap().controllerOf(parameter);
        require(controller == MidiMap::kNone || pedl::isController(controller));
    }
    require(pedl::isNormalised(effect.getParameter(pedl::kMidiChannel)));
}

/// What is played is what the current slot holds.
void checkSound(ZMTpedlFilterEffect& effect) {
    for (std::int32_t parameter = 0; parameter < pedl::kNumParams; ++parameter)
        require(effect.getParameter(parameter) ==
                effect.bank().value(effect.currentSlot(), parameter));
}

/// One effect serves all inputs, since making one takes longer than an input. Its bank stays as it
/// was left; links and channel, which old chunks do not replace, do not.
ZMTpedlFilterEffect& effectWithoutLinks() {
    static pedl::fuzz::Surroundings surroundings;
    static ZMTpedlFilterEffect effect(&pedl::fuzz::Surroundings::host, surroundings.forEffect());
    effect.midiMap().clear();
    effect.setParameter(pedl::kMidiChannel, 1.0F);
    return effect;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ZMTpedlFilterEffect& effect = effectWithoutLinks();
    std::vector<std::uint8_t> chunk(data, data + size);
    chunk.shrink_to_fit(); // the sanitizer sees the byte behind the last one
    AEffect* const record = effect.getAeffect();
    const VstIntPtr answer = record->dispatcher(record, effSetChunk, 0,
                                                static_cast<VstIntPtr>(size), chunk.data(), 0.0F);
    require(answer == 0 || answer == -1);
    require(std::equal(chunk.begin(), chunk.end(), data));
    checkBank(effect.bank());
    checkLinks(effect);
    if (answer == 0 && size >= pedl::kChunkHeadBytes + pedl::kHeaderBytes)
        checkSound(effect);
    return 0;
}
