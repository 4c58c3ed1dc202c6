// The base classes as a host meets them: through the raw record alone.

#include "foundation/vst24/AEffEditor.h"
#include "foundation/vst24/AudioEffectX.h"

#include <gtest/gtest.h>

#include <cstring>
#include <limits>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Log = std::vector<std::string>;

/// Notes every virtual operation that a host's call reaches.
class ProbeEffect : public AudioEffectX {
public:
    explicit ProbeEffect(Log& log) : AudioEffectX(nullptr, 3, 5), log_(log) {}
    ~ProbeEffect() override { note("deleted"); }

    void open() override { note("open"); }
    void close() override { note("close"); }
    void suspend() override { note("suspend"); }
    void resume() override { note("resume"); }
    void processReplacing(float**, float**, VstInt32 frames) override { note("float", frames); }
    void processDoubleReplacing(double**, double**, VstInt32 n) override { note("double", n); }
    void process(float**, float**, VstInt32 frames) override { note("process", frames); }
    void setParameter(VstInt32 index, float) override { note("setParameter", index); }
    void getParameterName(VstInt32 index, char*) override { note("name", index); }
    void setProgram(VstInt32 program) override { note("setProgram", program); }
    void setProgramName(char* name) override { note("setProgramName", name); }
    VstInt32 getChunk(void**, bool isPreset) override { return note("getChunk", isPreset); }
    VstInt32 setChunk(void*, VstInt32 byteSize, bool isPreset) override {
        return note(isPreset ? "setChunk program" : "setChunk bank", byteSize);
    }
    VstInt32 processEvents(VstEvents* events) override { return note("events", events->numEvents); }
    bool getProgramNameIndexed(VstInt32 category, VstInt32 index, char*) override {
        return note("program name of category", category, index);
    }
    bool setSpeakerArrangement(VstSpeakerArrangement* in, VstSpeakerArrangement* out) override {
        return note("arrangement", in->numChannels, out->numChannels);
    }
    VstIntPtr vendorSpecific(VstInt32 index, VstIntPtr value, void*, float opt) override {
        return 41 + note("vendor", value, opt, index);
    }
    VstInt32 canDo(char* text) override { return std::string_view(text) == "offline" ? 1 : -1; }

private:
    template <typename... Parts> int note(const char* what, const Parts&... parts) {
        std::ostringstream line;
        line << what;
        ((line << " " << parts), ...);
        log_.push_back(line.str());
        return 1;
    }

    Log& log_;
};

class ProbeEditor : public AEffEditor {
public:
    explicit ProbeEditor(Log& log) : log_(log) {}
    ~ProbeEditor() override { log_.push_back("editor deleted"); }

private:
    Log& log_;
};

class AudioEffectTest : public testing::Test {
protected:
    AudioEffectTest() { record_ = (new ProbeEffect(log_))->getAeffect(); }
    ~AudioEffectTest() override {
        if (record_ != nullptr)
            call(effClose);
    }

    VstIntPtr call(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                   float opt = 0.0F) {
        return record_->dispatcher(record_, opcode, index, value, ptr, opt);
    }
    AudioEffectX& effect() { return *static_cast<AudioEffectX*>(record_->object); }

    Log log_;
    AEffect* record_ = nullptr;
};

TEST_F(AudioEffectTest, ANewRecordDeclaresWhatTheBaseHasAndNothingElse) {
    EXPECT_EQ(record_->magic, 0x56737450);
    EXPECT_EQ(record_->flags, 1 << 4);
    EXPECT_EQ(record_->numPrograms, 3);
    EXPECT_EQ(record_->numParams, 5);
    EXPECT_EQ(record_->numInputs, 1);
    EXPECT_EQ(record_->numOutputs, 2);
    EXPECT_EQ(record_->uniqueID, CCONST('N', 'o', 'E', 'f'));
    EXPECT_EQ(record_->version, 1);
    EXPECT_EQ(record_->ioRatio, 1.0F);
    EXPECT_EQ(record_->resvd1 | record_->resvd2 | record_->initialDelay, 0);
    // Hosts read equality as "cannot replace".
    EXPECT_NE(record_->process, nullptr);
    EXPECT_NE(record_->process, record_->processReplacing);
}

TEST_F(AudioEffectTest, CloseClosesAndDeletesOnceTheEditorTooUnlessItWasTakenAway) {
    ProbeEditor kept(log_);
    effect().setEditor(&kept);
    EXPECT_NE(record_->flags & effFlagsHasEditor, 0);
    effect().setEditor(nullptr);
    EXPECT_EQ(record_->flags & effFlagsHasEditor, 0);
    EXPECT_EQ(call(effClose), 1);
    record_ = (new ProbeEffect(log_))->getAeffect();
    effect().setEditor(new ProbeEditor(log_));
    call(effClose);
    record_ = nullptr;
    EXPECT_EQ(log_, (Log{"close", "deleted", "close", "deleted", "editor deleted"}));
}

