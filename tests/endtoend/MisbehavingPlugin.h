#pragma once

namespace pedl::test {

/// What the misbehaving plug-in does in each block; told by `effVendorSpecific` with the number in
/// the value.
enum class Misdeed : int { None, Allocate, Free, Lock, Sleep, MapMemory, Write };

} // namespace pedl::test
