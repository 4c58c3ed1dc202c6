// The base classes as a host meets them: through the raw record alone.

#include "foundation/vst24/AudioEffectX.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>

namespace {

using Log = std::vector<std::string>;

/// Notes the virtual operations that a host's call reaches.
class ProbeEffect : public AudioEffectX {
public:
    explicit ProbeEffect(Log& log) : AudioEffectX(nullptr, 3, 5), log_(log) {}

    void suspend() override { note("suspend"); }
    void resume() override { note("resume"); }
    void processReplacing(float**, float**, VstInt32 frames) override { note("float", frames); }
    void processDoubleReplacing(double**, double**, VstInt32 n) override { note("double", n); }
    void process(float**, float**, VstInt32 frames) override { note("process", frames); }
    void setParameter(VstInt32 index, float) override { note("setParameter", index); }
    void setSampleRate(float rateHz) override { note("rate", rateHz); }
    void setBlockSize(VstInt32 frames) override { note("block", frames); }
    void setProgram(VstInt32 program) override { note("setProgram", program); }
    VstInt32 setChunk(void*, VstInt32 byteSize, bool isPreset) override {
        return note("setChunk", byteSize, isPreset);
    }
    bool getProgramNameIndexed(VstInt32 category, VstInt32 index, char*) override {
        return note("program name", category, index);
    }
    bool setSpeakerArrangement(VstSpeakerArrangement* in, VstSpeakerArrangement* out) override {
        return note("arrangement", in->numChannels, out->numChannels);
    }
    VstIntPtr vendorSpecific(VstInt32 index, VstIntPtr value, void*, float opt) override {
        return 41 + note("vendor", value, opt, index);
    }

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

class AudioEffectTest : public testing::Test {
protected:
    ~AudioEffectTest() override { EXPECT_EQ(call(effClose), 1); }

    VstIntPtr call(VstInt32 opcode, VstInt32 index = 0, VstIntPtr value = 0, void* ptr = nullptr,
                   float opt = 0.0F) {
        return record_->dispatcher(record_, opcode, index, value, ptr, opt);
    }

    Log log_;
    AEffect* record_ = (new ProbeEffect(log_))->getAeffect();
};

TEST_F(AudioEffectTest, EachCallReachesItsOperationWithItsArguments) {
    VstSpeakerArrangement mono{0, 1, {}};
    VstSpeakerArrangement stereo{1, 2, {}};
    char text[32] = {};
    call(effMainsChanged, 0, 1);
    call(effMainsChanged, 0, 0);
    call(effSetProgram, 0, 2);
    for (const VstIntPtr program : {VstIntPtr{3}, VstIntPtr{-1}, VstIntPtr{1} << 32})
        call(effSetProgram, 0, program); // not declared: not passed on
    call(effSetBlockSizeAndSampleRate, 0, 256, nullptr, 48000.0F);
    EXPECT_EQ(call(effSetChunk, 1, 9, text), 1);
    EXPECT_EQ(call(effGetProgramNameIndexed, 139, -1, text), 1);
    // The input arrangement travels as a number, the output arrangement as the pointer.
    EXPECT_EQ(call(effSetSpeakerArrangement, 0, reinterpret_cast<VstIntPtr>(&mono), &stereo), 1);
    EXPECT_EQ(call(effVendorSpecific, 3, 5, nullptr, 8), 42);
    record_->processReplacing(record_, nullptr, nullptr, 16);
    record_->processDoubleReplacing(record_, nullptr, nullptr, 17);
    record_->process(record_, nullptr, nullptr, 18);
    record_->setParameter(record_, 4, 0.5F);
    EXPECT_EQ(log_, (Log{"resume", "suspend", "setProgram 2", "block 256", "rate 48000",
                         "setChunk 9 1", "program name -1 139", "arrangement 1 2", "vendor 5 8 3",
                         "float 16", "double 17", "process 18", "setParameter 4"}));
}

TEST_F(AudioEffectTest, EveryCallIsSafeWithoutPointersAndWithWildNumbers) {
    for (VstInt32 opcode = -3; opcode < 200; ++opcode) {
        if (opcode == effClose)
            continue;
        for (const VstIntPtr value : {VstIntPtr{0}, VstIntPtr{-1}})
            call(opcode, -1, value, nullptr, std::numeric_limits<float>::quiet_NaN());
        if (opcode < 0 || opcode > effGetNumMidiOutputChannels) {
            EXPECT_EQ(call(opcode), 0) << opcode;
        }
    }
}

} // namespace
