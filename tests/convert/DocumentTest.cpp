// Documents from stored bytes and back, and what conversions between kinds mean.

#include "convert/DocumentReader.h"
#include "convert/DocumentWriter.h"
#include "convert/TextForm.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "presets/StreamFormat.h"
#include "tests/convert/Documents.h"
#include "tests/presets/Journal.h"
#include "tests/support/StoredBytes.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using test::as;
using test::randomChunk;
using test::StoredBytes;
using Bytes = std::vector<std::byte>;
using Lines = std::vector<std::string>;

Document read(std::span<const std::byte> bytes) {
    return test::valueOf(documentOf(bytes));
}

TEST(Document, IsByteForByteWhatTheEffectStoresOfEveryKind) {
    test::Journal journal;
    ZMTpedlFilterEffect effect(&test::Journal::host,
                               {journal.clock, journal.diagnostics, journal.settings});
    const auto stored = [&effect](DocumentKind kind) -> Bytes {
        if (kind != DocumentKind::Chunk)
            return effect.stored(static_cast<FileKind>(kind));
        void* data = nullptr;
        const VstInt32 size = effect.getChunk(&data, false);
        return {static_cast<std::byte*>(data), static_cast<std::byte*>(data) + size};
    };
    EXPECT_EQ(stored(DocumentKind::Chunk), storedForm(factoryDocument()));

    Bytes random = storedForm(randomChunk(1));
    ASSERT_EQ(effect.setChunk(random.data(), kChunkBytes, false), 0);
    EXPECT_EQ(storedForm(as(DocumentKind::Bank, read(random))), stored(DocumentKind::Bank));
    effect.setParameter(kFirstMidiLink + 1, 64.5F / 129.0F);
    effect.setParameter(kFirstMidiLink + 2, 64.5F / 129.0F); // both, until the map is rebuilt
    effect.setParameter(kFirstMidiLink + 3, 1.0F);
    effect.setParameter(kMidiChannel, 0.3F);
    for (const DocumentKind kind : kDocumentKinds) {
        SCOPED_TRACE(kindName(kind));
        const Document document = read(stored(kind));
        EXPECT_EQ(document.kind, kind);
        EXPECT_EQ(document.warnings, Lines());
        EXPECT_EQ(storedForm(document), stored(kind));
    }
}

TEST(Document, OldLayoutsAreReadAndWhatTheyLackIsTheFactorys) {
    const StoredBytes program =
        StoredBytes(StoredBytes::Order::Big).id().byte(33).name("Old").real(0.25F);
    EXPECT_EQ(read(program.view()).kind, DocumentKind::Program);
    EXPECT_EQ(read(program.view()).programs.at(0).normalised[0], 0.25F);
    EXPECT_EQ(read(program.view()).programs.at(0).normalised[42], 1.0F); // the limiter is on

    const StoredBytes chunk = StoredBytes().word(0x01000000).id().word(2).word(1).zeros(16);
    const StoredBytes programs = StoredBytes(chunk).name("One").real(1.0F).name("Two").real(0.5F);
    const Document old = read(StoredBytes(programs).real(0.5F).real(2.0F).zeros(54 * 4).view());
    EXPECT_EQ(old.currentSlot, 1);
    EXPECT_EQ(shownName(old.programs.at(1).name), "Two");
    EXPECT_EQ(shownName(old.programs.at(139).name), "Init");
    EXPECT_EQ(old.links.controllerOf(0), 64);
    EXPECT_EQ(old.links.controllerOf(1), MidiMap::kNone);
    EXPECT_EQ(old.warnings, Lines{"has 2 of 140 programs; the others are the factory's"});
}

TEST(Document, DamageIsNamed) {
    const Bytes whole = storedForm(as(DocumentKind::Bank, randomChunk(3)));
    EXPECT_EQ(read(std::span(whole).first(41 + 1960 * 3 + 168 + 50)).warnings,
              (Lines{"has 4 of 140 programs; the others are the factory's",
                     "ends after 173 of 7980 records; those were read"}));
    const StoredBytes bad = StoredBytes()
                                .header({.kind = 34, .records = 2, .recordBytes = 200})
                                .programHead(0, "A\x01!")
                                .value(0, 3, 1.5F);
    EXPECT_EQ(read(bad.view()).warnings,
              Lines{"Invalid parameter 3 value 1.500000 on load, preset: 0 A !"});

    const Bytes chunk = storedForm(randomChunk(4));
    for (const auto& bytes :
         {std::span(whole).first(0), std::span(whole).first(4), std::span(whole).first(41),
          std::span(chunk).first(20), std::span(whole).subspan(1)})
        EXPECT_FALSE(documentOf(bytes).ok()) << bytes.size();
}

TEST(Document, ConversionsTakeWhatTheOtherKindHolds) {
    Document chunk = randomChunk(5);
    ASSERT_TRUE(selectProgram(chunk, "12").ok());
    const Document program = as(DocumentKind::Program, chunk);
    EXPECT_EQ(program.currentSlot, 0);
    EXPECT_EQ(program.warnings.size(), 1U); // the links
    const Document bank = as(DocumentKind::Bank, program);
    EXPECT_EQ(bank.currentSlot, 0);
    EXPECT_EQ(bank.programs.at(0).normalised, chunk.programs[12].normalised);
    EXPECT_EQ(shownName(bank.programs.at(1).name), "Auto Wah");
    const Document links = as(DocumentKind::MidiSettings, chunk);
    EXPECT_EQ(as(DocumentKind::Chunk, links).links, chunk.links);
}

TEST(Document, AChunkForAnInstanceLeavesWhatTheDocumentDoesNotHold) {
    Document present = randomChunk(6);
    present.currentSlot = 9;
    const Bytes presentChunk = storedForm(present);
    const Document other = randomChunk(7);
    const auto with = [&](DocumentKind kind) {
        return read(chunkWith(as(kind, other), presentChunk));
    };
    EXPECT_EQ(with(DocumentKind::Bank).links, present.links);
    EXPECT_EQ(with(DocumentKind::Bank).currentSlot, other.currentSlot);
    EXPECT_EQ(with(DocumentKind::Bank).programs.at(139).name, other.programs[139].name);
    EXPECT_EQ(with(DocumentKind::Program).currentSlot, 9);
    EXPECT_EQ(with(DocumentKind::Program).programs.at(9).name, currentProgram(other).name);
    EXPECT_EQ(with(DocumentKind::Program).programs.at(8).name, present.programs[8].name);
    EXPECT_EQ(chunkWith(other, {}), storedForm(other));
}

} // namespace
} // namespace pedl
