#pragma once

/// Key presses are the binary interface's own: `VstKeyCode`, `VstVirtualKey`, `VstModifierKey`,
/// all global. On Linux, Ctrl is `MODIFIER_CONTROL`, never `MODIFIER_COMMAND`.

#include "vst24/VstKeyCode.h"
