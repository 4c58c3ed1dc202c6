// Lists of events, broken ones too, between changes of links and of learning. Whatever arrives,
// parameters stay in their range and both ends of the MIDI map name things that exist.
//
// An input is a row of steps, each a byte that says which and the bytes that it takes.

#include "fuzz/InputBytes.h"
#include "fuzz/Require.h"
#include "fuzz/Surroundings.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "presets/FactoryPrograms.h"
#include "tests/support/EventList.h"

namespace {

using pedl::MidiMap;
using pedl::ZMTpedlFilterEffect;
using pedl::fuzz::InputBytes;
using pedl::fuzz::require;
using pedl::test::EventList;

bool isNormalised(float value) {
    return value >= 0.0F && value <= 1.0F;
}

/// Count, then for each event: type (1 MIDI, 0 null), status, two data bytes.
void sendEvents(ZMTpedlFilterEffect& effect, InputBytes& input) {
    EventList events;
    for (int rest = input.byte() % 64; rest > 0; --rest) {
        const std::uint8_t type = input.byte();
        const std::uint8_t status = input.byte();
        const std::uint8_t first = input.byte();
        if (type == 0)
            events.addNull();
        else
            events.addMidi(status, first, input.byte()).last().type = type;
    }
    AEffect* const record = effect.getAeffect();
    require(record->dispatcher(record, effProcessEvents, 0, 0, events.list(), 0.0F) == 1);
}

void step(ZMTpedlFilterEffect& effect, InputBytes& input) {
    MidiMap& map = effect.midiMap();
    switch (input.byte()) {
    case 'e':
        return sendEvents(effect, input);
    case 'p': { // any parameter, link, tag or none of them
        const std::int32_t index = input.int32();
        return effect.setParameter(index, input.float32());
    }
    case 't': // what a user touches
        return effect.setParameter(input.byte(), static_cast<float>(input.byte()) / 255.0F);
    case 'L':
        return effect.startLearn();
    case 'l':
        return effect.stopLearn();
    case 'T':
        return effect.setLearnTarget(input.int32());
    case 'F':
        return effect.startForget();
    case 'f':
        return effect.stopForget();
    case 'h':
        return effect.enableLearnHooks(input.byte() % 2 != 0);
    case 'k': {
        const std::int32_t parameter = input.int32();
        return map.link(parameter, input.int32());
    }
    case 'x':
        return map.forgetParameter(input.int32());
    case 'y':
        return map.forgetController(input.int32());
    case 'c':
        return map.clear();
    case 'r':
        return map.rebuild();
    default:
        return;
    }
}

void checkValues(ZMTpedlFilterEffect& effect) {
    for (std::int32_t index = 0; index < pedl::kNumParams; ++index) {
        require(isNormalised(effect.getParameter(index)));
        require(isNormalised(effect.bank().value(effect.currentSlot(), index)));
        require(effect.getParameter(pedl::kFirstMidiLink + index) >= 0.0F);
    }
    require(isNormalised(effect.getParameter(pedl::kMidiChannel)));
}

void checkMap(const MidiMap& map) {
    for (std::int32_t parameter = 0; parameter < pedl::kNumParams; ++parameter) {
        const std::int32_t controller = map.controllerOf(parameter);
        require(controller == MidiMap::kNone || pedl::isController(controller));
    }
    for (std::int32_t controller = 0; controller < pedl::kNumControllers; ++controller) {
        const std::int32_t parameter = map.drivenBy(controller);
        require(parameter == MidiMap::kNone || pedl::isParameter(parameter));
    }
}

/// Both ends of every link name each other, and no end is left over.
void checkRebuilt(const MidiMap& map) {
    for (std::int32_t parameter = 0; parameter < pedl::kNumParams; ++parameter)
        if (const std::int32_t controller = map.controllerOf(parameter);
            controller != MidiMap::kNone)
            require(map.parameterOf(controller) == parameter);
    for (std::int32_t controller = 0; controller < pedl::kNumControllers; ++controller)
        if (const std::int32_t parameter = map.drivenBy(controller); parameter != MidiMap::kNone)
            require(map.controllerOf(parameter) == controller);
}

/// An effect as it starts. One serves all inputs, since making one takes longer than an input.
ZMTpedlFilterEffect& freshEffect() {
    static pedl::fuzz::Surroundings surroundings;
    static ZMTpedlFilterEffect effect(&pedl::fuzz::Surroundings::host, surroundings.forEffect());
    effect.stopLearn();
    effect.stopForget();
    effect.enableLearnHooks(true);
    const pedl::ProgramRecord program = pedl::factoryProgram(0);
    for (std::int32_t index = 0; index < pedl::kNumParams; ++index)
        effect.setParameter(index, program.normalised[static_cast<std::size_t>(index)]);
    effect.midiMap().clear();
    effect.setParameter(pedl::kMidiChannel, 1.0F);
    return effect;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    ZMTpedlFilterEffect& effect = freshEffect();
    InputBytes input(data, size);
    while (!input.isAtEnd())
        step(effect, input);
    checkValues(effect);
    checkMap(effect.midiMap());
    effect.midiMap().rebuild();
    checkRebuilt(effect.midiMap());
    return 0;
}
