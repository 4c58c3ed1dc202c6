#pragma once

#include "vstgui/lib/cbitmap.h"
#include "vstgui/lib/cpoint.h"

namespace pedl::test {

/// Pictures for controls, drawn by code at scale 1 and 2. Strips have their pictures below each
/// other, the least value on top.
enum class Picture : std::int32_t {
    Background = 1,
    KnobStrip,
    KnobStripWithoutTwofold, // the same, at scale 1 alone
    KnobBody,
    KnobHandle,
    HorizontalSwitch,
    VerticalSwitch,
    OnOffButton,
    KickButton,
    RockerSwitch,
    Lamp,
    Display,
    Splash
};

/// Size of one picture, logical pixels, and how many a strip has.
struct PictureSize {
    int width, height, count;
};
PictureSize sizeOf(Picture picture);

/// Makes the pictures known to the toolkit. They are drawn when they are first asked for.
void useSampleSkin();

/// One reference, the caller's.
VSTGUI::CBitmap* newBitmap(Picture picture);

} // namespace pedl::test
