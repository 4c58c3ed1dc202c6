// Takes a picture of the editor in a state that the documents show, in a window without a display.
// Usage: editor-picture STATE SCALE FILE
//   STATE   default, busy, locked, held, notes, rate, note, tempo, host, waves, about, learn or
//   menu SCALE   1 or 2 FILE    the PNG file

#include "editor/ZMTpedlFilterEditor.h"
#include "editor/pictures/PictureSurroundings.h"
#include "vstgui/lib/platform/common/pixmansurface.h"
#include "vstgui/lib/platform/offscreen/manualclock.h"
#include "vstgui/lib/platform/offscreen/offscreenframe.h"
#include "vstgui/lib/platform/offscreen/offscreenmenu.h"
#include "vstgui/lib/platform/offscreen/pngwriter.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace {

using namespace pedl;
using namespace VSTGUI;

constexpr double kSampleRateHz = 48000.0;
constexpr std::size_t kBlockFrames = 512;
constexpr TickMs kIdleMs = 20;

/// An effect, its open window, and a hand for the mouse.
class Session {
public:
    explicit Session(double scale) {
        effect_.setSampleRate(static_cast<float>(kSampleRateHz));
        effect_.resume();
        editor_.open(this);
        editor_.getFrame()->setScaleFactor(scale);
        idle(3);
    }

    void set(std::int32_t parameter, float value) { effect_.setParameter(parameter, value); }
    ZMTpedlFilterEffect& effect() { return effect_; }

    void idle(int times) {
        for (; times > 0; --times) {
            clock_.advance(kIdleMs);
            editor_.idle();
        }
    }
    /// Lets a note of this level, 0 dB being full scale, run through, so that lamps light.
    void play(double levelDb) {
        std::array<std::array<float, kBlockFrames>, 2> left{}, right{};
        const double level = std::pow(10.0, levelDb / 20.0);
        for (int block = 0; block < 60; ++block) {
            for (std::size_t i = 0; i < kBlockFrames; ++i)
                left[0][i] = right[0][i] =
                    static_cast<float>(level * std::sin(0.03 * static_cast<double>(frame_++)));
            float* inputs[]{left[0].data(), right[0].data()};
            float* outputs[]{left[1].data(), right[1].data()};
            effect_.processReplacing(inputs, outputs, kBlockFrames);
        }
    }
    OffscreenFrame& window() { return OffscreenFrame::of(*editor_.getFrame()); }
    void click(double x, double y, std::int32_t buttons = kLButton) {
        window().mouseDown(x, y, buttons);
        window().mouseUp(x, y);
    }

private:
    ManualClock clock_;
    PictureSurroundings surroundings_;
    ZMTpedlFilterEffect& effect_ = surroundings_.effect;
    ZMTpedlFilterEditor editor_{&effect_};
    long frame_ = 0;
};

// Places of the face, in the middle of a control
constexpr CCoord kLfoEncoderX = 92, kLfoEncoderY = 75;
constexpr CCoord kWaveX = 92, kWaveY = 140, kWaveHeight = 28;
constexpr CCoord kNameX = 254, kNameY = 30;
constexpr CCoord kMenuX = 316, kMenuY = 535;
constexpr CCoord kLearnX = 339, kLearnY = 520;
constexpr CCoord kSliderX = 200, kSliderY = 210;
constexpr CCoord kLockX = 230, kLockY = 325;

constexpr float kOwnTempo = 0.5F, kHostTempo = 1.0F;

void show(Session& /*session*/) {}

void showBusy(Session& session) {
    for (const std::int32_t modulation :
         {kFilterFreqByLFODefeat, kGainByLFODefeat, kGainByENVDefeat, kRateLFOByEnvDefeat,
          kDepthLFOByEnvDefeat, kDryDefeat, kFreez, kFreqNoteScaleSwitch})
        session.set(modulation, 1.0F);
    session.set(kFilterFreqByLFO, 0.72F);
    session.set(kGainByLFO, 0.28F);
    session.set(kRateLFOByEnv, 0.7F);
    session.set(kDepthLFOByEnv, 0.3F);
    session.set(kLFOSyncMode, kOwnTempo);
    session.set(kLFOType, 5.0F / 6.0F);
    session.set(kFilterCutoffFreq, 0.75F);
    session.set(kGain, 0.62F);
    session.play(-3);
}

