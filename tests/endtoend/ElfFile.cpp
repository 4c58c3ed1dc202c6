#include "tests/endtoend/ElfFile.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace pedl::test {

ElfFile::ElfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    bytes_.assign(std::istreambuf_iterator<char>(file), {});
    if (!bytes().starts_with(ELFMAG))
        throw std::runtime_error(path + " is no ELF file");
}

std::span<const Elf64_Phdr> ElfFile::segments() const {
    return {at<Elf64_Phdr>(header().e_phoff), header().e_phnum};
}

const Elf64_Phdr* ElfFile::segment(std::uint32_t type) const {
    const auto all = segments();
    const auto found = std::ranges::find(all, type, &Elf64_Phdr::p_type);
    return found == all.end() ? nullptr : &*found;
}

std::span<const Elf64_Shdr> ElfFile::sections() const {
    return {at<Elf64_Shdr>(header().e_shoff), header().e_shnum};
}

const Elf64_Shdr* ElfFile::section(std::string_view name) const {
    const Elf64_Shdr& names = sections()[header().e_shstrndx];
    for (const Elf64_Shdr& candidate : sections())
        if (text(names, candidate.sh_name) == name)
            return &candidate;
    return nullptr;
}

std::string ElfFile::text(const Elf64_Shdr& strings, std::uint64_t offset) const {
    return at<char>(strings.sh_offset + offset);
}

std::span<const Elf64_Dyn> ElfFile::dynamicEntries() const {
    const Elf64_Shdr* dynamic = section(".dynamic");
    return dynamic ? contents<Elf64_Dyn>(*dynamic) : std::span<const Elf64_Dyn>{};
}

bool ElfFile::hasDynamicEntry(std::int64_t tag) const {
    return std::ranges::count(dynamicEntries(), tag, &Elf64_Dyn::d_tag) > 0;
}

std::uint64_t ElfFile::dynamicValue(std::int64_t tag) const {
    std::uint64_t sum = 0;
    for (const Elf64_Dyn& entry : dynamicEntries())
        if (entry.d_tag == tag)
            sum += entry.d_un.d_val;
    return sum;
}

std::vector<std::string> ElfFile::dynamicTexts(std::int64_t tag) const {
    std::vector<std::string> texts;
    for (const Elf64_Dyn& entry : dynamicEntries())
        if (entry.d_tag == tag)
            texts.push_back(text(*section(".dynstr"), entry.d_un.d_val));
    return texts;
}

std::vector<ElfSymbol> ElfFile::symbolsOf(std::string_view sectionName) const {
    std::vector<ElfSymbol> result;
    const Elf64_Shdr* table = section(sectionName);
    if (!table)
        return result;
    const Elf64_Shdr& names = sections()[table->sh_link];
    for (const Elf64_Sym& symbol : contents<Elf64_Sym>(*table).subspan(1)) // the first is void
        result.push_back({text(names, symbol.st_name), symbol.st_value,
                          static_cast<unsigned char>(ELF64_ST_BIND(symbol.st_info)),
                          static_cast<unsigned char>(ELF64_ST_TYPE(symbol.st_info)),
                          symbol.st_shndx != SHN_UNDEF});
    return result;
}

std::vector<ElfSymbol> ElfFile::dynamicSymbols() const {
    return symbolsOf(".dynsym");
}

std::vector<ElfSymbol> ElfFile::symbols() const {
    return symbolsOf(".symtab");
}

std::vector<std::string> ElfFile::importedVersions() const {
    std::vector<std::string> versions;
    const Elf64_Shdr* needs = section(".gnu.version_r");
    if (!needs)
        return versions;
    std::uint64_t offset = needs->sh_offset;
    for (std::uint32_t library = 0; library < needs->sh_info; ++library) {
        const auto& need = *at<Elf64_Verneed>(offset);
        std::uint64_t auxiliary = offset + need.vn_aux;
        for (int version = 0; version < need.vn_cnt; ++version) {
            const auto& entry = *at<Elf64_Vernaux>(auxiliary);
            versions.push_back(text(*section(".dynstr"), entry.vna_name));
            auxiliary += entry.vna_next;
        }
        offset += need.vn_next;
    }
    return versions;
}

std::vector<std::uint64_t> ElfFile::initialisers() const {
    // In a shared library the array is filled by relocations; their addends are the functions.
    std::vector<std::uint64_t> addresses;
    const std::uint64_t begin = dynamicValue(DT_INIT_ARRAY);
    const std::uint64_t end = begin + dynamicValue(DT_INIT_ARRAYSZ);
    if (const Elf64_Shdr* relocations = section(".rela.dyn"))
        for (const Elf64_Rela& relocation : contents<Elf64_Rela>(*relocations))
            if (relocation.r_offset >= begin && relocation.r_offset < end)
                addresses.push_back(static_cast<std::uint64_t>(relocation.r_addend));
    return addresses;
}

std::uint32_t ElfFile::processorFeatures() const {
    const Elf64_Shdr* note = section(".note.gnu.property");
    if (!note)
        return 0;
    const auto& head = *at<Elf64_Nhdr>(note->sh_offset);
    std::uint64_t offset = note->sh_offset + sizeof head + head.n_namesz;
    const std::uint64_t end = offset + head.n_descsz;
    while (offset < end) { // type, size, value; each property padded to 8 bytes
        const std::uint32_t type = *at<std::uint32_t>(offset);
        const std::uint32_t size = *at<std::uint32_t>(offset + 4);
        if (type == GNU_PROPERTY_X86_FEATURE_1_AND)
            return *at<std::uint32_t>(offset + 8);
        offset += 8 + (size + 7) / 8 * 8;
    }
    return 0;
}

} // namespace pedl::test
