#pragma once

#include <cstdint>
#include <elf.h>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace pedl::test {

struct ElfSymbol {
    std::string name;
    std::uint64_t address = 0;
    unsigned char binding = STB_LOCAL;
    unsigned char type = STT_NOTYPE;
    bool isDefined = false;
};

/// A 64-bit little-endian ELF file, library or object, read whole.
///
/// Only for files that our own tools have just written: offsets in the file are believed.
class ElfFile {
public:
    explicit ElfFile(const std::string& path);

    [[nodiscard]] std::string_view bytes() const { return {bytes_.data(), bytes_.size()}; }
    [[nodiscard]] std::span<const Elf64_Phdr> segments() const;
    [[nodiscard]] const Elf64_Phdr* segment(std::uint32_t type) const;
    [[nodiscard]] std::span<const Elf64_Dyn> dynamicEntries() const;
    [[nodiscard]] bool hasDynamicEntry(std::int64_t tag) const;

    /// Sum of all values under a tag: the value itself where the tag stands once, else 0.
    [[nodiscard]] std::uint64_t dynamicValue(std::int64_t tag) const;

    /// The text that a dynamic entry such as DT_NEEDED names, for every entry of that tag.
    [[nodiscard]] std::vector<std::string> dynamicTexts(std::int64_t tag) const;

    [[nodiscard]] std::vector<ElfSymbol> dynamicSymbols() const;
    [[nodiscard]] std::vector<ElfSymbol> symbols() const; ///< .symtab: empty in a stripped file

    /// "GLIBC_2.34" and its like, of every library that the file imports from.
    [[nodiscard]] std::vector<std::string> importedVersions() const;

    /// The addresses that the loader calls when the library is opened, as .init_array lists them.
    [[nodiscard]] std::vector<std::uint64_t> initialisers() const;

    /// The processor features that .note.gnu.property states (GNU_PROPERTY_X86_FEATURE_1_*).
    [[nodiscard]] std::uint32_t processorFeatures() const;

private:
    template <typename T> [[nodiscard]] const T* at(std::uint64_t offset) const {
        return reinterpret_cast<const T*>(bytes_.data() + offset);
    }
    template <typename T>
    [[nodiscard]] std::span<const T> contents(const Elf64_Shdr& section) const {
        return {at<T>(section.sh_offset), section.sh_size / sizeof(T)};
    }
    [[nodiscard]] const Elf64_Ehdr& header() const { return *at<Elf64_Ehdr>(0); }
    [[nodiscard]] std::span<const Elf64_Shdr> sections() const;
    [[nodiscard]] const Elf64_Shdr* section(std::string_view name) const;
    [[nodiscard]] std::string text(const Elf64_Shdr& strings, std::uint64_t offset) const;
    [[nodiscard]] std::vector<ElfSymbol> symbolsOf(std::string_view sectionName) const;

    std::vector<char> bytes_;
};

} // namespace pedl::test