void showLocked(Session& session) {
    session.set(kModulationOnOff, 1.0F);
    session.set(kPower, 1.0F);
    session.window().mouseMove(kLockX, kLockY);
}

void showHeld(Session& session) {
    session.set(kFreez, 1.0F);
}

void showNotes(Session& session) {
    session.set(kFreqNoteScaleSwitch, 1.0F);
}

/// Over the encoder of the LFO, first without the key and then with it.
void pointAtLfo(Session& session, std::int32_t modifiers) {
    session.window().mouseMove(kLfoEncoderX, kLfoEncoderY);
    session.idle(2);
    session.window().mouseMove(kLfoEncoderX, kLfoEncoderY, modifiers);
    session.idle(3);
}

void synchronise(Session& session, float mode) {
    session.set(kLFOSyncMode, mode);
    session.set(kLFOSynchroRate, 10.5F / 31); // a dotted quarter
}

void showRate(Session& session) {
    pointAtLfo(session, 0);
}

void showNote(Session& session) {
    synchronise(session, kOwnTempo);
    pointAtLfo(session, 0);
}

void showTempo(Session& session) {
    synchronise(session, kOwnTempo);
    pointAtLfo(session, kAlt);
}

void showHostTempo(Session& session) {
    synchronise(session, kHostTempo);
    session.play(-12); // the host's time is asked for with the sound
    pointAtLfo(session, kAlt);
}

void showWaves(Session& session) {
    session.click(kWaveX, kWaveY, kRButton);
    session.window().mouseMove(kWaveX, kWaveY + 3 * kWaveHeight);
}

void showAbout(Session& session) {
    session.click(kNameX, kNameY);
}

void showLearn(Session& session) {
    session.effect().midiMap().link(kFilterCutoffFreq, 74);
    session.click(kLearnX, kLearnY);
    session.window().mouseMove(kSliderX, kSliderY);
}

void showMenu(Session& session) {
    session.click(kMenuX, kMenuY);
}

struct State {
    std::string_view name;
    void (*show)(Session&);
};

constexpr State kStates[]{
    {"default", show},       {"busy", showBusy},   {"locked", showLocked}, {"held", showHeld},
    {"notes", showNotes},    {"rate", showRate},   {"note", showNote},     {"tempo", showTempo},
    {"host", showHostTempo}, {"waves", showWaves}, {"about", showAbout},   {"learn", showLearn},
    {"menu", showMenu},
};

/// The window, and over it the open menu, which may reach beyond it.
bool savePicture(Session& session, int scale, const std::string& path) {
    OffscreenFrame& window = session.window();
    OffscreenMenu* const menu = OffscreenMenu::of(window);
    if (!menu)
        return writePng(*window.surface(), path);
    const PixmanSurface& face = *window.surface();
    const PixmanSurface& list = menu->image();
    const int left = static_cast<int>(menu->place().left * scale);
    const int top = static_cast<int>(menu->place().top * scale);
    PixmanSurface whole(std::max(face.widthPixels(), left + list.widthPixels()),
                        std::max(face.heightPixels(), top + list.heightPixels()), 1);
    const auto copy = [&](const PixmanSurface& from, int x0, int y0) {
        for (int y = 0; y < from.heightPixels(); ++y)
            for (int x = 0; x < from.widthPixels(); ++x)
                whole.pixels()[(y0 + y) * whole.strideBytes() / 4 + x0 + x] = from.pixelAt(x, y);
    };
    copy(face, 0, 0);
    copy(list, left, top);
    return writePng(whole, path);
}

bool takePicture(std::string_view name, int scale, const std::string& path) {
    for (const State& state : kStates) {
        if (state.name != name)
            continue;
        setPlatformFrameFactory(OffscreenFrame::create);
        Session session(scale);
        session.play(-12);
        state.show(session);
        session.idle(2); // lamps are lit by one and drawn by the next
        return savePicture(session, scale, path);
    }
    return false;
}

} // namespace

int main(int count, char** arguments) {
    const int scale = count == 4 ? std::atoi(arguments[2]) : 0;
    if (scale != 1 && scale != 2) {
        std::fprintf(stderr, "usage: editor-picture STATE SCALE FILE\n");
        return 2;
    }
    if (takePicture(arguments[1], scale, arguments[3]))
        return 0;
    std::fprintf(stderr, "editor-picture: cannot make %s of \"%s\"\n", arguments[3], arguments[1]);
    return 1;
}
