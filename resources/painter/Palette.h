#pragma once

#include "resources/painter/Colour.h"

/// The colours of the face, each once.
namespace pedl::skin::palette {

// Housing
inline constexpr Colour kIvory = hex(0xE9E0CB);  // plate
inline constexpr Colour kPetrol = hex(0x1B3439); // recessed panels
inline constexpr Colour kPetrolLip = hex(0x2A4A50);
inline constexpr Colour kWalnutLow = hex(0x2C1A10);
inline constexpr Colour kWalnut = hex(0x5B3B26);
inline constexpr Colour kWalnutHigh = hex(0x85603E);
inline constexpr Colour kBarTop = hex(0x2C2621);
inline constexpr Colour kBar = hex(0x26201B);
inline constexpr Colour kBarBottom = hex(0x1A1613);
inline constexpr Colour kIvoryShade{0.30F, 0.24F, 0.16F}; // the plate's edge away from the light
inline constexpr Colour kRim{0.50F, 0.45F, 0.36F};        // round a recessed panel
inline constexpr Colour kRimDark{0.22F, 0.17F, 0.11F};
inline constexpr Colour kChampagne{0.80F, 0.745F, 0.63F}; // name plate
inline constexpr Colour kPlateEdge{0.25F, 0.18F, 0.10F};
inline constexpr Colour kRivetDark{0.42F, 0.36F, 0.27F};

// Materials of solid parts
inline constexpr Colour kAluminium{0.86F, 0.85F, 0.825F};
inline constexpr Colour kChrome{0.88F, 0.87F, 0.86F};
inline constexpr Colour kSteel{0.80F, 0.785F, 0.75F};
inline constexpr Colour kGunMetal{0.50F, 0.495F, 0.475F};
inline constexpr Colour kBronze{0.29F, 0.25F, 0.21F};
inline constexpr Colour kBakelite{0.115F, 0.10F, 0.09F};
inline constexpr Colour kPointerIvory{0.95F, 0.92F, 0.85F};
inline constexpr Colour kGrooveBlack{0.065F, 0.055F, 0.055F};
inline constexpr Colour kSeat{0.05F, 0.045F, 0.04F}; // round a key
inline constexpr Colour kBrassBright = hex(0xF0D79C);
inline constexpr Colour kBrass = hex(0xC39A55);
inline constexpr Colour kBrassDark = hex(0x8E6A34);
inline constexpr Colour kBrassEdge = hex(0xCFAE70);
inline constexpr Colour kBrassInlay = hex(0xA67F43); // middle of the about picture's frame
inline constexpr Colour kPetrolEdge{0.45F, 0.60F,
                                    0.62F}; // round an inlay, where it faces the light
inline constexpr Colour kBrassPrint = hex(0xD6B272);
inline constexpr Colour kBrassLetters = hex(0xE2C58A); // about picture

// Amber glass and lamps
inline constexpr Colour kGlassTop = hex(0x0C0805);
inline constexpr Colour kGlass = hex(0x150E08);
inline constexpr Colour kGlassBottom = hex(0x1B120A);
inline constexpr Colour kAmber = hex(0xFFB040);
inline constexpr Colour kAmberHot = hex(0xFFE2A6);
inline constexpr Colour kAmberGhost = hex(0x2E1D0D);
inline constexpr Colour kAmberGlow = hex(0xFF8A1E);
inline constexpr Colour kHostAmber = hex(0xC99A5C); // the host's tempo: not to be edited
inline constexpr Colour kHostHot = hex(0xE8CFA4);
inline constexpr Colour kHostGlow = hex(0x9A5A1E);
inline constexpr Colour kNeedle = hex(0xFFF0CC);
inline constexpr Colour kNeedleEdge = hex(0xFF9A3C);
inline constexpr Colour kNeedleGlow = hex(0xFF6A1A);
inline constexpr Colour kCarriageTop =
    hex(0x6B5436); // bronze: the needle's, hairlines of the waves
inline constexpr Colour kCarriage = hex(0x3A2A18);
inline constexpr Colour kCarriageBottom = hex(0x1A1109);
inline constexpr Colour kDialGroove = hex(0x3A2816);
inline constexpr Colour kWire = hex(0xD6AE68); // in the groove, where the light meets it
inline constexpr Colour kWireLeft = hex(0x7A5A2C);
inline constexpr Colour kWireRight = hex(0x6A4C22);
inline constexpr Colour kRangeDark = hex(0x5A4020); // levels at which the follower rests
inline constexpr Colour kRangeLine = hex(0x1A1008);
inline constexpr Colour kDialLamp = hex(0xFF9A30);
inline constexpr Colour kLipLight = hex(0xFFB45A);
inline constexpr Colour kLampAmber = hex(0xFF9A1C);
inline constexpr Colour kLampRuby = hex(0xFF3A22);
inline constexpr Colour kLampIce = hex(0x9FDCFF);
inline constexpr Colour kLampHot{1.0F, 0.97F, 0.92F}; // a lit jewel's middle
inline constexpr Colour kRingHot{1.0F, 0.93F, 0.86F};
inline constexpr Colour kRingDark{0.20F, 0.07F, 0.06F}; // ring of the bypass, unlit
inline constexpr Colour kLampDark{0.20F, 0.15F, 0.12F};

// Keys
inline constexpr Colour kKeyDark = hex(0x3A322B);
inline constexpr Colour kKeyDarkText = hex(0xE2DAC8);
inline constexpr Colour kKeyAmber = hex(0xFFB648); // lit evenly: the small round keys
inline constexpr Colour kKeyLitEdge = hex(0xF89C26);
inline constexpr Colour kKeyLitCore = hex(0xFFE7A0);
inline constexpr Colour kKeyLitText = hex(0x2A1804);
inline constexpr Colour kKeyGlow = hex(0xFF9A2A);
inline constexpr Colour kKeySignDim = hex(0x8A6A3A);
inline constexpr Colour kLockTop = hex(0x3B332B); // the overlay's smoked glass
inline constexpr Colour kLockBottom = hex(0x221C17);
inline constexpr Colour kWarmWhite{1.0F, 0.9F, 0.7F}; // what a key under the mouse is lit with

// Print
inline constexpr Colour kInk = hex(0x323232);
inline constexpr Colour kInkDim = hex(0x403B32); // units, key hints
inline constexpr Colour kInkLfo = hex(0x0E4A54); // everything that the LFO sends
inline constexpr Colour kInkFollower = hex(0x7C2418);
inline constexpr Colour kInkName = hex(0x241C14);
inline constexpr Colour kInkMaker = hex(0x3B2F22);
inline constexpr Colour kPrint = hex(0xDAD5C7); // on petrol and bar
inline constexpr Colour kPrintDim = hex(0xABA698);
inline constexpr Colour kDotDark = mix(kPrintDim, kPetrol, 0.35F); // position not chosen
inline constexpr Colour kLockText = hex(0xF2E6CC);

// Text windows of the bar
inline constexpr Colour kCreamLow = hex(0xCDBF9A);
inline constexpr Colour kCream = hex(0xE7DCBD);
inline constexpr Colour kCreamShade{0.20F, 0.12F, 0.0F};
inline constexpr Colour kCreamLine = hex(0x8F8360);
inline constexpr Colour kCreamSign = hex(0x3A3020);

inline constexpr Colour kBlack{0.0F, 0.0F, 0.0F};
inline constexpr Colour kWhite{1.0F, 1.0F, 1.0F};
inline constexpr Colour kSoftbox{1.0F, 0.97F, 0.90F}; // its reflection in glass
inline constexpr Colour kLitEdge{1.0F, 0.99F, 0.95F}; // edges that face the light

// Shadows: warm, as ivory throws light into them
inline constexpr Colour kWarmShadow{0.08F, 0.04F, 0.0F};
inline constexpr Colour kContactShadow{0.06F, 0.03F, 0.0F}; // where a part touches
inline constexpr Colour kSoftShadow{0.10F, 0.06F, 0.0F};    // of bezels and screws
inline constexpr Colour kPlateShadow{0.12F, 0.08F, 0.02F};
inline constexpr Colour kRivetShadow{0.15F, 0.10F, 0.03F};

} // namespace pedl::skin::palette