TEST_F(AudioEffectTest, EachCallReachesItsOperationWithItsArguments) {
    char name[] = "Warm";
    VstEvents events{2, 0, {}};
    VstSpeakerArrangement mono{0, 1, {}};
    VstSpeakerArrangement stereo{1, 2, {}};
    char text[32] = {};
    // The input arrangement travels as a number, the output arrangement as the pointer.
    const auto monoAddress = reinterpret_cast<VstIntPtr>(&mono);
    struct Row {
        const char* reached;
        VstIntPtr answer;
        VstInt32 opcode, index;
        VstIntPtr value;
        void* ptr;
        float opt;
    };
    // clang-format off
    for (const Row& row : {
        Row{"open",                0,  effOpen,                  0, 0,           nullptr, 0},
        Row{"setProgram 2",        0,  effSetProgram,            0, 2,           nullptr, 0},
        Row{"setProgramName Warm", 0,  effSetProgramName,        0, 0,           name,    0},
        Row{"name 4",              0,  effGetParamName,          4, 0,           text,    0},
        Row{"resume",              0,  effMainsChanged,          0, 1,           nullptr, 0},
        Row{"suspend",             0,  effMainsChanged,          0, 0,           nullptr, 0},
        Row{"getChunk 1",          1,  effGetChunk,              1, 0,           text,    0},
        Row{"setChunk bank 12",    1,  effSetChunk,              0, 12,          name,    0},
        Row{"setChunk program 9",  1,  effSetChunk,              1, 9,           name,    0},
        Row{"events 2",            1,  effProcessEvents,         0, 0,           &events, 0},
        Row{"program name of category -1 139", 1, effGetProgramNameIndexed, 139, -1, text, 0},
        Row{"arrangement 1 2",     1,  effSetSpeakerArrangement, 0, monoAddress, &stereo, 0},
        Row{"vendor 5 8 3",        42, effVendorSpecific,        3, 5,           nullptr, 8},
    }) {
        // clang-format on
        SCOPED_TRACE(row.reached);
        log_.clear();
        EXPECT_EQ(call(row.opcode, row.index, row.value, row.ptr, row.opt), row.answer);
        EXPECT_EQ(log_, Log{row.reached});
    }
    log_.clear();
    record_->processReplacing(record_, nullptr, nullptr, 16);
    record_->processDoubleReplacing(record_, nullptr, nullptr, 17);
    record_->process(record_, nullptr, nullptr, 18);
    record_->setParameter(record_, 4, 0.5F);
    EXPECT_EQ(log_, (Log{"float 16", "double 17", "process 18", "setParameter 4"}));
}

TEST_F(AudioEffectTest, AnswersFixedByTheInterface) {
    char offline[] = "offline";
    char other[] = "levitate";
    EXPECT_EQ(call(effIdentify), 0x4E764566);
    EXPECT_EQ(call(effGetVstVersion), 2400);
    EXPECT_EQ(call(effGetNumProgramCategories), 1);
    EXPECT_EQ(call(effConnectInput, 0, 1), 1);
    EXPECT_EQ(call(effCanBeAutomated, 4), 1);
    EXPECT_EQ(call(effGetCurrentMidiProgram), -1);
    EXPECT_EQ(call(effSetTotalSampleToProcess, 0, 77), 77);
    EXPECT_EQ(call(effCanDo, 0, 0, offline), 1);
    EXPECT_EQ(call(effCanDo, 0, 0, other), -1);
    EXPECT_EQ(call(effGetPlugCategory), 0);
    effect().isSynth();
    EXPECT_EQ(call(effGetPlugCategory), 2);
}

TEST_F(AudioEffectTest, EveryCallIsSafeWithoutPointersAndWithWildNumbers) {
    for (VstInt32 opcode = -3; opcode < 200; ++opcode) {
        if (opcode == effClose)
            continue;
        SCOPED_TRACE(opcode);
        for (const VstIntPtr value : {VstIntPtr{0}, VstIntPtr{-1}})
            call(opcode, -1, value, nullptr, std::numeric_limits<float>::quiet_NaN());
        if (opcode < 0 || opcode > effGetNumMidiOutputChannels) {
            EXPECT_EQ(call(opcode), 0);
        }
    }
    log_.clear();
    for (const VstIntPtr program : {VstIntPtr{3}, VstIntPtr{-1}, VstIntPtr{1} << 32})
        call(effSetProgram, 0, program); // not declared: not passed on
    EXPECT_EQ(log_, Log{});
}

TEST_F(AudioEffectTest, TextsOfTheBaseTouchOneByteAndNoneWhereTheAnswerIsNo) {
    for (const VstInt32 opcode : {effGetProgramName, effGetParamLabel, effGetParamDisplay,
                                  effGetEffectName, effGetVendorString, effGetProductString}) {
        char text[] = "###";
        EXPECT_EQ(call(opcode, 0, 0, text), 0);
        const bool isQuestion = opcode >= effGetEffectName;
        EXPECT_EQ(std::string(text, 3), isQuestion ? "###" : std::string("\0##", 3)) << opcode;
    }
}

TEST(AudioEffectHostTest, WithoutAHostEveryQuestionIsAnsweredNo) {
    Log log;
    ProbeEffect effect(log);
    EXPECT_EQ(effect.getMasterVersion(), 0);
    EXPECT_EQ(effect.getTimeInfo(kVstTempoValid), nullptr);
    EXPECT_FALSE(effect.beginEdit(0) || effect.updateDisplay());
    EXPECT_EQ(effect.updateSampleRate(), 44100.0);
}

} // namespace
