#pragma once

#include "presets/ProgramBank.h"

#include <array>
#include <string_view>

namespace pedl {

/// What a player is told of a factory program.
struct FactoryNotes {
    std::string_view family;    ///< of sounds
    std::string_view material;  ///< it is judged on: riff, drums, pad, bass, voice or funk
    std::string_view purpose;   ///< what it is for and on which instrument
    std::string_view turnFirst; ///< where the hand goes first
};

/// By slot. Made from presets/factory-programs.txt when the project is built.
extern const std::array<FactoryNotes, kNumPrograms> kFactoryNotes;

} // namespace pedl
