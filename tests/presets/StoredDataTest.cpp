// What stored data do to an instance: every layout in either byte order, whole, damaged and of
// somebody else. The bytes end where memory does, so reading one more ends the test.

#include "tests/presets/Journal.h"
#include "tests/presets/PlainEffect.h"
#include "tests/support/GuardedBytes.h"
#include "tests/support/OddNumbers.h"
#include "tests/support/StoredBytes.h"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <set>
#include <string>

namespace pedl {
namespace {

using test::GuardedBytes;
using test::Journal;
using test::kInfinity;
using test::kNaN;
using test::PlainEffect;
using test::StoredBytes;
using Lines = std::vector<std::string>;
using Order = StoredBytes::Order;
using Kind = std::optional<FileKind>; // none: what a host stores

constexpr std::int32_t kFree = MidiMap::kNone; // of a parameter without a controller

constexpr unsigned kBankKind = 56, kProgramKind = 34, kMidiKind = 13;

// Layouts. The example of each has the program "Cat" with a gain of 0.25, and the gain linked to
// controller 64 on channel 4, as far as it has programs and links.

StoredBytes chunkHead(Order order, const StoredBytes::Header& header) {
    return StoredBytes(order).word(0x02000000).id().header(header);
}
StoredBytes chunk(Order order) {
    StoredBytes bytes = chunkHead(order, {.records = 3, .slot = 3});
    return bytes.programHead(3, "Cat").value(3, kGain, 0.25F).link(kGain, 0.5F, 0.25F);
}
StoredBytes bank(Order order) {
    StoredBytes bytes(order);
    bytes.header({.kind = kBankKind, .records = 2, .slot = 3, .recordBytes = 200});
    return bytes.programHead(3, "Cat").value(3, kGain, 0.25F);
}
StoredBytes program(Order order) {
    StoredBytes bytes(order);
    bytes.header({.kind = kProgramKind, .records = 2, .slot = 3, .recordBytes = 200});
    return bytes.programHead(200, "Cat").value(9, kGain, 0.25F);
}
StoredBytes midi(Order order) {
    StoredBytes bytes(order);
    bytes.header({.kind = kMidiKind, .records = 1, .recordBytes = 32});
    return bytes.link(kGain, 0.5F, 0.25F);
}

/// An old chunk's head, and the programs whose number it states.
StoredBytes oldChunkHead(Order order, std::uint32_t programs, std::uint32_t currentSlot) {
    StoredBytes bytes(order);
    return bytes.word(0x01000000).id().word(programs).word(currentSlot).zeros(16);
}
StoredBytes oldChunk(Order order) {
    StoredBytes bytes = oldChunkHead(order, 4, 3);
    for (int slot = 0; slot < 4; ++slot)
        bytes.name("Cat").real(0.0F).real(0.25F);
    for (int parameter = 0; parameter < kNumParams; ++parameter)
        bytes.real(parameter == kGain ? 0.5F : 1.0F);
    return bytes;
}
StoredBytes oldBank(Order order) {
    StoredBytes bytes = StoredBytes(order).id().byte(55);
    for (int slot = 0; slot < kNumPrograms; ++slot)
        bytes.name("Cat").real(0.0F).real(0.25F);
    return bytes;
}
StoredBytes oldProgram(Order order) {
    return StoredBytes(order).id().byte(33).name("Cat").real(0.0F).real(0.25F);
}
StoredBytes oldMidi(Order order) {
    return StoredBytes(order).id().byte(11).real(1.0F).real(0.5F);
}

struct Layout {
    const char* name;
    Kind kind;
    StoredBytes (*example)(Order);
    // What the example leaves behind where slot 5 was current, the wet level linked to controller 7
    // and channel 9 selected
    std::int32_t slot, controllerOfGain, controllerOfWet, channel;
    // From how many bytes on something is taken, is named, has its gain, has its link; 0: not told
    std::size_t taken, named, gain, link;
};

// clang-format off
const std::array<Layout, 8> kLayouts{{
    {"chunk",       {},                     chunk,      3, 64,    kFree, 4,  8,    217,  249,  281},
    {"bank",        FileKind::Bank,         bank,       3, kFree, 7,     9,  41,   209,  241,  0},
    {"program",     FileKind::Program,      program,    5, kFree, 7,     9,  41,   209,  241,  0},
    {"midi",        FileKind::MidiSettings, midi,       5, 64,    kFree, 4,  41,   0,    0,    73},
    {"old chunk",   {},                     oldChunk,   3, 64,    7,     17, 8,    0,    0,    0},
    {"old bank",    FileKind::Bank,         oldBank,    0, kFree, 7,     9,  3365, 3365, 4485, 0},
    {"old program", FileKind::Program,      oldProgram, 5, kFree, 7,     9,  29,   29,   37,   0},
    {"old midi",    FileKind::MidiSettings, oldMidi,    5, 64,    7,     17, 5,    0,    0,    13},
}};
// clang-format on

/// An instance to which data come.
struct Instance {
    Instance() {
        effect.startPresetSystem();
        effect.selectProgram(5);
        effect.midiMap().link(kWet, 7);
        effect.setParameter(kMidiChannel, 9.5F / 18.0F);
    }

