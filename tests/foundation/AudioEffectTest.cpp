// The base classes as a host meets them: through the raw record alone.

#include "foundation/vst24/AEffEditor.h"
#include "foundation/vst24/AudioEffectX.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace {

/// Notes every virtual operation that a host's call reaches.
class ProbeEffect : public AudioEffectX {
public:
    ProbeEffect(std::vector<std::string>& log, audioMasterCallback host = nullptr)
        : AudioEffectX(host, 3, 5), log_(log) {}
    ~ProbeEffect() override { note("deleted"); }

    void open() override { note("open"); }
    void close() override { note("close"); }
    void suspend() override { note("suspend"); }
    void resume() override { note("resume"); }
    void processReplacing(float**, float**, VstInt32 frames) override { note("float", frames); }
    void processDoubleReplacing(double**, double**, VstInt32 frames) override {
        note("double", frames);
    }
    void process(float**, float**, VstInt32 frames) override { note("process", frames); }
    void setParameter(VstInt32 index, float) override { note("setParameter", index); }
    void getParameterName(VstInt32 index, char* text) override {
        note("name", index);
        std::strcpy(text, "Cutoff");
    }
    void setProgram(VstInt32 program) override { note("setProgram", program); }
    void setProgramName(char* name) override { note(std::string("setProgramName ") + name); }
    VstInt32 getChunk(void** data, bool isPreset) override {
        note("getChunk", isPreset);
        *data = this;
        return 7;
    }
    VstInt32 setChunk(void*, VstInt32 byteSize, bool isPreset) override {
        note(isPreset ? "setChunk program" : "setChunk bank", byteSize);
        return 1;
    }
    VstInt32 processEvents(VstEvents* events) override {
        note("events", events->numEvents);
        return 1;
    }
    bool getProgramNameIndexed(VstInt32 category, VstInt32 index, char*) override {
        note("program name of category " + std::to_string(category), index);
        return true;
    }
    bool setSpeakerArrangement(VstSpeakerArrangement* in, VstSpeakerArrangement* out) override {
        note("arrangement " + std::to_string(in->numChannels), out->numChannels);
        return true;
    }
    VstIntPtr vendorSpecific(VstInt32 index, VstIntPtr value, void*, float opt) override {
        note("vendor " + std::to_string(value) + " " + std::to_string(static_cast<int>(opt)),
             index);
        return 42;
    }
    VstInt32 canDo(char* text) override { return std::string_view(text) == "offline" ? 1 : -1; }

private:
    void note(const std::string& what) { log_.push_back(what); }
    void note(const std::string& what, VstInt32 number) {
        log_.push_back(what + " " + std::to_string(number));
    }

    std::vector<std::string>& log_;
};

class ProbeEditor : public AEffEditor {
public:
    explicit ProbeEditor(std::vector<std::string>& log) : log_(log) {}
    ~ProbeEditor() override { log_.push_back("editor deleted"); }
    bool getRect(ERect** rect) override {
        *rect = &rect_;
        return true;
    }
    bool open(void* parent) override {
        AEffEditor::open(parent);
        return true;
    }
    bool onKeyDown(VstKeyCode& key) override {
        log_.push_back("key " + std::to_string(key.character) + " " + std::to_string(key.virt) +
                       " " + std::to_string(key.modifier));
        return true;
    }

private:
    std::vector<std::string>& log_;
    ERect rect_{0, 0, 544, 521};
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

    std::vector<std::string> log_;
    AEffect* record_ = nullptr;
};

using Log = std::vector<std::string>;

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

TEST_F(AudioEffectTest, CloseClosesThenDeletesOnceAndAnswersOne) {
    EXPECT_EQ(call(effClose), 1);
    record_ = nullptr;
    EXPECT_EQ(log_, (Log{"close", "deleted"}));
}

TEST_F(AudioEffectTest, DeletesItsEditorUnlessTheEditorWasTakenAway) {
    effect().setEditor(new ProbeEditor(log_));
    EXPECT_NE(record_->flags & effFlagsHasEditor, 0);
    ProbeEditor kept(log_);
    AEffEditor* const first = effect().getEditor();
    effect().setEditor(&kept);
    delete first;
    effect().setEditor(nullptr);
    EXPECT_EQ(record_->flags & effFlagsHasEditor, 0);
    call(effClose);
    record_ = (new ProbeEffect(log_))->getAeffect();
    effect().setEditor(new ProbeEditor(log_));
    call(effClose);
    record_ = nullptr;
    EXPECT_EQ(log_,
              (Log{"editor deleted", "close", "deleted", "close", "deleted", "editor deleted"}));
}

