// A small plug-in whose every output can be worked out by hand; built as a library for the tests.
// The variable STUB_FAULT makes it none. With STUB_EDITOR it has an editor, which raises the signal
// of that number after a while, if it is one.

#include "foundation/vst24/AEffEditor.h"
#include "foundation/vst24/AudioEffectX.h"

#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <limits>
#include <string_view>

namespace {

enum Parameter : VstInt32 { kGain, kSignal, kOutput, kNumParameters };

/// How the effect was processed so far.
struct Processed {
    int frames = 0, starts = 0;
    VstInt32 level = 0;
};

/// Draws nothing; asks for another size once it is open and tells in the end what it has seen.
class StubEditor : public AEffEditor {
public:
    StubEditor(AudioEffectX* owner, const Processed& processed, int signal)
        : AEffEditor(owner), processed_(processed), signal_(signal) {}

    bool getRect(ERect** rect) override {
        *rect = &rect_;
        return true;
    }
    bool open(void* parent) override {
        AEffEditor::open(parent);
        return true;
    }
    void idle() override {
        if (++turns_ == 3)
            static_cast<AudioEffectX*>(effect)->sizeWindow(300, 200);
        if (turns_ == 10 && signal_ != 0)
            std::raise(signal_);
    }
    void close() override {
        std::fprintf(stderr, "editor: %d turns at level %d, %d frames at level %d in %d loops\n",
                     turns_, static_cast<int>(level()), processed_.frames,
                     static_cast<int>(processed_.level), processed_.starts);
        AEffEditor::close();
    }

private:
    VstInt32 level() { return static_cast<AudioEffectX*>(effect)->getCurrentProcessLevel(); }

    const Processed& processed_;
    const int signal_;
    ERect rect_{0, 0, 100, 200};
    int turns_ = 0;
};

class StubEffect : public AudioEffectX {
public:
    explicit StubEffect(audioMasterCallback host) : AudioEffectX(host, 2, kNumParameters) {
        setNumInputs(2);
        setNumOutputs(2);
        setUniqueID(CCONST('S', 't', 'u', 'b'));
        canDoubleReplacing();
        askFromTheEntry();
        if (const char* const signal = std::getenv("STUB_EDITOR"))
            setEditor(new StubEditor(this, processed_, std::atoi(signal)));
    }
    ~StubEffect() override { std::fputs("stub: gone\n", stderr); }

    void setParameter(VstInt32 index, float value) override { at(index) = value; }
    float getParameter(VstInt32 index) override { return at(index); }
    void getParameterName(VstInt32 index, char* text) override {
        std::strcpy(text, index == kGain ? "Gain" : index == kSignal ? "Signal" : "Output");
    }
    void getParameterLabel(VstInt32 index, char* text) override {
        std::strcpy(text, index == kGain ? "%" : "");
    }
    void getParameterDisplay(VstInt32 index, char* text) override {
        std::snprintf(text, 16, "%.1f", static_cast<double>(at(index)) * 100.0);
    }

    void setProgram(VstInt32 program) override {
        curProgram = program;
        at(kGain) = program == 0 ? 0.5F : 1.0F;
    }
    bool getVendorString(char* text) override {
        std::strcpy(text, entryAnswers_);
        return true;
    }
    bool getProgramNameIndexed(VstInt32, VstInt32 index, char* text) override {
        std::strcpy(text, index == 0 ? "Soft" : "Loud"); // also for slots that do not exist
        return true;
    }
    bool getEffectName(char* name) override {
        std::strcpy(name, "St\xFC!\n"); // Latin-1 and a control character
        return true;
    }

    void processReplacing(float** in, float** out, VstInt32 frames) override {
        run(in, out, frames);
    }
    void processDoubleReplacing(double** in, double** out, VstInt32 frames) override {
        run(in, out, frames);
    }

private:
    float& at(VstInt32 index) { return values_[index]; }

    /// Calls the host before it can know this instance, with a record that is half garbage.
    void askFromTheEntry() {
        cEffect.resvd1 = 1;
        char ability[] = "sendVstTimeInfo";
        const auto version = audioMaster(nullptr, audioMasterVersion, 0, 0, nullptr, 0.0F);
        const auto rate = callHost(audioMasterGetSampleRate);
        std::snprintf(entryAnswers_, sizeof entryAnswers_, "%d %d %d", static_cast<int>(version),
                      canHostDo(ability), static_cast<int>(rate));
        cEffect.resvd1 = 0;
    }

    template <typename Sample> void run(Sample** in, Sample** out, VstInt32 frames) {
        // kSignal 0.25 stands for signal 16 of 64: the end, or a crash, in the third block.
        if (++blocks_ == 3 && at(kSignal) > 0.0F)
            std::raise(static_cast<int>(std::lround(at(kSignal) * 64.0F)));
        const VstTimeInfo& time = *getTimeInfo(kVstTempoValid);
        processed_.frames += frames;
        processed_.starts += (time.flags & kVstTransportChanged) != 0 ? 1 : 0;
        processed_.level = getCurrentProcessLevel();
        for (VstInt32 frame = 0; frame < frames; ++frame) {
            out[0][frame] = in[0][frame] * static_cast<Sample>(at(kGain));
            out[1][frame] = in[1][frame] * static_cast<Sample>(at(kGain));
            if (at(kOutput) > 0.75F) {
                out[0][frame] = std::numeric_limits<Sample>::quiet_NaN();
            } else if (at(kOutput) > 0.25F) {
                out[0][frame] = static_cast<Sample>(time.tempo / 1000.0);
                out[1][frame] = static_cast<Sample>(time.ppqPos / 1000.0);
            }
        }
    }

    float values_[kNumParameters]{0.5F};
    char entryAnswers_[24]{};
    int blocks_ = 0;
    Processed processed_;
};

} // namespace

extern "C" __attribute__((visibility("default"))) AEffect* VSTPluginMain(audioMasterCallback host) {
    std::fputs("stub: made\n", stderr); // as chatty as real ones are
    AEffect* const effect = (new StubEffect(host))->getAeffect();
    const char* const variable = std::getenv("STUB_FAULT");
    const std::string_view fault = variable != nullptr ? variable : "";
    if (fault == "magic")
        effect->magic = kEffectMagic + 1;
    if (fault == "functions")
        effect->getParameter = nullptr;
    if (fault == "counts")
        effect->numInputs = -5;
    if (fault == "replacing")
        effect->flags &= ~effFlagsCanReplacing;
    return fault == "null" ? nullptr : effect;
}
