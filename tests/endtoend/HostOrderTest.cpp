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
#include <vector>

namespace pedl::test {

namespace {

constexpr VstInt32 kBlockFrames = 256;
constexpr VstInt32 kParameters = 56;
constexpr VstInt32 kHostTempoTag = 133; // reads the tempo in beats per minute
constexpr VstInt32 kSyncParameter = 7;
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
    {"Ardour, new plug-in, saved, closed",
     {{effOpen}, {effGetVstVersion}, {effSetSampleRate, 0, 0, nullptr, 48000.0F},
      {effSetBlockSize, 0, 256}, {effCanBeAutomated, 0}, {effCanBeAutomated, 55},
      {effGetParameterProperties, 3}, {effGetParamName, 3}, {effCanDo, 0, 0, "bypass"},
      {effMainsChanged, 0, 1}, {effMainsChanged, 0, 1}, {kProcess, 256}, {effGetVstVersion},
      {effGetProgramNameIndexed, 0}, {kProcess, 256}, {effGetChunk, 0}, {effGetProgram},
      {effMainsChanged, 0, 0}, {effClose}}},
    {"Ardour, session loaded",
     {{effOpen}, {effSetSampleRate, 0, 0, nullptr, 48000.0F}, {effSetBlockSize, 0, 256},
      {effGetChunk, 0}, {effMainsChanged, 0, 1}, {effMainsChanged, 0, 1}, {effSetProgram, 0, 0},
      {effSetChunk, 0}, {effMainsChanged, 0, 1}, {kProcess, 256}, {effMainsChanged, 0, 0},
      {effClose}}},
    {"Ardour's scanner",
     {{effOpen}, {effGetVstVersion}, {effGetEffectName}, {effGetVendorString},
      {effGetPlugCategory}, {effCanDo, 0, 0, "receiveVstEvents"},
      {effCanDo, 0, 0, "receiveVstMidiEvent"}, {effGetVstVersion},
      {effCanDo, 0, 0, "sendVstEvents"}, {effCanDo, 0, 0, "sendVstMidiEvents"},
      {effMainsChanged, 0, 0}, {effClose}}},
    {"Qtractor's scanner",
     {{effGetPlugCategory}, {effOpen}, {effGetEffectName}, {effCanDo, 0, 0, "sendVstEvents"},
      {effCanDo, 0, 0, "receiveVstTimeInfo"}, {effCanDo, 0, 0, "offline"},
      {effCanDo, 0, 0, "plugAsChannelInsert"}, {effCanDo, 0, 0, "mixDryWet"},
      {effCanDo, 0, 0, "midiProgramNames"}, {effClose}}},
    {"Qtractor, smaller blocks than announced, switched off and on",
     {{effGetPlugCategory}, {effOpen}, {effGetEffectName}, {effGetParamName, 0},
      {effGetParameterProperties, 0}, {effSetSampleRate, 0, 0, nullptr, 48000.0F},
      {effSetBlockSize, 0, 1024}, {effMainsChanged, 0, 1}, {kProcess, 256}, {kProcess, 0},
      {kProcess, 1}, {effEditGetRect}, {effMainsChanged, 0, 0}, {effMainsChanged, 0, 1},
      {kProcess, 256}, {effMainsChanged, 0, 0}, {effClose}}},
    {"REAPER",
     {{effOpen}, {effSetSampleRate, 0, 0, nullptr, 44100.0F}, {effSetBlockSize, 0, 512},
      {effGetEffectName}, {effGetVendorString}, {effCanDo, 0, 0, "hasCockosExtensions"},
      {kPrivateCall, static_cast<VstInt32>(0xdeadbef0), 0}, {effGetVstVersion},
      {effMainsChanged, 0, 1}, {effStartProcess}, {effGetPlugCategory}, {effGetProgram},
      {effGetChunk, 0}, {effSetProgram, 0, 0}, {effGetProgramName}, {effMainsChanged, 0, 0},
      {effMainsChanged, 0, 1}, {kProcess, 512}, {effMainsChanged, 0, 0}, {effMainsChanged, 0, 1},
      {effMainsChanged, 0, 0}, {effMainsChanged, 0, 1}, {effStopProcess}, {effMainsChanged, 0, 0},
      {effClose}}},
    {"Carla",
     {{effIdentify}, {effSetProcessPrecision, 0, kVstProcessPrecision32},
      {effSetBlockSizeAndSampleRate, 0, 512, nullptr, 48000.0F},
      {effSetSampleRate, 0, 0, nullptr, 48000.0F}, {effSetBlockSize, 0, 512}, {effOpen},
      {effGetPlugCategory}, {effGetProductString}, {effConnectInput, 0, 1},
      {effConnectInput, 1, 1}, {effConnectOutput, 0, 1}, {effConnectOutput, 1, 1},
      {effGetVstVersion}, {effCanDo, 0, 0, "hasCockosExtensions"}, {effGetParameterProperties, 55},
      {effCanBeAutomated, 55}, {effMainsChanged, 0, 1}, {effStartProcess}, {kProcess, 512},
      {effStopProcess}, {effMainsChanged, 0, 0}, {effSetSampleRate, 0, 0, nullptr, 96000.0F},
      {effMainsChanged, 0, 1}, {kProcess, 512}, {effStopProcess}, {effMainsChanged, 0, 0},
      {effClose}}},
    {"never opened",
     {{effGetPlugCategory}, {effClose}}},
    {"never resumed",
     {{effOpen}, {kProcess, 64}, {effClose}}},
    {"suspended without having been resumed",
     {{effMainsChanged, 0, 0}, {effClose}}},
};
// clang-format on

/// Plays one sequence to a new instance, as the host would with room for every answer.
class Player {
public:
    explicit Player(AEffect* effect) : effect_(effect) {}

