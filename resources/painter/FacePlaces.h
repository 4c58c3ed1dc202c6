#pragma once

#include "resources/painter/Canvas.h"

#include <array>

namespace pedl::skin {

// Where the controls are that throw shadows on the face, stand in seats or have scales round them.
// Their pictures do not know; the editor's layout does, and a test holds the two together.

/// Where a knob stands, and what its scale looks like.
struct KnobPlace {
    double x, y; // its middle
    bool bipolar = false;
    bool signs = false;        // a minus and a plus at the ends of the scale
    bool isTopCovered = false; // a window hides the upmost tick
};

inline constexpr std::array kEncoderPlaces{KnobPlace{92, 75}, KnobPlace{428, 75}};

// gain, LFO to cut-off, LFO to gain, follower to cut-off, follower to gain, dry, wet
inline constexpr std::array kLargePlaces{KnobPlace{62, 361.5, true},
                                         KnobPlace{131, 361.5},
                                         KnobPlace{196, 361.5, true, true},
                                         KnobPlace{263, 361.5, true, true},
                                         KnobPlace{329, 361.5, true, true},
                                         KnobPlace{398, 361.5},
                                         KnobPlace{459, 361.5}};

// spread, rate, depth, threshold, attack, release, range
inline constexpr std::array kMediumPlaces{KnobPlace{62.5, 276.5, true},
                                          KnobPlace{130, 277.5, true, true},
                                          KnobPlace{184, 277.5, true, true},
                                          KnobPlace{251.5, 277, false, false, true},
                                          KnobPlace{306, 276},
                                          KnobPlace{405, 276},
                                          KnobPlace{459, 276}};

// smooth, width, random, type, resonance, saturation, limiter, saturator
inline constexpr std::array kSmallPlaces{
    KnobPlace{52, 141},  KnobPlace{131, 141, true}, KnobPlace{165, 141}, KnobPlace{355, 141, true},
    KnobPlace{388, 141}, KnobPlace{467, 141},       KnobPlace{349, 448}, KnobPlace{397, 448}};

inline constexpr KnobPlace kExtendPlace{356, 282}; // a small one, on ivory

// freeze, bypass
inline constexpr std::array kFootSwitchPlaces{KnobPlace{139.5, 456.5}, KnobPlace{467.5, 456.5}};

/// A key or a window that stands in the plate.
struct Seat {
    Rectangle box;
    double radius;
    bool lip; // on ivory, where the seat's lower right edge catches light
};

// Not the four keys that send modulation: the lock overlay takes their place.
inline constexpr std::array kSeatPlaces{
    Seat{{385, 320, 27, 14}, 2, true},  Seat{{445, 320, 27, 14}, 2, true},
    Seat{{100, 400, 260, 15}, 2, true}, Seat{{115, 243, 31, 14}, 2, true},
    Seat{{166, 243, 37, 14}, 2, true},  Seat{{466, 400, 17, 15}, 2, true},
    Seat{{229, 246, 48, 14}, 2, true},  Seat{{340, 420, 19, 13}, 2, false},
    Seat{{384, 418, 28, 17}, 2, false}, Seat{{148, 112, 36, 14}, 2, false},
    Seat{{80, 383, 11, 20}, 5, false},  Seat{{415, 381.5, 27, 21}, 5, false}};

// Upper left corners: sync, slope, mode, routing
inline constexpr std::array kSlidePlaces{Point{186.5, 137.5}, Point{408.5, 137.5},
                                         Point{41.5, 442.5}, Point{272.5, 442.5}};

// Middles: left, right, follower, dry, wet, limiter, saturator, freeze, bypass, rate, cut-off
inline constexpr std::array kLampPlaces{Point{40, 301},  Point{83, 301},  Point{232, 301},
                                        Point{378, 327}, Point{439, 327}, Point{329, 426},
                                        Point{376, 426}, Point{103, 426}, Point{430, 426},
                                        Point{141, 31},  Point{379, 31}};

} // namespace pedl::skin
