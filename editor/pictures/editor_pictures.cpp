// Pictures of the editor in the states that the documents show, taken from the editor itself in a
// window without a display.
// Usage: editor-pictures FOLDER
//   FOLDER   gets NAME.png and NAME-2x.png for each state, NAME being editor, editor-busy, ...

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
#include <string>
#include <vector>

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
    void select(std::int32_t slot) { effect_.selectProgram(slot); }

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
constexpr CCoord kWaveX = 92, kWaveY = 140;
constexpr CCoord kNameX = 254, kNameY = 30;
constexpr CCoord kMenuX = 316, kMenuY = 535;
constexpr CCoord kLearnX = 339, kLearnY = 520;
constexpr CCoord kGainX = 62, kGainY = 361;

void showDefault(Session& session) {
    session.play(-12);
    session.idle(2); // lamps are lit by one and drawn by the next
}

void showBusy(Session& session) {
    for (const std::int32_t modulation :
         {kFilterFreqByLFODefeat, kGainByLFODefeat, kGainByENVDefeat, kRateLFOByEnvDefeat,
          kDepthLFOByEnvDefeat, kDryDefeat, kFreez, kFreqNoteScaleSwitch})
        session.set(modulation, 1.0F);
    session.set(kFilterFreqByLFO, 0.72F);
    session.set(kGainByLFO, 0.28F);
    session.set(kRateLFOByEnv, 0.7F);
    session.set(kDepthLFOByEnv, 0.3F);
    session.set(kLFOSyncMode, 0.5F);
    session.set(kLFOType, 5.0F / 6.0F);
    session.set(kFilterCutoffFreq, 0.75F);
    session.set(kGain, 0.62F);
    session.play(-3);
    session.idle(2);
}

void showLocked(Session& session) {
    session.set(kModulationOnOff, 1.0F);
    session.set(kPower, 1.0F);
    session.window().mouseMove(230, 325);
    session.idle(2);
}

void showLfoRate(Session& session) {
    session.window().mouseMove(kLfoEncoderX, kLfoEncoderY);
    session.idle(2);
}

void showNoteDivision(Session& session) {
    session.set(kLFOSyncMode, 0.5F);
    showLfoRate(session);
}

void showTempo(Session& session) {
    session.set(kLFOSyncMode, 0.5F);
    session.window().mouseMove(kLfoEncoderX, kLfoEncoderY, kAlt);
    session.idle(3);
}

void showHostTempo(Session& session) {
    session.set(kLFOSyncMode, 1.0F);
    session.window().mouseMove(kLfoEncoderX, kLfoEncoderY);
    session.idle(2);
    session.window().mouseMove(kLfoEncoderX, kLfoEncoderY, kAlt);
    session.idle(3);
}

void showWaves(Session& session) {
    session.click(kWaveX, kWaveY, kRButton);
    session.window().mouseMove(kWaveX, kWaveY + 4 * 28);
    session.idle(2);
}

void showAbout(Session& session) {
    session.click(kNameX, kNameY);
    session.idle(2);
}

void showLearn(Session& session) {
    session.click(kLearnX, kLearnY);
    session.window().mouseMove(kGainX, kGainY);
    session.idle(2);
}

void showMenu(Session& session) {
    session.click(kMenuX, kMenuY);
    session.idle(2);
}

struct State {
    const char* name;
    void (*show)(Session&);
};

constexpr State kStates[]{
    {"editor", showDefault},
    {"editor-busy", showBusy},
    {"editor-locked", showLocked},
    {"editor-rate", showLfoRate},
    {"editor-note", showNoteDivision},
    {"editor-tempo", showTempo},
    {"editor-host-tempo", showHostTempo},
    {"editor-waves", showWaves},
    {"editor-about", showAbout},
    {"editor-learn", showLearn},
    {"editor-menu", showMenu},
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

bool takePicture(const State& state, int scale, const std::string& folder) {
    Session session(scale);
    state.show(session);
    const std::string ending = scale == 2 ? "-2x.png" : ".png";
    return savePicture(session, scale, folder + "/" + state.name + ending);
}

} // namespace

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: editor-pictures FOLDER\n");
        return 2;
    }
    setPlatformFrameFactory(OffscreenFrame::create);
    for (const State& state : kStates)
        for (const int scale : {1, 2})
            if (!takePicture(state, scale, arguments[1])) {
                std::fprintf(stderr, "editor-pictures: cannot make %s\n", state.name);
                return 1;
            }
    return 0;
}
