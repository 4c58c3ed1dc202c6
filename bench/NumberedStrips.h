#pragma once

#include "vstgui/lib/cbitmap.h"

namespace pedl::bench {

/// A strip whose frames show their numbers, drawn at scale 1 and 2 when first asked for. Kept until
/// the library goes.
VSTGUI::CBitmap* numberedStrip(int32_t frames, int32_t width, int32_t frameHeight);

} // namespace pedl::bench
