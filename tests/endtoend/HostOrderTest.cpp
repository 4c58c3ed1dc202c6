// Hosts call in many orders and with odd arguments. Each sequence here is one that a real host
// sends; an instance must come through it alive and sounding.

#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

namespace pedl::test {

namespace {

constexpr VstInt32 kBlockFrames = 256;
constexpr VstInt32 kParameters = 56;
constexpr VstInt32 kPrivateCall = 50; // by agreement between one host and its plug-ins
constexpr VstInt32 kProcess = -1; // in a sequence: a block of `index` frames, no dispatcher call

struct Call {
    VstInt32 opcode;
    VstInt32 index = 0;
    VstIntPtr value = 0;
    const char* text = nullptr;
    float opt = 0.0F;
};

struct Sequence {
    const char* host;
    std::vector<Call> calls;
};

// clang-format off
const std::vector<Sequence> kSequences = {
    {"Ardour, session loaded and saved",
     {{effOpen}, {effSetSampleRate, 0, 0, nullptr, 48000.0F}, {effSetBlockSize, 0, 256},
      {effGetChunk, 0}, {effMainsChanged, 0, 1}, {effMainsChanged, 0, 1}, {effSetProgram, 0, 0},
      {effSetChunk, 0}, {effMainsChanged, 0, 1}, {kProcess, 256}, {effGetVstVersion},
      {effGetProgramNameIndexed, 0}, {kProcess, 256}, {effGetChunk, 0}, {effGetProgram},
      {effMainsChanged, 0, 0}, {effClose}}},
    {"Qtractor, smaller blocks than announced, switched off and on",
     {{effGetPlugCategory}, {effOpen}, {effCanDo, 0, 0, "plugAsChannelInsert"},
      {effGetParameterProperties, 0}, {effSetSampleRate, 0, 0, nullptr, 48000.0F},
      {effSetBlockSize, 0, 1024}, {effMainsChanged, 0, 1}, {kProcess, 256}, {kProcess, 0},
      {kProcess, 1}, {effEditGetRect}, {effMainsChanged, 0, 0}, {effMainsChanged, 0, 1},
      {kProcess, 256}, {effMainsChanged, 0, 0}, {effClose}}},
    {"REAPER",
     {{effOpen}, {effSetSampleRate, 0, 0, nullptr, 44100.0F}, {effSetBlockSize, 0, 512},
      {effCanDo, 0, 0, "hasCockosExtensions"},
      {kPrivateCall, static_cast<VstInt32>(0xdeadbef0), 0}, {effMainsChanged, 0, 1},
      {effStartProcess}, {effGetChunk, 0}, {effSetProgram, 0, 0}, {effGetProgramName},
      {effMainsChanged, 0, 0}, {effMainsChanged, 0, 1}, {kProcess, 512}, {effMainsChanged, 0, 0},
      {effMainsChanged, 0, 1}, {effMainsChanged, 0, 0}, {effMainsChanged, 0, 1},
      {effStopProcess}, {effMainsChanged, 0, 0}, {effClose}}},
    {"Carla",
     {{effIdentify}, {effSetProcessPrecision, 0, kVstProcessPrecision32},
      {effSetBlockSizeAndSampleRate, 0, 512, nullptr, 48000.0F}, {effSetBlockSize, 0, 512},
      {effOpen}, {effGetProductString}, {effConnectInput, 1, 1}, {effConnectOutput, 1, 1},
      {effCanBeAutomated, 55}, {effMainsChanged, 0, 1}, {effStartProcess}, {kProcess, 1024},
      {effStopProcess}, {effMainsChanged, 0, 0}, {effSetSampleRate, 0, 0, nullptr, 96000.0F},
      {effMainsChanged, 0, 1}, {kProcess, 512}, {effStopProcess}, {effMainsChanged, 0, 0},
      {effClose}}},
    {"never opened", {{effGetPlugCategory}, {effClose}}},
    {"never resumed", {{effOpen}, {kProcess, 64}, {effClose}}},
    {"suspended without having been resumed", {{effMainsChanged, 0, 0}, {effClose}}},
};
// clang-format on

/// Plays one sequence to an instance, as the host would with room for every answer.
void play(AEffect* effect, const std::vector<Call>& calls) {
    std::array<char, 1024> scratch{};
    std::vector<char> chunk;
    for (const Call& call : calls) {
        SCOPED_TRACE(testing::Message() << "opcode " << call.opcode);
        if (call.opcode == kProcess) {
            auto input = noise<float>(1024, 1);
            StereoBuffer<float> output(1024);
            effect->processReplacing(effect, input.from(0).data(), output.from(0).data(),
                                     call.index);
            EXPECT_TRUE(output.isFinite());
            EXPECT_TRUE(call.index < 64 || output != StereoBuffer<float>(1024)) << "silent";
        } else if (call.opcode == effGetChunk) {
            char* bytes = nullptr;
            const VstIntPtr size = dispatch(effect, effGetChunk, 0, 0, &bytes);
            chunk.assign(bytes, bytes + size);
        } else if (call.opcode == effSetChunk) {
            dispatch(effect, effSetChunk, 0, static_cast<VstIntPtr>(chunk.size()), chunk.data());
        } else {
            void* ptr = call.text ? const_cast<char*>(call.text) : scratch.data();
            dispatch(effect, call.opcode, call.index, call.value, ptr, call.opt);
        }
    }
}

class HostOrder : public testing::Test {
protected:
    PluginLibrary library{PEDL_PLUGIN_PATH};
    RecordingHost host;
};

} // namespace

TEST_F(HostOrder, EveryKnownHostsSequenceIsSurvivedBesideAnInstanceThatIsForgotten) {
    AEffect* const forgotten = library.create();
    for (const Sequence& sequence : kSequences) {
        SCOPED_TRACE(sequence.host);
        AEffect* effect = library.create();
        ASSERT_NE(effect, nullptr);
        play(effect, sequence.calls);
    }
    dispatch(forgotten, effClose); // here only, to leave no leak behind
}

TEST_F(HostOrder, TheEntryRefusesNoHostButOneWithoutAVersion) {
    host.version = 0;
    EXPECT_EQ(library.create(), nullptr);
    EXPECT_EQ(host.calls(audioMasterCanDo) + host.calls(audioMasterUpdateDisplay), 0);

    host.version = 2;
    AEffect* effect = library.create();
    ASSERT_NE(effect, nullptr);
    EXPECT_NE(effect->process, nullptr);
    EXPECT_NE(effect->process, effect->processReplacing) << "read as: cannot replace";
    dispatch(effect, effClose);
}

TEST_F(HostOrder, OutputsMayBeTheInputsStraightOrCrossed) {
    const auto run = [&](bool isInPlace, bool isCrossed) {
        const RunningEffect effect(library, 48000.0F, kBlockFrames);
        auto source = noise<float>(kBlockFrames, 3);
        StereoBuffer<float> separate(kBlockFrames);
        auto outputs = isInPlace ? source.from(0) : separate.from(0);
        if (isCrossed)
            std::swap(outputs[0], outputs[1]);
        effect->processReplacing(effect.get(), source.from(0).data(), outputs.data(), kBlockFrames);
        const std::vector<float> left(outputs[0], outputs[0] + kBlockFrames);
        return std::pair(left, std::vector<float>(outputs[1], outputs[1] + kBlockFrames));
    };
    EXPECT_EQ(run(true, false), run(false, false));
    EXPECT_EQ(run(true, true), run(false, false));
}

TEST_F(HostOrder, TheHostMayReadEverythingFromInsideUpdateDisplay) {
    host.onUpdateDisplay = [](AEffect* effect) {
        std::array<char, 256> text{};
        for (VstInt32 index = 0; index < kParameters; ++index) {
            effect->getParameter(effect, index);
            dispatch(effect, effGetParamDisplay, index, 0, text.data());
        }
        dispatch(effect, effGetProgramName, 0, 0, text.data());
    };
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    play(effect.get(), {{effGetChunk, 0}, {effSetChunk, 0}, {kProcess, 256}});
}

TEST_F(HostOrder, CallsThatAreUnknownOrWithoutTheirPointerAreRefused) {
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    for (const VstInt32 opcode : {12345, 80, 255, -1, INT_MAX, INT_MIN})
        EXPECT_EQ(dispatch(effect.get(), opcode), 0) << opcode;
    for (VstInt32 opcode = effOpen + 1; opcode < 80; ++opcode)
        if (opcode != effClose)
            dispatch(effect.get(), opcode);
    EXPECT_EQ(dispatch(effect.get(), effSetChunk), -1) << "0 would tell the host that it is taken";
}

// Some hosts hand buffers of exactly the interface's nominal sizes; one byte more ends in their
// own memory.
TEST_F(HostOrder, NothingIsWrittenBeyondTheTightestBuffer) {
    host.product = "LMMS 1.2"; // the one with nine bytes for a value's text
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    struct Row {
        VstInt32 opcode;
        std::size_t room;
    };
    for (const Row row :
         {Row{effGetProgramName, 24}, Row{effGetParamLabel, 9}, Row{effGetParamDisplay, 9},
          Row{effGetParamName, 9}, Row{effGetProgramNameIndexed, 24}, Row{effGetEffectName, 32},
          Row{effGetVendorString, 64}, Row{effGetProductString, 64},
          Row{effGetParameterProperties, sizeof(VstParameterProperties)},
          Row{effGetInputProperties, sizeof(VstPinProperties)},
          Row{effGetOutputProperties, sizeof(VstPinProperties)}})
        for (const float value : {0.0F, 0.4999F, 1.0F}) {
            for (VstInt32 index = 0; index < kParameters; ++index)
                effect->setParameter(effect.get(), index, value);
            for (VstInt32 index = -2; index < 170; ++index) {
                std::vector<char> bytes(512, 'Z');
                bytes[0] = '\0'; // as hosts hand it; some texts are asked for by what stands here
                const VstInt32 wild = index == -2 ? INT_MIN : index == 169 ? INT_MAX : index;
                dispatch(effect.get(), row.opcode, wild, 0, bytes.data());
                EXPECT_NE(std::memchr(bytes.data(), 0, row.room), nullptr);
                EXPECT_EQ(std::count(bytes.begin() + static_cast<std::ptrdiff_t>(row.room),
                                     bytes.end(), 'Z'),
                          static_cast<std::ptrdiff_t>(bytes.size() - row.room))
                    << "opcode " << row.opcode << ", index " << wild;
            }
        }
    std::array<char, 64> text{};
    const auto thresholdText = [&] {
        effect->setParameter(effect.get(), 26, 0.0F);
        dispatch(effect.get(), effGetParamDisplay, 26, 0, text.data());
        return std::string(text.data());
    };
    EXPECT_EQ(thresholdText(), "abovethr");
    host.product = "Recording host";
    EXPECT_EQ(thresholdText(), "abovethrs");
}

TEST_F(HostOrder, OddIndicesAndValuesChangeNothing) {
    AEffect* const effect = library.create();
    const auto chunk = [effect] {
        void* bytes = nullptr;
        const VstIntPtr size = dispatch(effect, effGetChunk, 0, 0, &bytes);
        return std::string(static_cast<const char*>(bytes), static_cast<std::size_t>(size));
    };
    const std::string before = chunk();
    for (const VstInt32 index : {INT_MIN, -1000, -1, 1000, 65536, INT_MAX})
        for (const float value : {0.25F, 1e30F, std::numeric_limits<float>::quiet_NaN()}) {
            effect->setParameter(effect, index, value);
            EXPECT_EQ(effect->getParameter(effect, index), 0.0F) << index;
        }
    EXPECT_TRUE(chunk() == before);
    dispatch(effect, effClose);
}

} // namespace pedl::test
