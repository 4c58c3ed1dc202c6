#pragma once

namespace pedl::test {

/// What the misbehaving plug-in does in each block: its programs, chosen by `effSetProgram`.
enum class Misdeed : int { None, Allocate, Free, Lock, Sleep, MapMemory, Write };

} // namespace pedl::test
