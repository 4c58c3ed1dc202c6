#pragma once

#include "convert/Document.h"
#include "tests/support/Results.h"

#include <bit>
#include <cstdint>
#include <limits>
#include <random>

namespace pedl::test {

/// A chunk of random names, values and links, the same for the same seed.
///
/// Values are any float in 0..1, the smallest and a negative zero among them; names are any bytes
/// behind each other, with what lies behind their end.
inline Document randomChunk(unsigned seed) {
    std::mt19937 random(seed);
    const auto unit = [&random] { return std::generate_canonical<float, 24>(random); };
    Document document = factoryDocument();
    for (ProgramRecord& program : document.programs) {
        for (char& character : program.name)
            character = static_cast<char>(random() % (random() % 4 == 0 ? 256 : 96) + 32);
        program.name[random() % program.name.size()] = '\0';
        if (random() % 2 == 0)
            program.name = terminated(toProgramName(nameText(program.name)));
        program.name.back() = '\0';
        for (float& value : program.normalised)
            value = random() % 4 == 0
                        ? std::bit_cast<float>(static_cast<std::uint32_t>(random() % 0x3F800001U))
                        : unit();
    }
    document.programs[7].normalised[3] = -0.0F;
    document.programs[7].normalised[4] = std::numeric_limits<float>::denorm_min();
    document.currentSlot = static_cast<std::int32_t>(random() % document.programs.size());
    for (auto& link : document.links.linkValue)
        if (random() % 3 == 0)
            link =
                random() % 2 == 0 ? unit() : linkValueOf(static_cast<std::int32_t>(random() % 128));
    document.links.channel = static_cast<std::int32_t>(random() % 18);
    return document;
}

inline Document as(DocumentKind kind, const Document& document) {
    return valueOf(converted(document, kind));
}

} // namespace pedl::test
