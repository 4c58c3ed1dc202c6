#include "presets/ProgramBank.h"

#include <cassert>

namespace pedl {

namespace {

std::size_t position(std::int32_t parameter) {
    assert(isParameter(parameter) && "caller checks the parameter");
    return static_cast<std::size_t>(parameter);
}

} // namespace

ProgramBank::ProgramBank() : slots_(std::make_unique<std::array<Slot, kNumPrograms>>()) {}

ProgramBank::Slot& ProgramBank::at(std::int32_t slot) const noexcept {
    assert(isProgramSlot(slot) && "caller checks the slot");
    return (*slots_)[static_cast<std::size_t>(slot)];
}

std::int32_t ProgramBank::currentSlot() const noexcept {
    return currentSlot_.get();
}

void ProgramBank::setCurrentSlot(std::int32_t slot) noexcept {
    assert(isProgramSlot(slot) && "caller checks the slot");
    currentSlot_.set(slot);
}

float ProgramBank::value(std::int32_t slot, std::int32_t parameter) const noexcept {
    return at(slot).normalised[position(parameter)].get();
}

void ProgramBank::setValue(std::int32_t slot, std::int32_t parameter, float normalised) noexcept {
    at(slot).normalised[position(parameter)].set(normalised);
}

void ProgramBank::setValueInEverySlot(std::int32_t parameter, float normalised) noexcept {
    for (Slot& slot : *slots_)
        slot.normalised[position(parameter)].set(normalised);
}

ProgramName ProgramBank::name(std::int32_t slot) const noexcept {
    ProgramName name{};
    for (std::size_t i = 0; i < kProgramNameBytes; ++i)
        name[i] = at(slot).name[i].get();
    return terminated(name); // bytes of two names, when another thread was writing
}

void ProgramBank::setName(std::int32_t slot, std::string_view text) noexcept {
    setStoredName(slot, toProgramName(text));
}

void ProgramBank::setStoredName(std::int32_t slot, const ProgramName& stored) noexcept {
    const ProgramName name = terminated(stored);
    for (std::size_t i = 0; i < kProgramNameBytes; ++i)
        at(slot).name[i].set(name[i]);
}

ProgramRecord ProgramBank::record(std::int32_t slot) const noexcept {
    ProgramRecord record{name(slot), {}};
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        record.normalised[position(parameter)] = value(slot, parameter);
    return record;
}

void ProgramBank::setRecord(std::int32_t slot, const ProgramRecord& record) noexcept {
    setStoredName(slot, record.name);
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        setValue(slot, parameter, record.normalised[position(parameter)]);
}

void ProgramBank::takeEditSnapshot(std::int32_t slot) noexcept {
    editSnapshot_ = record(slot);
}

void ProgramBank::storeEditSnapshot(std::int32_t slot) noexcept {
    setRecord(slot, editSnapshot_);
}

} // namespace pedl