    void play(const std::vector<Call>& calls) {
        for (const Call& call : calls) {
            SCOPED_TRACE(testing::Message() << "opcode " << call.opcode);
            call.opcode == kProcess ? process(call.index) : send(call);
        }
    }

private:
    void send(const Call& call) {
        void* ptr = call.text ? const_cast<char*>(call.text) : scratch_.data();
        if (call.opcode == effSetChunk)
            dispatch(effect_, effSetChunk, 0, static_cast<VstIntPtr>(chunk_.size()), chunk_.data());
        else if (call.opcode == effGetChunk)
            copyChunk();
        else
            dispatch(effect_, call.opcode, call.index, call.value, ptr, call.opt);
    }

    void copyChunk() {
        char* bytes = nullptr;
        const VstIntPtr size = dispatch(effect_, effGetChunk, 0, 0, &bytes);
        chunk_.assign(bytes, bytes ? bytes + size : nullptr);
    }

    void process(VstInt32 frames) {
        auto input = noise<float>(1024, 1);
        StereoBuffer<float> output(1024);
        effect_->processReplacing(effect_, input.from(0).data(), output.from(0).data(), frames);
        EXPECT_TRUE(output.isFinite());
        const bool isSilent = output == StereoBuffer<float>(1024);
        EXPECT_FALSE(isSilent && frames > 16);
    }

    AEffect* effect_;
    std::array<char, 1024> scratch_{};
    std::vector<char> chunk_;
};

class HostOrder : public testing::Test {
protected:
    PluginLibrary library{PEDL_PLUGIN_PATH};
    RecordingHost host;
};

/// Room for a text with bytes behind it that must stay as they are.
class GuardedText {
public:
    explicit GuardedText(std::size_t room) : room_(room) {
        bytes_.fill(kGuard);
        bytes_[0] = '\0'; // as hosts hand it; some texts are asked for by what stands here
    }

    char* data() { return bytes_.data(); }

    [[nodiscard]] bool isIntact() const {
        return std::all_of(bytes_.begin() + static_cast<std::ptrdiff_t>(room_), bytes_.end(),
                           [](char byte) { return byte == kGuard; }) &&
               std::memchr(bytes_.data(), 0, room_) != nullptr;
    }

private:
    static constexpr char kGuard = 0x5A;
    std::size_t room_;
    std::array<char, 512> bytes_{};
};

std::vector<VstInt32> plainAndOddIndices() {
    std::vector<VstInt32> indices{INT_MIN, -1000, 1000, 65536, INT_MAX};
    for (VstInt32 index = -2; index < 170; ++index)
        indices.push_back(index);
    return indices;
}

} // namespace

TEST_F(HostOrder, EveryKnownHostsSequenceIsSurvived) {
    for (const Sequence& sequence : kSequences) {
        SCOPED_TRACE(sequence.host);
        AEffect* effect = library.create();
        ASSERT_NE(effect, nullptr);
        Player(effect).play(sequence.calls);
    }
}

TEST_F(HostOrder, AnInstanceThatIsNeverOpenedOrClosedHarmsNoOther) {
    AEffect* forgotten = library.create();
    ASSERT_NE(forgotten, nullptr);
    Player(library.create())
        .play({{effOpen}, {effMainsChanged, 0, 1}, {kProcess, 256}, {effClose}});
    EXPECT_EQ(forgotten->magic, kEffectMagic);
    dispatch(forgotten, effClose); // here only, to leave no leak behind
}

