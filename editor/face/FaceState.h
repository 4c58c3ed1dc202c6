#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "parameters/ParameterIndex.h"

namespace pedl::skin {

/// All that the face shows at a moment.
struct FaceState {
    std::array<float, kNumParams> values{};   // by parameter, normalised
    std::int32_t display = kFilterCutoffFreq; // whose control is on the amber glass
    std::map<std::int32_t, float> lamps;      // by tag; the others are dark
    float hostTempo = 0.13846F;               // 96 BPM, as the tempo control has it
    float lfoEncoder = 0.12F;                 // of a turn
    float cutoffEncoder = 0.71F;
    bool isWaveListOpen = false;
    int hoveredWave = 0;
    std::map<std::int32_t, int> barFrames; // of the bar's buttons, by tag; the others rest
    bool isMidiActive = false;

    std::string programName = "Default";
    std::string controller = "not assigned";
    bool hasController = true; // what is under the mouse can have one
    std::string channel = "OMNI";
    std::string hint = "www.zmt-sonics.example";
};

/// The program "Default", playing.
FaceState defaultState();

/// The list of waves is open, all modulation locked, LFO and follower held, the sound bypassed, the
/// scale in notes, the LFO's rate in the display.
FaceState busyState();

} // namespace pedl::skin
