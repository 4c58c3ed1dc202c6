#pragma once

#include "resources/packed/PackedSkin.h"

namespace pedl::skin {

/// The skin that is embedded in the library. Nothing is unpacked or copied by asking for it.
PackedSkin embeddedSkin();

/// Makes it the toolkit's resources: bitmaps are found by their numbers, at both scales. Any number
/// of times; an editor calls it before it loads its first bitmap.
void useEmbeddedSkin();

} // namespace pedl::skin