TEST_F(HostOrder, TheEntryRefusesNoHostButOneWithoutAVersion) {
    host.version = 0;
    EXPECT_EQ(library.create(), nullptr);
    EXPECT_EQ(host.calls(audioMasterCanDo) + host.calls(audioMasterUpdateDisplay), 0);

    host.version = 2;
    AEffect* effect = library.create();
    ASSERT_NE(effect, nullptr);
    EXPECT_EQ(effect->flags & (effFlagsCanReplacing | effFlagsCanDoubleReplacing),
              effFlagsCanReplacing | effFlagsCanDoubleReplacing);
    EXPECT_NE(effect->process, nullptr);
    EXPECT_NE(effect->process, effect->processReplacing) << "read as: cannot replace";
    dispatch(effect, effClose);
}

TEST_F(HostOrder, OutputsMayBeTheInputsStraightOrCrossed) {
    const auto input = noise<float>(kBlockFrames, 3);
    const auto run = [&](bool isInPlace, bool isCrossed) {
        const RunningEffect effect(library, 48000.0F, kBlockFrames);
        auto source = input;
        StereoBuffer<float> separate(kBlockFrames);
        auto outputs = isInPlace ? source.from(0) : separate.from(0);
        if (isCrossed)
            std::swap(outputs[0], outputs[1]);
        effect->processReplacing(effect.get(), source.from(0).data(), outputs.data(), kBlockFrames);
        StereoBuffer<float> result(kBlockFrames);
        std::copy_n(outputs[0], kBlockFrames, result.left.begin());
        std::copy_n(outputs[1], kBlockFrames, result.right.begin());
        return result;
    };
    const StereoBuffer<float> separate = run(false, false);
    EXPECT_EQ(run(true, false), separate);
    EXPECT_EQ(run(true, true), separate);
}

TEST_F(HostOrder, OnePlainBufferMayServeSeveralPins) {
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    std::vector<float> silence(kBlockFrames), scratch(kBlockFrames);
    std::array<float*, 2> inputs{silence.data(), silence.data()};
    std::array<float*, 2> outputs{scratch.data(), scratch.data()};
    effect->processReplacing(effect.get(), inputs.data(), outputs.data(), kBlockFrames);
    for (const float sample : scratch)
        ASSERT_NEAR(sample, 0.0F, 1e-6F);
}

TEST_F(HostOrder, AnyBlockSizeMayComeWhateverWasAnnounced) {
    const RunningEffect effect(library, 48000.0F, 64);
    auto buffer = noise<double>(8192, 4);
    for (const VstInt32 frames : {0, 1, 63, 64, 65, 8192}) {
        auto pointers = buffer.from(0);
        effect->processDoubleReplacing(effect.get(), pointers.data(), pointers.data(), frames);
        EXPECT_TRUE(buffer.isFinite()) << frames;
    }
}

TEST_F(HostOrder, FollowsTheTempoOfAHostThatFillsOnlyWhatIsAsked) {
    VstTimeInfo time{};
    time.sampleRate = 48000.0;
    time.tempo = 97.5;
    time.flags = kVstTransportPlaying | kVstPpqPosValid | kVstTempoValid;
    host.time = &time;
    host.fillsOnlyAskedTime = true;

    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    effect->setParameter(effect.get(), kSyncParameter, 1.0F);
    auto buffer = noise<float>(kBlockFrames, 5);
    auto pointers = buffer.from(0);
    effect->processReplacing(effect.get(), pointers.data(), pointers.data(), kBlockFrames);
    EXPECT_FLOAT_EQ(effect->getParameter(effect.get(), kHostTempoTag), 97.5F);
}

TEST_F(HostOrder, TheHostMayReadEverythingFromInsideUpdateDisplay) {
    host.onUpdateDisplay = [](AEffect* effect) {
        std::array<char, 256> text{};
        for (VstInt32 index = 0; index < kParameters; ++index) {
            effect->getParameter(effect, index);
            dispatch(effect, effGetParamDisplay, index, 0, text.data());
        }
        dispatch(effect, effGetProgram);
        dispatch(effect, effGetProgramName, 0, 0, text.data());
        dispatch(effect, effGetProgramNameIndexed, 0, -1, text.data());
    };
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    Player(effect.get()).play({{effGetChunk, 0}, {effSetChunk, 0}, {kProcess, 256}});
}

