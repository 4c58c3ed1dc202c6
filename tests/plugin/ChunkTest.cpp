#include "plugin/ZMTpedlFilterEffect.h"

#include "presets/FactoryPrograms.h"
#include "tests/presets/Journal.h"
#include "tests/support/GuardedBytes.h"
#include "tests/support/StoredBytes.h"

#include <algorithm>
#include <cctype>
#include <gtest/gtest.h>
#include <iterator>
#include <memory>
#include <random>

namespace pedl {
namespace {

using test::GuardedBytes;
using test::Journal;
using test::StoredBytes;
using Bytes = std::vector<std::byte>;
using Lines = std::vector<std::string>;
using enum StoredBytes::Order;

constexpr VstIntPtr kRefused = -1;
constexpr float kNoLink = 999.5F / 129.0F;
constexpr float kAllChannels = 17.5F / 18.0F;

class Chunk : public testing::Test {
protected:
    Journal journal;
    std::unique_ptr<ZMTpedlFilterEffect> owned = newEffect();
    ZMTpedlFilterEffect& effect = *owned;

    [[nodiscard]] std::unique_ptr<ZMTpedlFilterEffect> newEffect() {
        return std::make_unique<ZMTpedlFilterEffect>(
            &Journal::host,
            EffectSurroundings{journal.clock, journal.diagnostics, journal.settings});
    }

    static VstIntPtr dispatch(ZMTpedlFilterEffect& to, VstInt32 opcode, VstInt32 index,
                              VstIntPtr value, void* ptr) {
        AEffect* const record = to.getAeffect();
        return record->dispatcher(record, opcode, index, value, ptr, 0.0F);
    }
    static Bytes get(ZMTpedlFilterEffect& from, VstInt32 isPreset = 0) {
        void* data = nullptr;
        const VstIntPtr size = dispatch(from, effGetChunk, isPreset, 0, &data);
        const auto* const bytes = static_cast<const std::byte*>(data);
        return {bytes, bytes + size};
    }
    Bytes get() { return get(effect); }
    VstIntPtr set(std::span<const std::byte> bytes, VstInt32 isPreset = 0) {
        GuardedBytes guarded(bytes);
        return dispatch(effect, effSetChunk, isPreset, static_cast<VstIntPtr>(bytes.size()),
                        guarded.whole().data());
    }
    [[nodiscard]] std::string nameOf(std::int32_t slot) {
        const ProgramName name = effect.bank().name(slot);
        return std::string(nameText(name));
    }
    [[nodiscard]] Lines linesAboutValues() {
        Lines lines;
        std::ranges::copy_if(journal.lines, std::back_inserter(lines), [](const std::string& line) {
            return line.starts_with("line Invalid");
        });
        return lines;
    }