    LoadResult load(Kind kind, std::span<const std::byte> bytes,
                    OrderDecision decision = OrderDecision::AsFound) {
        GuardedBytes guarded(bytes);
        journal.lines.clear();
        if (kind)
            return effect.load(*kind, guarded.whole(), decision);
        const auto size = static_cast<VstInt32>(bytes.size());
        return effect.setChunk(guarded.whole().data(), size, false) == 0 ? LoadResult::Loaded
                                                                         : LoadResult::Foreign;
    }
    LoadResult load(Kind kind, const StoredBytes& bytes) { return load(kind, bytes.view()); }

    /// Everything that data could change.
    std::string state() {
        void* data = nullptr;
        const VstInt32 size = effect.getChunk(&data, false);
        return {static_cast<const char*>(data), static_cast<std::size_t>(size)};
    }
    std::set<std::string> repairs() const {
        constexpr std::string_view kStart = "line Invalid parameter ";
        std::set<std::string> repairs;
        for (const std::string& line : journal.lines)
            if (line.starts_with(kStart))
                repairs.insert(line.substr(kStart.size()));
        return repairs;
    }

    Journal journal;
    PlainEffect effect{journal};
};

TEST(StoredData, ComeInEveryLayoutAndEitherByteOrder) {
    for (const Layout& layout : kLayouts)
        for (const char* order : {"little-endian", "big-endian", "inverted"}) {
            SCOPED_TRACE(std::string(layout.name) + ", " + order);
            StoredBytes bytes = layout.example(order[0] == 'l' ? Order::Little : Order::Big);
            auto decision = OrderDecision::AsFound;
            if (order[0] == 'i' && layout.kind) { // only the identifier lies as ours do
                std::ranges::copy(StoredBytes().id().view(), bytes.bytes().begin());
                decision = OrderDecision::Inverted;
            }
            Instance to;
            to.effect.setView(&to.journal.view);
            ASSERT_EQ(to.load(layout.kind, bytes.view(), decision), LoadResult::Loaded);
            EXPECT_EQ(to.effect.currentSlot(), layout.slot);
            if (layout.kind != FileKind::MidiSettings) {
                EXPECT_EQ(to.effect.nameOf(layout.slot), "Cat");
                EXPECT_EQ(to.journal.count("set 1 0.25"), 1) << "played";
                for (const std::string said : {"view menu entry ", "view shows "})
                    EXPECT_EQ(to.journal.count(said + std::to_string(layout.slot)), 1) << said;
                EXPECT_EQ(to.effect.getParameter(kLimiterDefeat), 1.0F) << "as in \"Default\"";
            }
            const MidiMap& map = to.effect.midiMap();
            EXPECT_EQ(map.controllerOf(kGain), layout.controllerOfGain);
            EXPECT_EQ(map.controllerOf(kWet), layout.controllerOfWet);
            EXPECT_EQ(map.drivenBy(7), layout.controllerOfWet == 7 ? kWet : kFree);
            EXPECT_EQ(map.channel(), layout.channel);
            EXPECT_EQ(to.journal.count("view channel 0.972222"), layout.channel == 17 ? 1 : 0);
            EXPECT_TRUE(to.repairs().empty());
        }
}

// Values

TEST(StoredData, BrokenValuesAreRepairedAndReported) {
    const std::array broken{kNaN, -0.25F, 1.5F, kInfinity, -0.0F};
    const auto putRecords = [&](StoredBytes bytes) {
        bytes.programHead(12, "Organ").value(12, 0xFFFFFFFF, 2.0F).link(1, kNaN, 0.0F);
        for (std::uint32_t index = 0; index < broken.size(); ++index)
            bytes.value(12, index, broken[index]);
        return bytes.value(140, 3, kNaN).link(2, -0.5F, 0.0F);
    };
    StoredBytes old = oldChunkHead(Order::Little, 1, 0).name("Organ");
    for (const float value : broken)
        old.real(value);
    old.real(0.0F).real(-kNaN).real(-0.5F).zeros(53 * 4);
    struct Row {
        Kind kind;
        StoredBytes bytes;
        std::int32_t slot;
        std::string nan, place;        // of the line about the first value; of every line
        std::set<std::string> repairs; // besides
    };
    for (const Row& row :
         {Row{{},
              putRecords(chunkHead(Order::Little, {.records = 10})),
              12,
              "0 value NaN",
              " on load of preset 12 Organ",
              {"NaN value nan on load of MIDI", "2 value -0.500000 on load of MIDI",
               "-1 value 2.000000 on load of preset 12 Organ"}},
          Row{FileKind::Program,
              putRecords(StoredBytes().header({.kind = 34, .records = 8, .recordBytes = 999})),
              5,
              "0 value NaN",
              " on load, preset: 5 Organ",
              {"-1 value 2.000000 on load, preset: 5 Organ"}},
          Row{{},
              old,
              0,
              "NaN value nan",
              " on set of old chunk",
              {"NaN value -nan on set of MIDI old chunk",
               "2 value -0.500000 on set of MIDI old chunk"}}}) {
        SCOPED_TRACE(row.place);
        std::set<std::string> expected = row.repairs;
        for (const std::string_view value :
             {"1 value -0.250000", "2 value 1.500000", "3 value inf"})
            expected.insert(std::string(value) + row.place);
        expected.insert(row.nan + row.place);
        Instance to;
        to.load(row.kind, row.bytes);
        EXPECT_EQ(to.repairs(), expected);
        const ProgramRecord record = to.effect.bank().record(row.slot);
        EXPECT_EQ(nameText(record.name), "Organ");
        for (std::size_t index = 0; index < 4; ++index)
            EXPECT_EQ(record.normalised[index], index < 2 ? 0.0F : 1.0F);
        EXPECT_TRUE(std::signbit(record.normalised[4])) << "a zero with a sign is as good as any";
    }
}

TEST(StoredData, TheLastUsableLinkCountsAndTheLowestParameterKeepsASharedController) {
    StoredBytes bytes = chunkHead(Order::Little, {.records = 11, .slot = 140});
    bytes.link(1, 0.5F, 0.1F).link(1, kNaN, 0.2F).link(2, 1.0F, 0.3F).link(4, 7.748F, 0.4F);
    bytes.link(5, 0.25F, 0.5F).link(5, 0.75F, 0.6F).link(20, 0.3F, 0.0F).link(10, 0.3F, 0.0F);
    bytes.link(11, 0.996F, 0.0F).value(0, 6, 0.5F).link(56, 0.5F, -1.0F);
    Instance to;
    to.load({}, bytes);
    const MidiMap& map = to.effect.midiMap();
    struct Row {
        std::int32_t parameter, controller;
        float value;
    };
    constexpr float kNoLink = 999.5F / 129.0F;
    for (const Row row :
         {Row{1, 64, 0.5F}, Row{2, kFree, kNoLink}, Row{4, kFree, kNoLink}, Row{5, 96, 0.75F},
          Row{10, 38, 0.3F}, Row{20, kFree, kNoLink}, Row{11, kFree, 0.996F}}) {
        EXPECT_EQ(map.controllerOf(row.parameter), row.controller) << row.parameter;
        EXPECT_EQ(map.linkValue(row.parameter), row.value) << row.parameter;
    }
    EXPECT_EQ(map.drivenBy(32), kFree) << "of the first link of 5";
    EXPECT_EQ(map.drivenBy(38), 10);
    EXPECT_EQ(map.channel(), 17) << "the last record's, which lies outside";
    EXPECT_EQ(to.effect.currentSlot(), 0);
    StoredBytes old = StoredBytes().id().byte(11).real(0.25F).real(kNaN).real(-1.0F).real(7.5F);
    to.load(FileKind::MidiSettings, old.zeros(3));
    for (const std::int32_t index : {1, 2, 3})
        EXPECT_EQ(map.linkValue(index), 1.0F) << "of an old file " << index;
}

TEST(StoredData, TheMarkTellsMidiSettingsAndWhetherTheyHaveAChannel) {
    struct Row {
        Kind file;
        unsigned kind;
        std::uint32_t mark;
        std::int32_t channel; // 9 where the file is refused
    };
    constexpr FileKind kMidi = FileKind::MidiSettings;
    for (const Row row : {Row{kMidi, 0, 13, 4}, Row{kMidi, 99, 13, 4}, Row{kMidi, 12, 0, 17},
                          Row{kMidi, 12, 13, 17}, Row{kMidi, 13, 0, 9}, Row{kMidi, 13, 12, 9},
                          Row{{}, 56, 0, 17}, Row{{}, 56, 1, 4}}) {
        StoredBytes bytes = row.file ? StoredBytes() : StoredBytes().word(0x02000000).id();
        bytes.header({.kind = row.kind, .records = 1, .recordBytes = 32, .channelMark = row.mark});
        Instance to;
        const LoadResult result = to.load(row.file, bytes.link(kGain, 0.5F, 0.25F));
        EXPECT_EQ(result, row.channel == 9 ? LoadResult::UnknownKind : LoadResult::Loaded);
        EXPECT_EQ(to.effect.midiMap().channel(), row.channel)
            << "kind " << row.kind << ", mark " << row.mark;
    }
}

// Sizes

TEST(StoredData, SizesAndCountsAreNeverTrusted) {
    struct Row {
        const char* story;
        std::uint32_t records, payloadBytes, recordBytes;
        const char *fromChunk, *fromFile;
    };
    constexpr std::uint32_t kMost = 0xFFFFFFFF;
    for (const Row& row :
         {Row{"as written", 4, 20, 128, "1234", "1234"},
          Row{"counts fewer", 2, 20, 128, "12", "12"}, Row{"counts none", 0, 20, 128, "", ""},
          Row{"counts more", 5, 20, kMost, "1234", "1234"},
          Row{"counts everything", kMost, 20, 128, "1234", "1234"},
          Row{"says it is shorter", 4, 20, 95, "1234", "12"},
          Row{"too long", 4, 85, kMost, "1", "1"}, Row{"just in", 4, 84, kMost, "12", "12"},
          Row{"steps over the next", 4, 52, kMost, "124", "124"},
          Row{"as long as can be", 4, kMost, kMost, "1", "1"},
          Row{"adds up to 0", 4, 0xFFFFFFF4, kMost, "1", "1"}}) {
        SCOPED_TRACE(row.story);
        for (const Kind kind : {Kind{}, Kind{FileKind::Bank}}) {
            StoredBytes bytes = kind ? StoredBytes() : StoredBytes().word(0x02000000).id();
            bytes.header({.records = row.records, .recordBytes = row.recordBytes});
            bytes.value(1, kGain, 0.25F)
                .word(1)
                .word(row.payloadBytes)
                .word(2)
                .word(kGain)
                .zeros(8);
            bytes.real(0.25F).zeros(4).value(3, kGain, 0.25F).value(4, kGain, 0.25F);
            Instance to;
            to.load(kind, bytes);
            std::string arrived;
            for (std::int32_t slot = 1; slot < 5; ++slot)
                if (to.effect.bank().value(slot, kGain) == 0.25F)
                    arrived += std::to_string(slot);
            EXPECT_EQ(arrived, kind ? row.fromFile : row.fromChunk);
        }
    }
}

TEST(StoredData, RecordsTooShortForTheirFieldsAreSteppedOverAndNamesAreEnded) {
    const std::string withRest = std::string("ab\0rest", 7) + std::string(16, '#');
    StoredBytes bytes = chunkHead(Order::Little, {.records = 8});
    bytes.word(0).word(23).word(1).zeros(23).word(1).word(15).word(1).word(kGain).zeros(11);
    bytes.word(2).word(19).word(0).word(kGain).zeros(15).word(3).word(0).word(1);
    bytes.programHead(3, withRest).programHead(4, std::string(24, 'x')).value(2, kGain, 0.25F);
    Instance to;
    const std::string name = to.effect.nameOf(1);
    to.load({}, bytes);
    EXPECT_EQ(to.effect.nameOf(1), name);
    EXPECT_EQ(to.effect.bank().value(1, kGain), 0.5F);
    EXPECT_EQ(to.effect.bank().value(2, kGain), 0.25F);
    EXPECT_EQ(to.effect.midiMap().controllerOf(kGain), kFree);
    EXPECT_EQ(to.effect.bank().name(3), toProgramName(withRest));
    EXPECT_EQ(to.effect.bank().name(4), toProgramName(std::string(23, 'x')));
}

TEST(StoredData, TheSizeOfAnOldChunkDecidesHowManyValuesAProgramHas) {
    struct Row {
        const char* story;
        std::uint32_t stated;
        int written, values;
        std::size_t spareBytes;
        int programs, valuesRead;
    };
    for (const Row& row : {Row{"names alone", 3, 3, 0, 0, 3, 0}, Row{"a rest", 3, 3, 2, 11, 3, 2},
                           Row{"more values than parameters", 2, 2, 70, 0, 2, 56},
                           Row{"more programs than slots", 145, 145, 56, 0, 140, 56},
                           Row{"no room for names", 4, 3, 0, 23, 0, 0},
                           Row{"every program there is", 0xFFFFFFFF, 3, 56, 0, 0, 0}}) {
        SCOPED_TRACE(row.story);
        StoredBytes bytes = oldChunkHead(Order::Little, row.stated, 140);
        for (int slot = 0; slot < row.written; ++slot) {
            bytes.name("Old " + std::to_string(slot));
            for (int index = 0; index < row.values; ++index)
                bytes.real(static_cast<float>(slot * 56 + index) / 8192.0F);
        }
        Instance to;
        to.load({}, bytes.zeros(row.spareBytes + 224));
        for (int slot = 0; slot < kNumPrograms; ++slot) {
            EXPECT_EQ(to.effect.nameOf(slot) == "Old " + std::to_string(slot), slot < row.programs);
            for (int index = 0; slot < row.programs && index < kNumParams; ++index)
                ASSERT_EQ(to.effect.bank().value(slot, index),
                          index < row.valuesRead
                              ? static_cast<float>(slot * 56 + index) / 8192.0F
                              : factoryProgram(0).normalised[static_cast<std::size_t>(index)]);
        }
    }
}

TEST(StoredData, OfTwoParametersWithOneControllerAnOldChunkLinksTheFirst) {
    StoredBytes bytes = oldChunkHead(Order::Little, 1, 0); // no room for a program
    for (int parameter = 0; parameter < kNumParams; ++parameter)
        bytes.real(parameter == kGain || parameter == kFilterReso ? 0.5F : 1.0F);
    Instance to;
    to.load({}, bytes);
    EXPECT_EQ(to.effect.midiMap().drivenBy(64), kGain);
    EXPECT_EQ(to.effect.midiMap().controllerOf(kFilterReso), kFree);
}

// Damage

TEST(StoredData, WhatWasWholeArrivesWhereverTheBytesEnd) {
    for (const Layout& layout : kLayouts) {
        Instance to;
        const std::string before = to.state();
        const StoredBytes whole = layout.example(Order::Little);
        for (std::size_t size = 0; size < whole.size(); ++size) {
            SCOPED_TRACE(testing::Message() << layout.name << ", " << size << " bytes");
            to.effect.initialiseFactoryPrograms();
            to.effect.midiMap().forgetParameter(kGain);
            const LoadResult result = to.load(layout.kind, whole.view().first(size));
            ASSERT_EQ(result == LoadResult::Loaded, size >= layout.taken);
            if (size < layout.taken) {
                EXPECT_EQ(to.journal.lines, Lines{});
                continue;
            }
            if (layout.named > 0) {
                EXPECT_EQ(to.effect.nameOf(layout.slot) == "Cat", size >= layout.named);
                EXPECT_EQ(to.effect.bank().value(layout.slot, kGain) == 0.25F, size >= layout.gain);
            }
            if (layout.link > 0) {
                EXPECT_EQ(to.effect.midiMap().controllerOf(kGain) == 64, size >= layout.link);
            }
        }
    }
}

TEST(StoredData, DamageOfAnyBitLeavesAStateThatCanBeSaved) {
    constexpr std::size_t kLongestBytes = 400;
    for (const Layout& layout : kLayouts) {
        SCOPED_TRACE(layout.name);
        Instance to;
        StoredBytes bytes = layout.example(Order::Little);
        for (std::size_t bit = 0; bit < std::min(bytes.size(), kLongestBytes) * 8; ++bit) {
            const auto mask = std::byte{1} << static_cast<int>(bit % 8);
            bytes.bytes()[bit / 8] ^= mask;
            to.load(layout.kind, bytes);
            ASSERT_TRUE(isProgramSlot(to.effect.currentSlot())) << bit;
            bytes.bytes()[bit / 8] ^= mask;
        }
        to.journal.lines.clear();
        to.state();
        EXPECT_TRUE(to.repairs().empty()) << "every value was repaired on its way";
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
            EXPECT_LT(to.effect.nameOf(slot).size(), kProgramNameBytes);
    }
}

TEST(StoredData, OfAnotherKindOrMakerOrTooShortChangeNothingAndMakeNoNoise) {
    using enum LoadResult;
    const auto start = [](unsigned kind) { return StoredBytes().id().byte(kind); };
    struct Row {
        const char* story;
        Kind kind;
        StoredBytes bytes;
        LoadResult result;
    };
    for (const Row& row : {
             Row{"a bank as program", FileKind::Program, bank(Order::Little), UnknownKind},
             Row{"links as program", FileKind::Program, midi(Order::Little), UnknownKind},
             Row{"a program as bank", FileKind::Bank, program(Order::Little), UnknownKind},
             Row{"no kind", FileKind::Program, StoredBytes().id(), TooShort},
             Row{"no end of the header", FileKind::Bank, start(56).zeros(35), TooShort},
             Row{"old names do not fit", FileKind::Bank, start(55).zeros(3359), TooShort},
             Row{"an old name does not fit", FileKind::Program, start(33).zeros(23), TooShort},
             Row{"nothing", FileKind::MidiSettings, StoredBytes(), TooShort},
             Row{"foreign", FileKind::Program, StoredBytes().word(0x5A4D7047).zeros(99), Foreign},
             Row{"a foreign chunk", {}, StoredBytes().word(0x02000000).word(0x5A4D7047), Foreign},
             Row{"a future chunk", {}, StoredBytes().word(0x03000000).id().zeros(99), Foreign},
             Row{"half reversed", {}, StoredBytes().word(2).id().zeros(99), Foreign},
             Row{"an old chunk without programs", {}, oldChunkHead(Order::Little, 0, 0), Foreign},
             Row{"a chunk within its header", {}, chunkHead(Order::Little, {}).zeros(0), Loaded},
         }) {
        SCOPED_TRACE(row.story);
        Instance to;
        const std::string before = to.state();
        const auto bytes = row.result == Loaded ? row.bytes.view().first(48) : row.bytes.view();
        EXPECT_EQ(to.load(row.kind, bytes), row.result);
        EXPECT_EQ(to.journal.lines, Lines{});
        EXPECT_TRUE(to.state() == before);
    }
    Instance to;
    EXPECT_EQ(to.effect.setChunk(nullptr, 276241, false), -1);
    EXPECT_EQ(to.effect.setChunk(to.state().data(), -1, false), -1);
}

} // namespace
} // namespace pedl
