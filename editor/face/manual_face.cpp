// Draws the face in a state that the operation manual shows, from the embedded skin.
// Usage: manual-face STATE FILE
//   STATE   default, notes, waves, locked, held, rate, note, tempo, host or learn
//   FILE    the PNG file, at scale 2

#include "editor/face/FacePainter.h"
#include "resources/SkinResources.h"
#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include <cstdio>
#include <string_view>

namespace pedl::skin {

namespace {

constexpr int kScale = 2;
constexpr int kLitFrame = 2; // of a bar's button that stays on
constexpr float kOwnTempo = 0.5F, kHostTempo = 1.0F;

void showLfo(FaceState& state, std::int32_t display) {
    state.display = display;
    state.lamps[kDisplayMode_Cutoff] = 0;
    state.lamps[kDisplayMode_LFORate] = 1;
}

void synchronise(FaceState& state, float mode, std::int32_t display) {
    state.values[kLFOSyncMode] = mode;
    state.values[kLFOSynchroRate] = 10.5F / 31; // a dotted quarter
    showLfo(state, display);
}

/// What differs from the program "Default", playing.
struct NamedState {
    std::string_view name;
    void (*alter)(FaceState&);
};

constexpr NamedState kStates[]{
    {"default", [](FaceState&) {}},
    {"notes", [](FaceState& state) { state.values[kFreqNoteScaleSwitch] = 1; }},
    {"waves",
     [](FaceState& state) {
         state.isWaveListOpen = true;
         state.hoveredWave = 3;
     }},
    {"locked", [](FaceState& state) { state.values[kModulationOnOff] = 1; }},
    {"held",
     [](FaceState& state) {
         state.values[kFreez] = 1;
         state.lamps[kFreezStatusLED] = 1;
     }},
    {"rate", [](FaceState& state) { showLfo(state, kLFOFreq); }},
    {"note", [](FaceState& state) { synchronise(state, kOwnTempo, kLFOSynchroRate); }},
    {"tempo", [](FaceState& state) { synchronise(state, kOwnTempo, kTempoSetup); }},
    {"host", [](FaceState& state) { synchronise(state, kHostTempo, kSynchroTempoFromHost); }},
    {"learn",
     [](FaceState& state) {
         state.barFrames[kMidiLearn] = kLitFrame;
         state.isMidiActive = true;
         state.controller = "brightness cc#74";
         state.hint = "Sets the filter cut-off frequency in Hz";
     }},
};

} // namespace

/// @return false when there is no such state, or the file cannot be written
bool drawState(std::string_view name, const char* path) {
    for (const NamedState& named : kStates) {
        if (named.name != name)
            continue;
        useEmbeddedSkin();
        FaceState state = defaultState();
        named.alter(state);
        return writePng(*drawFace(state, kScale), path);
    }
    return false;
}

} // namespace pedl::skin

int main(int count, char** arguments) {
    if (count != 3) {
        std::fprintf(stderr, "usage: manual-face STATE FILE\n");
        return 2;
    }
    if (pedl::skin::drawState(arguments[1], arguments[2]))
        return 0;
    std::fprintf(stderr, "manual-face: cannot draw \"%s\" into %s\n", arguments[1], arguments[2]);
    return 1;
}
