#pragma once

#include "VstTypes.h"

/// Private calls between our own host and our own plug-in, carried by `effVendorSpecific`.
///
/// The plug-in shows hosts a single program, so `effSetProgram` cannot reach the slots of its bank.
/// A program that renders files needs to: it sends
///
///     index = kVendorCallId, value = kVendorCallSelectSlot, ptr = null, opt = slot, from 0
///
/// and the plug-in answers 1 when that slot is now current, 0 when there is no such slot. Any other
/// plug-in answers 0, and so does ours to every other value.
namespace pedl {

constexpr VstInt32 kVendorCallId = CCONST('Z', 'M', 'p', 'F');
constexpr VstIntPtr kVendorCallSelectSlot = CCONST('s', 'l', 'o', 't');

} // namespace pedl