    static StoredBytes chunk(const StoredBytes::Header& header, StoredBytes::Order order = Little) {
        StoredBytes bytes(order);
        bytes.word(0x02000000).id().header(header);
        return bytes;
    }
};

TEST_F(Chunk, OfAFreshInstanceIsTheFactoryBankWithoutLinks) {
    StoredBytes expected = chunk({.records = 8036, .slot = 0, .recordBytes = 274400});
    for (std::int32_t slot = 0; slot < 140; ++slot) {
        const auto number = static_cast<std::uint32_t>(slot);
        expected.programHead(number, factoryProgramName(slot));
        for (std::uint32_t parameter = 0; parameter < 56; ++parameter)
            expected.value(number, parameter, factoryProgram(slot).normalised[parameter]);
    }
    for (std::uint32_t parameter = 0; parameter < 56; ++parameter)
        expected.link(parameter, kNoLink, kAllChannels);
    const Bytes bytes = get();
    EXPECT_EQ(bytes.size(), 276241U);
    EXPECT_TRUE(std::ranges::equal(bytes, expected.view()));
    const unsigned start[] = {0, 0, 0, 2, 'F', 'p', 'M', 'Z', 'F', 'p', 'M', 'Z', 56, 0, 0, 0, 1};
    for (std::size_t i = 0; i < std::size(start); ++i)
        EXPECT_EQ(std::to_integer<unsigned>(bytes[i]), start[i]) << i;
    EXPECT_TRUE(std::ranges::equal(get(effect, 1), bytes)) << "asked for one program";
}

TEST_F(Chunk, CarriesTheWholeStateToAnotherInstance) {
    std::mt19937 random(20261124);
    for (int slot = 0; slot < 5; ++slot) {
        effect.selectProgram(static_cast<std::int32_t>(random() % 140));
        for (int change = 0; change < 20; ++change)
            effect.setParameter(static_cast<VstInt32>(random() % 56),
                                static_cast<float>(random() % 1000) / 999.0F);
        effect.renameCurrentProgram("Mine");
    }
    for (const VstInt32 parameter : {1, 21, 55})
        effect.setParameter(56 + parameter, static_cast<float>(parameter) / 60.0F);
    effect.setParameter(149, 0.3F);
    const Bytes saved = get();
    const auto other = newEffect();
    ASSERT_NE(get(*other), saved);
    Bytes copy = saved;
    EXPECT_EQ(dispatch(*other, effSetChunk, 1, static_cast<VstIntPtr>(copy.size()), copy.data()),
              0);
    EXPECT_EQ(copy, saved) << "the host's bytes are not written to";
    EXPECT_EQ(get(*other), saved);
    for (VstInt32 index = 0; index < 2 * kNumParams; ++index)
        EXPECT_EQ(other->getParameter(index), effect.getParameter(index)) << index;
    EXPECT_EQ(linesAboutValues(), Lines{});
}

TEST_F(Chunk, ReversedBytesLoadTheSame) {
    for (const auto order : {Little, Big}) {
        StoredBytes bytes = chunk({.records = 4, .slot = 3}, order);
        bytes.programHead(3, "Organ").value(3, 21, 0.25F).link(1, 0.5F, 0.25F).link(2, 0.25F, 0.3F);
        EXPECT_EQ(set(bytes.view()), 0);
        EXPECT_EQ(nameOf(3), "Organ");
        EXPECT_EQ(effect.currentSlot(), 3);
        EXPECT_EQ(effect.getParameter(21), 0.25F);
        EXPECT_EQ(effect.getParameter(57), 0.5F);
        EXPECT_EQ(effect.midiMap().controllerOf(1), 64);
        EXPECT_EQ(effect.midiMap().channel(), 5);
        effect.storeSnapshot(3);
        effect.selectProgram(0);
        effect.midiMap().clear();
    }
}

TEST_F(Chunk, LoadingTellsTheViewAndThenSelectsTheProgram) {
    effect.setView(&journal.view);
    StoredBytes bytes = chunk({.records = 4, .slot = 140});
    bytes.programHead(9, "Nine").programHead(0, "First").value(0, 1, 1.5F).link(0, -1.0F, 1.0F);
    journal.lines.clear();
    EXPECT_EQ(set(bytes.view()), 0);
    std::erase_if(journal.lines, [](const std::string& line) {
        return line.starts_with("view ") && std::isdigit(line[5]) != 0;
    });
    EXPECT_EQ(
        journal.lines,
        (Lines{"line Invalid parameter 0 value -1.000000 on load of MIDI", "view channel 0.972222",
               "line Invalid parameter 1 value 1.500000 on load of preset 0 First",
               "view menu entry 0", "view menu entry 9", "view shows 0", "time 512", "wait 100",
               "update display", "begin 0", "end 0"}));
    EXPECT_EQ(effect.getParameter(1), 1.0F);
    EXPECT_EQ(effect.getProgram(), 0);
}

TEST_F(Chunk, LinksReplaceAllOthersAndTheLowestParameterKeepsASharedController) {
    effect.midiMap().link(30, 7);
    StoredBytes bytes = chunk({.records = 3});
    bytes.link(20, 0.5F, 0.0F).link(10, 0.5F, 0.0F).link(11, 0.996F, 0.75F);
    EXPECT_EQ(set(bytes.view()), 0);
    EXPECT_EQ(effect.midiMap().controllerOf(30), MidiMap::kNone);
    EXPECT_EQ(effect.midiMap().parameterOf(7), MidiMap::kNone);
    EXPECT_EQ(effect.midiMap().parameterOf(64), 10);
    EXPECT_EQ(effect.getParameter(76), kNoLink);
    EXPECT_EQ(effect.getParameter(67), 0.996F);
    EXPECT_EQ(effect.midiMap().controllerOf(11), MidiMap::kNone);
    EXPECT_EQ(effect.midiMap().channel(), 13);
}

TEST_F(Chunk, WithoutAChannelListensToAllWhateverItsRecordsSay) {
    effect.setParameter(149, 0.0F);
    StoredBytes bytes = chunk({.records = 1, .channelMark = 0});
    bytes.link(1, 0.5F, 0.25F);
    EXPECT_EQ(set(bytes.view()), 0);
    EXPECT_EQ(effect.midiMap().channel(), MidiMap::kAllChannels);
    EXPECT_EQ(effect.midiMap().controllerOf(1), 64);
}

TEST_F(Chunk, OldLayoutFillsItsSlotsAndLaysItsLinksOverThoseThatThereAre) {
    for (const auto order : {Little, Big}) {
        effect.midiMap().clear();
        effect.midiMap().link(30, 7);
        effect.midiMap().link(31, 8);
        effect.setParameter(149, 0.0F);
        StoredBytes bytes(order);
        bytes.word(0x01000000).id().word(128).word(5).zeros(16);
        for (int program = 0; program < 128; ++program)
            bytes.name("Old").real(0.25F).real(0.75F);
        for (int parameter = 0; parameter < 56; ++parameter)
            bytes.real(parameter == 31 ? 0.25F : parameter == 30 ? -1.0F : 1.0F);
        journal.lines.clear();
        EXPECT_EQ(set(bytes.view()), 0);
        EXPECT_EQ(linesAboutValues(),
                  Lines{"line Invalid parameter 30 value -1.000000 on set of MIDI old chunk"});
        EXPECT_EQ(effect.currentSlot(), 5);
        EXPECT_EQ(effect.getParameter(1), 0.75F);
        EXPECT_EQ(nameOf(127), "Old");
        EXPECT_EQ(nameOf(128), "Init");
        EXPECT_EQ(effect.bank().value(127, 2), effect.bank().value(128, 2)) << "the snapshot's";
        EXPECT_EQ(effect.midiMap().controllerOf(30), 7);
        EXPECT_EQ(effect.midiMap().controllerOf(31), 32);
        EXPECT_EQ(effect.getParameter(56 + 31), 32.5F / 129.0F);
        EXPECT_EQ(effect.midiMap().channel(), MidiMap::kAllChannels);
        EXPECT_EQ(journal.count("wait 100"), 1);
    }
}

TEST_F(Chunk, OfAnotherPlugInOrVersionIsRefusedAndChangesNothing) {
    const Bytes before = get();
    StoredBytes foreign;
    foreign.word(0x02000000).word(0x5A4D7047).header({.records = 1}).programHead(0, "Foreign");
    StoredBytes version3;
    version3.word(0x03000000).id().header({.records = 1}).programHead(0, "Future");
    StoredBytes halfReversed;
    halfReversed.word(2).id().header({.records = 1}).programHead(0, "Half");
    StoredBytes noPrograms;
    noPrograms.word(0x01000000).id().word(0).zeros(20 + 500);
    StoredBytes ours = chunk({.records = 1, .channelMark = 0}).programHead(0, "Ours");
    journal.lines.clear();
    for (const StoredBytes& bytes : {foreign, version3, halfReversed, noPrograms})
        EXPECT_EQ(set(bytes.view()), kRefused);
    for (std::size_t size = 0; size < 8; ++size)
        EXPECT_EQ(set(ours.view().first(size)), kRefused) << size;
    for (const VstIntPtr size : {VstIntPtr{-1}, VstIntPtr{1} << 32, VstIntPtr{1} << 63})
        EXPECT_EQ(dispatch(effect, effSetChunk, 0, size, ours.bytes().data()), kRefused) << size;
    EXPECT_EQ(dispatch(effect, effSetChunk, 0, 276241, nullptr), kRefused);
    EXPECT_EQ(journal.lines, Lines{});
    EXPECT_EQ(get(), before);
}

TEST_F(Chunk, EndingWithinItsHeaderIsTakenButChangesNothing) {
    const Bytes before = get();
    StoredBytes stream = chunk({.records = 1, .channelMark = 0});
    StoredBytes raw;
    raw.word(0x01000000).id().word(5).zeros(20);
    journal.lines.clear();
    for (std::size_t size = 8; size < 49; ++size)
        EXPECT_EQ(set(stream.view().first(size)), 0) << size;
    for (std::size_t size = 8; size < 32; ++size)
        EXPECT_EQ(set(raw.view().first(size)), 0) << size;
    EXPECT_EQ(journal.lines, Lines{});
    EXPECT_EQ(get(), before);
}

TEST_F(Chunk, DamageOfAnyBitLeavesAStateThatCanBeSaved) {
    StoredBytes bytes = chunk({.records = 5, .slot = 1, .recordBytes = 296});
    bytes.programHead(1, "One").value(1, 1, 0.25F).value(1, 2, 0.75F);
    bytes.link(1, 0.5F, 0.25F).link(2, 0.25F, 0.25F);
    StoredBytes raw;
    raw.word(0x01000000).id().word(2).word(1).zeros(16);
    raw.name("One").real(0.5F).name("Two").real(0.5F).zeros(224);
    for (StoredBytes whole : {bytes, raw})
        for (std::size_t bit = 0; bit < whole.size() * 8; ++bit) {
            SCOPED_TRACE(bit);
            const auto mask = std::byte{1} << static_cast<int>(bit % 8);
            whole.bytes()[bit / 8] ^= mask;
            const VstIntPtr answer = set(whole.view());
            EXPECT_EQ(answer == kRefused || answer == 0, true) << answer;
            whole.bytes()[bit / 8] ^= mask;
            journal.lines.clear();
        }
    get();
    EXPECT_EQ(linesAboutValues(), Lines{}) << "every value that arrived was repaired on its way";
    for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
        EXPECT_LT(nameOf(slot).size(), kProgramNameBytes);
}

} // namespace
} // namespace pedl
