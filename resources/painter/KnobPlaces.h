#pragma once

#include <array>

namespace pedl::skin {

/// Where a knob stands on the face, and what its scale looks like.
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

} // namespace pedl::skin