TEST_F(AudioEffectTest, EachCallReachesItsOperationWithItsArguments) {
    char name[] = "Warm";
    VstEvents events{2, 0, {}};
    VstSpeakerArrangement mono{0, 1, {}};
    VstSpeakerArrangement stereo{1, 2, {}};
    char text[32] = {};
    struct Row {
        const char* reached;
        VstIntPtr answer;
        VstInt32 opcode, index;
        VstIntPtr value;
        void* ptr;
        float opt;
    };
    void* chunk = nullptr;
    for (const Row& row : {
             Row{"open", 0, effOpen, 0, 0, nullptr, 0},
             Row{"setProgram 2", 0, effSetProgram, 0, 2, nullptr, 0},
             Row{"setProgramName Warm", 0, effSetProgramName, 0, 0, name, 0},
             Row{"name 4", 0, effGetParamName, 4, 0, text, 0},
             Row{"resume", 0, effMainsChanged, 0, 1, nullptr, 0},
             Row{"suspend", 0, effMainsChanged, 0, 0, nullptr, 0},
             Row{"getChunk 1", 7, effGetChunk, 1, 0, &chunk, 0},
             Row{"setChunk bank 12", 1, effSetChunk, 0, 12, name, 0},
             Row{"setChunk program 9", 1, effSetChunk, 1, 9, name, 0},
             Row{"events 2", 1, effProcessEvents, 0, 0, &events, 0},
             Row{"program name of category -1 139", 1, effGetProgramNameIndexed, 139, -1, text, 0},
             // The input arrangement travels as a number, the output arrangement as the pointer.
             Row{"arrangement 1 2", 1, effSetSpeakerArrangement, 0,
                 reinterpret_cast<VstIntPtr>(&mono), &stereo, 0},
             Row{"vendor 5 8 3", 42, effVendorSpecific, 3, 5, nullptr, 8},
         }) {
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
    EXPECT_EQ(effect().getSampleRate(), 44100.0F);
}

TEST_F(AudioEffectTest, ProgramsOutsideTheDeclaredOnesAreNotPassedOn) {
    for (const VstIntPtr program : {VstIntPtr{3}, VstIntPtr{-1}, VstIntPtr{1} << 32})
        call(effSetProgram, 0, program);
    EXPECT_EQ(log_, Log{});
}

TEST_F(AudioEffectTest, ARateOrBlockSizeThatIsNoneLeavesWhatIsHeld) {
    call(effSetSampleRate, 0, 0, nullptr, 96000.0F);
    call(effSetBlockSize, 0, 256);
    for (const float rateHz : {0.0F, -1.0F, std::numeric_limits<float>::infinity(), std::nanf("")})
        call(effSetSampleRate, 0, 0, nullptr, rateHz);
    for (const VstIntPtr frames : {VstIntPtr{0}, VstIntPtr{-64}})
        call(effSetBlockSize, 0, frames);
    EXPECT_EQ(effect().getSampleRate(), 96000.0F);
    EXPECT_EQ(effect().getBlockSize(), 256);
}

TEST_F(AudioEffectTest, TextAnswersOfTheBaseTouchOneByteOnly) {
    for (const VstInt32 opcode : {effGetProgramName, effGetParamLabel, effGetParamDisplay}) {
        SCOPED_TRACE(opcode);
        std::array<char, 4> buffer{'#', '#', '#', '#'};
        call(opcode, 0, 0, buffer.data());
        EXPECT_EQ(std::string_view(buffer.data(), 4), std::string_view("\0###", 4));
    }
    // A query that is answered "no" writes nothing at all.
    for (const VstInt32 opcode : {effGetEffectName, effGetVendorString, effGetProductString}) {
        SCOPED_TRACE(opcode);
        std::array<char, 2> buffer{'#', '#'};
        EXPECT_EQ(call(opcode, 0, 0, buffer.data()), 0);
        EXPECT_EQ(buffer[0], '#');
    }
}

TEST_F(AudioEffectTest, NumberTextsStayInsideTheirLengthAndKeepThePoint) {
    struct Row {
        const char* expected;
        VstInt32 maxLen;
        void (*write)(AudioEffectX&, char*, VstInt32);
    };
    for (const Row& row : {
             Row{"-oo", 8, [](AudioEffectX&e, char*t, VstInt32 n) { e.dB2string(0.0F, t, n); }},
             Row{"-6.02", 8, [](AudioEffectX&e, char*t, VstInt32 n) { e.dB2string(0.5F, t, n); }},
             Row{"441.00", 8,
                 [](AudioEffectX&e, char*t, VstInt32 n) { e.Hz2string(100.0F, t, n); }},
             Row{"0", 8, [](AudioEffectX&e, char*t, VstInt32 n) { e.Hz2string(0.0F, t, n); }},
             Row{"10.00", 8, [](AudioEffectX&e, char*t, VstInt32 n) { e.ms2string(441, t, n); }},
             Row{"12345", 5,
                 [](AudioEffectX&e, char*t, VstInt32 n) { e.float2string(12345.678F, t, n); }},
             Row{"-21474", 6,
                 [](AudioEffectX&e, char*t, VstInt32 n) { e.int2string(-2147483647, t, n); }},
         }) {
        SCOPED_TRACE(row.expected);
        std::array<char, 16> buffer{};
        buffer.fill('#');
        row.write(effect(), buffer.data(), row.maxLen);
        EXPECT_STREQ(buffer.data(), row.expected);
        EXPECT_EQ(buffer[static_cast<std::size_t>(row.maxLen) + 1], '#');
    }
}

TEST_F(AudioEffectTest, TheEditorIsAskedThroughTheRecordAndMissingOnesAnswerNo) {
    ERect* rect = nullptr;
    EXPECT_EQ(call(effEditGetRect, 0, 0, &rect), 0);
    EXPECT_EQ(call(effEditOpen, 0, 0, this), 0);
    call(effEditIdle);
    call(effEditClose);

    effect().setEditor(new ProbeEditor(log_));
    ASSERT_EQ(call(effEditGetRect, 0, 0, &rect), 1);
    EXPECT_EQ(rect->right, 521);
    EXPECT_EQ(call(effEditOpen, 0, 0, this), 1);
    EXPECT_TRUE(effect().getEditor()->isOpen());
    EXPECT_EQ(call(effEditKeyDown, 'a', VKEY_F1, nullptr, MODIFIER_CONTROL), 1);
    EXPECT_EQ(call(effEditKeyUp, 'a'), 0);
    call(effEditClose);
    EXPECT_FALSE(effect().getEditor()->isOpen());
    EXPECT_EQ(log_, Log{"key 97 40 8"});
}

// --- Questions to the host --------------------------------------------------------------------

struct HostCall {
    VstInt32 opcode, index;
    VstIntPtr value;
    float opt;
    bool operator==(const HostCall&) const = default;
};
std::vector<HostCall> hostCalls;
VstIntPtr hostAnswer = 0;

VstIntPtr VSTCALLBACK recordingHost(AEffect*, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                                    void*, float opt) {
    hostCalls.push_back({opcode, index, value, opt});
    return hostAnswer;
}

TEST(AudioEffectHostTest, AutomationSetsTheParameterHereBeforeTheHostHearsOfIt) {
    Log log;
    ProbeEffect effect(log, recordingHost);
    hostCalls.clear();
    effect.setParameterAutomated(3, 0.25F);
    EXPECT_EQ(log, Log{"setParameter 3"});
    EXPECT_EQ(hostCalls, (std::vector<HostCall>{{audioMasterAutomate, 3, 0, 0.25F}}));
}

TEST(AudioEffectHostTest, AHostThatDoesNotKnowTheRateLeavesTheHeldOne) {
    Log log;
    ProbeEffect effect(log, recordingHost);
    hostAnswer = 0;
    EXPECT_EQ(effect.updateSampleRate(), 44100.0);
    EXPECT_EQ(effect.updateBlockSize(), 1024);
    EXPECT_EQ(effect.getMasterVersion(), 1) << "the oldest hosts answer 0";
    hostAnswer = 48000;
    EXPECT_EQ(effect.updateSampleRate(), 48000.0);
    EXPECT_EQ(effect.updateBlockSize(), 48000);
    hostAnswer = -1;
    char ability[] = "supplyIdle";
    EXPECT_EQ(effect.canHostDo(ability), -1);
}

TEST(AudioEffectHostTest, WithoutAHostEveryQuestionIsAnsweredNo) {
    Log log;
    ProbeEffect effect(log);
    char text[64] = {};
    EXPECT_EQ(effect.getMasterVersion(), 0);
    EXPECT_EQ(effect.getTimeInfo(kVstTempoValid), nullptr);
    EXPECT_EQ(effect.canHostDo(text), 0);
    EXPECT_FALSE(effect.beginEdit(0));
    EXPECT_FALSE(effect.updateDisplay());
    EXPECT_FALSE(effect.getHostVendorString(text));
    EXPECT_FALSE(effect.isInputConnected(0));
    EXPECT_EQ(effect.updateSampleRate(), 44100.0);
}

} // namespace