TEST_F(HostOrder, UnknownAndForeignCallsAreAnsweredWithNothing) {
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    std::array<char, 1024> scratch{};
    for (const VstInt32 opcode : {12345, 80, 255, -1, INT_MAX, INT_MIN})
        EXPECT_EQ(dispatch(effect.get(), opcode, 0, 0, scratch.data()), 0) << opcode;
    EXPECT_EQ(dispatch(effect.get(), kPrivateCall, CCONST('P', 'r', 'e', 'S'),
                       CCONST('A', 'e', 'C', 's'), nullptr, 2.0F),
              0);
}

TEST_F(HostOrder, CallsWithoutTheirPointerAreRefused) {
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    for (const VstInt32 opcode : {effSetProgramName,
                                  effGetProgramName,
                                  effGetParamLabel,
                                  effGetParamDisplay,
                                  effGetParamName,
                                  effGetChunk,
                                  effProcessEvents,
                                  effString2Parameter,
                                  effGetProgramNameIndexed,
                                  effGetInputProperties,
                                  effGetOutputProperties,
                                  effSetSpeakerArrangement,
                                  effGetEffectName,
                                  effGetVendorString,
                                  effGetProductString,
                                  effCanDo,
                                  effGetParameterProperties,
                                  effGetSpeakerArrangement,
                                  effEditGetRect,
                                  effBeginLoadBank})
        EXPECT_EQ(dispatch(effect.get(), opcode), 0) << opcode;
    EXPECT_EQ(dispatch(effect.get(), effSetChunk), -1) << "0 would tell the host that it is taken";
}

// Some hosts hand buffers of exactly the interface's nominal sizes; one byte more ends in their
// own memory.
TEST_F(HostOrder, NoTextIsLongerThanTheTightestBuffer) {
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    struct Row {
        VstInt32 opcode;
        std::size_t room;
    };
    for (const Row row :
         {Row{effGetProgramName, 24}, Row{effGetParamLabel, 9}, Row{effGetParamDisplay, 9},
          Row{effGetParamName, 9}, Row{effGetProgramNameIndexed, 24}, Row{effGetEffectName, 32},
          Row{effGetVendorString, 64}, Row{effGetProductString, 64}})
        for (const float value : {0.0F, 0.4999F, 1.0F}) {
            for (VstInt32 index = 0; index < kParameters; ++index)
                effect->setParameter(effect.get(), index, value);
            for (const VstInt32 index : plainAndOddIndices()) {
                GuardedText text(row.room);
                dispatch(effect.get(), row.opcode, index, 0, text.data());
                EXPECT_TRUE(text.isIntact()) << "opcode " << row.opcode << ", index " << index;
            }
        }
}

TEST_F(HostOrder, NoStructureIsWrittenBeyondItsEnd) {
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    struct Row {
        VstInt32 opcode;
        std::size_t bytes;
    };
    for (const Row row : {Row{effGetParameterProperties, sizeof(VstParameterProperties)},
                          Row{effGetInputProperties, sizeof(VstPinProperties)},
                          Row{effGetOutputProperties, sizeof(VstPinProperties)}})
        for (const VstInt32 index : plainAndOddIndices()) {
            GuardedText structure(row.bytes);
            dispatch(effect.get(), row.opcode, index, 0, structure.data());
            EXPECT_TRUE(structure.isIntact()) << "opcode " << row.opcode << ", index " << index;
        }
}

TEST_F(HostOrder, OddIndicesAndValuesChangeNoParameter) {
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    const auto everyParameter = [&] {
        std::array<float, kParameters> values{};
        for (VstInt32 index = 0; index < kParameters; ++index)
            values[static_cast<std::size_t>(index)] = effect->getParameter(effect.get(), index);
        return values;
    };
    const auto before = everyParameter();
    for (const VstInt32 index : {INT_MIN, -1000, -1, 1000, 65536, INT_MAX})
        for (const float value : {0.25F, 1e30F, std::numeric_limits<float>::quiet_NaN()}) {
            effect->setParameter(effect.get(), index, value);
            EXPECT_TRUE(std::isfinite(effect->getParameter(effect.get(), index))) << index;
        }
    EXPECT_EQ(everyParameter(), before);

    for (VstInt32 index = 0; index < kParameters; ++index) {
        effect->setParameter(effect.get(), index, std::numeric_limits<float>::quiet_NaN());
        EXPECT_FALSE(std::isnan(effect->getParameter(effect.get(), index))) << index;
    }
    Player(effect.get()).play({{kProcess, 256}});
}

} // namespace pedl::test
