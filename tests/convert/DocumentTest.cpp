// Documents from stored bytes and back, and what conversions between kinds mean.

#include "convert/Document.h"
#include "convert/DocumentReader.h"
#include "convert/DocumentWriter.h"
#include "plugin/ZMTpedlFilterEffect.h"
#include "presets/StreamFormat.h"
#include "tests/convert/Documents.h"
#include "tests/presets/Journal.h"
#include "tests/support/StoredBytes.h"

#include <gtest/gtest.h>

namespace pedl {
namespace {

using test::randomChunk;
using test::StoredBytes;
using Bytes = std::vector<std::byte>;

Document as(DocumentKind kind, const Document& document) {
    return converted(document, kind).value();
}

Document read(std::span<const std::byte> bytes) {
    Result<Document> document = documentOf(bytes);
    EXPECT_TRUE(document.ok()) << document.problem().text;
    return document.value();
}

Bytes chunkFrom(AudioEffectX& effect) {
    void* data = nullptr;
    const VstInt32 size = effect.getChunk(&data, false);
    return {static_cast<std::byte*>(data), static_cast<std::byte*>(data) + size};
}

constexpr std::array kAllKinds{DocumentKind::Program, DocumentKind::Bank,
                               DocumentKind::MidiSettings, DocumentKind::Chunk};

TEST(Document, HoldsEveryByteThatTheWritersStore) {
    for (const DocumentKind kind : kAllKinds) {
        const Bytes stored = storedForm(as(kind, randomChunk(1)));
        const Document document = read(stored);
        EXPECT_EQ(document.kind, kind);
        EXPECT_EQ(document.warnings, std::vector<std::string>());
        EXPECT_EQ(storedForm(document), stored) << kindName(kind);
    }
}

TEST(Document, AgreesWithTheEffectOnItsChunks) {
    test::Journal journal;
    ZMTpedlFilterEffect effect(&test::Journal::host,
                               {journal.clock, journal.diagnostics, journal.settings});
    EXPECT_EQ(chunkFrom(effect), storedForm(factoryDocument()));

    effect.setParameter(kFirstMidiLink + 1, 64.5F / 129.0F);
    effect.setParameter(kFirstMidiLink + 2, 64.5F / 129.0F); // both, until the map is rebuilt
    effect.setParameter(kFirstMidiLink + 3, 1.0F);
    effect.setParameter(kMidiChannel, 0.3F);
    effect.setParameter(kGain, 0.7F);
    const Bytes chunk = chunkFrom(effect);
    EXPECT_EQ(storedForm(read(chunk)), chunk);

    const Bytes other = storedForm(randomChunk(2));
    ASSERT_EQ(effect.setChunk(const_cast<std::byte*>(other.data()), kChunkBytes, false), 0);
    const Document expected = read(chunkFrom(effect));
    EXPECT_EQ(storedForm(as(DocumentKind::Bank, expected)),
              storedForm(as(DocumentKind::Bank, read(other))));
}

TEST(Document, OldLayoutsAndForeignByteOrdersAreRead) {
    StoredBytes raw(StoredBytes::Order::Big);
    raw.id().byte(33).name("Old").real(0.25F).real(0.5F);
    const Document program = read(raw.view());
    EXPECT_EQ(program.kind, DocumentKind::Program);
    EXPECT_EQ(nameText(program.programs.at(0).name), "Old");
    EXPECT_EQ(program.programs[0].normalised[1], 0.5F);
    EXPECT_EQ(program.programs[0].normalised[42], 1.0F); // "Default" has the limiter on

    StoredBytes chunk;
    chunk.word(0x01000000).id().word(2).word(1).zeros(16);
    chunk.name("One").real(1.0F).name("Two").real(0.5F);
    chunk.real(0.5F).real(2.0F).zeros(54 * 4);
    const Document old = read(chunk.view());
    EXPECT_EQ(old.currentSlot, 1);
    EXPECT_EQ(nameText(old.programs[1].name), "Two");
    EXPECT_EQ(nameText(old.programs[139].name), "Init");
    EXPECT_EQ(old.links.controllerOf(0), 64);
    EXPECT_EQ(old.links.controllerOf(1), MidiMap::kNone);
    EXPECT_EQ(old.warnings,
              std::vector<std::string>{"has 2 of 140 programs; the others are the factory's"});
}

TEST(Document, DamageIsNamed) {
    const Bytes whole = storedForm(as(DocumentKind::Bank, randomChunk(3)));
    const Document cut = read(std::span(whole).first(41 + 1960 * 3 + 168 + 50));
    EXPECT_EQ(cut.warnings,
              (std::vector<std::string>{"has 4 of 140 programs; the others are the factory's",
                                        "ends after 173 of 7980 records; those were read"}));

    StoredBytes bad;
    bad.header({.kind = 34, .records = 2, .recordBytes = 200})
        .programHead(0, "A\x01"
                        "b");
    bad.value(0, 3, 1.5F);
    EXPECT_EQ(
        read(bad.view()).warnings,
        std::vector<std::string>{"Invalid parameter 3 value 1.500000 on load, preset: 0 A b"});

    for (const Bytes& nothing :
         {Bytes(), Bytes(5), Bytes(whole.begin(), whole.begin() + 4),
          Bytes(whole.begin(), whole.begin() + 41), storedForm(randomChunk(4))}) {
        Bytes bytes = nothing;
        if (bytes.size() > 41)
            bytes.resize(20); // a chunk
        EXPECT_FALSE(documentOf(bytes).ok());
    }
}

TEST(Document, ConversionsTakeWhatTheOtherKindHolds) {
    Document chunk = randomChunk(5);
    ASSERT_TRUE(selectProgram(chunk, "12").ok());
    const Document program = as(DocumentKind::Program, chunk);
    EXPECT_EQ(program.programs.at(0).name, chunk.programs[12].name);
    EXPECT_EQ(program.warnings.size(), 1U); // the links

    const Document bank = as(DocumentKind::Bank, program);
    EXPECT_EQ(bank.currentSlot, 0);
    EXPECT_EQ(bank.programs.at(0).normalised, program.programs[0].normalised);
    EXPECT_EQ(nameText(bank.programs.at(1).name), "Auto Wah");

    const Document links = as(DocumentKind::MidiSettings, chunk);
    EXPECT_EQ(as(DocumentKind::Chunk, links).links, chunk.links);
    EXPECT_EQ(nameText(as(DocumentKind::Chunk, links).programs.at(0).name), "Default");

    EXPECT_FALSE(converted(links, DocumentKind::Bank).ok());
    EXPECT_FALSE(converted(links, DocumentKind::Program).ok());
    EXPECT_FALSE(converted(bank, DocumentKind::MidiSettings).ok());
    EXPECT_FALSE(converted(program, DocumentKind::MidiSettings).ok());
}

TEST(Document, AChunkForAnInstanceLeavesWhatTheDocumentDoesNotHold) {
    Document present = randomChunk(6);
    present.currentSlot = 9;
    const Bytes presentChunk = storedForm(present);
    const Document other = randomChunk(7);

    const Document withBank = read(chunkWith(as(DocumentKind::Bank, other), presentChunk));
    EXPECT_EQ(withBank.links, present.links);
    EXPECT_EQ(withBank.currentSlot, other.currentSlot);
    EXPECT_EQ(withBank.programs[139].name, other.programs[139].name);

    const Document withProgram = read(chunkWith(as(DocumentKind::Program, other), presentChunk));
    EXPECT_EQ(withProgram.currentSlot, 9);
    EXPECT_EQ(withProgram.programs[9].name,
              other.programs[static_cast<std::size_t>(other.currentSlot)].name);
    EXPECT_EQ(withProgram.programs[8].name, present.programs[8].name);

    EXPECT_EQ(chunkWith(other, {}), storedForm(other));
    EXPECT_EQ(read(chunkOf(as(DocumentKind::Program, other))).currentSlot, 0);
}

} // namespace
} // namespace pedl
