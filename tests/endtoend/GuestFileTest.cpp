// What the built library asks of the process that loads it, read off the file.

#include "tests/endtoend/ElfFile.h"

#include <algorithm>
#include <charconv>
#include <dlfcn.h>
#include <filesystem>
#include <gtest/gtest.h>
#include <link.h>
#include <optional>
#include <set>
#include <sstream>

namespace pedl::test {

namespace {

/// What every library may need, directly or through another: nothing here comes in a host's own
/// version.
const std::set<std::string> kAllowedLibraries = {"libc.so.6", "libm.so.6", "libgcc_s.so.1",
                                                 "ld-linux-x86-64.so.2"};

/// What drawing and windows need. Each has a stable interface and keeps nothing that two users in
/// one process could quarrel over; toolkits, their object systems and font managers do.
const std::set<std::string> kAllowedForDrawing = {
    "libpixman-1.so.0",  "libfreetype.so.6",      "libpng16.so.16",
    "libz.so.1",         "libbrotlidec.so.1",     "libbrotlicommon.so.1",
    "libxcb.so.1",       "libxcb-shm.so.0",       "libxcb-xkb.so.1",
    "libxkbcommon.so.0", "libxkbcommon-x11.so.0", "libXau.so.6",
    "libXdmcp.so.6",     "libbsd.so.0",           "libmd.so.0"};

struct Library {
    const char* name;
    const char* path;
    bool draws;
};

void PrintTo(const Library& library, std::ostream* stream) {
    *stream << library.name;
}

/// What may run when the library is loaded: the compiler's own functions, of which the first does
/// nothing and the second asks the processor for its features.
const std::set<std::string> kAllowedInitialisers = {"frame_dummy", "__cpu_indicator_init"};

constexpr int kNewestGlibcMinor = 34; // of version 2

/// The keyboard library's first version; the others that draw have none.
constexpr std::string_view kKeyboardLibraryVersion = "V_0.5.0";

/// The file behind a library's name, as the loader finds it; empty where it finds none.
std::string pathOf(const std::string& libraryName) {
    void* handle = dlopen(libraryName.c_str(), RTLD_LAZY);
    link_map* map = nullptr;
    if (!handle || dlinfo(handle, RTLD_DI_LINKMAP, &map) != 0)
        return {};
    return map->l_name;
}

void collectNeeded(const ElfFile& file, std::set<std::string>& names) {
    for (const std::string& name : file.dynamicTexts(DT_NEEDED))
        if (names.insert(name).second)
            if (const std::string path = pathOf(name); !path.empty())
                collectNeeded(ElfFile(path), names);
}

/// 34 for "GLIBC_2.34" and for "GLIBC_2.34.1"; nothing for names that are not a version 2.
std::optional<int> glibcMinor(std::string_view version) {
    constexpr std::string_view kPrefix = "GLIBC_2.";
    int minor = 0;
    if (!version.starts_with(kPrefix) ||
        std::from_chars(version.data() + kPrefix.size(), version.data() + version.size(), minor)
                .ec != std::errc{})
        return std::nullopt;
    return minor;
}

bool bearsArchitectureTag(const std::string& mangledName) {
    return mangledName.find("avx2") != std::string::npos ||
           mangledName.find("Avx2") != std::string::npos;
}

/// One of the libraries that a host may load.
class GuestFile : public testing::TestWithParam<Library> {
protected:
    [[nodiscard]] const ElfFile& plugin() const { return file_; }

    [[nodiscard]] std::set<std::string> imports() const {
        std::set<std::string> names;
        for (const ElfSymbol& symbol : file_.dynamicSymbols())
            if (!symbol.isDefined)
                names.insert(symbol.name);
        return names;
    }

    [[nodiscard]] std::string functionAt(std::uint64_t address) const {
        for (const ElfSymbol& symbol : file_.symbols())
            if (symbol.type == STT_FUNC && symbol.address == address)
                return symbol.name;
        return "unnamed";
    }

private:
    const ElfFile file_{GetParam().path};
};

} // namespace

INSTANTIATE_TEST_SUITE_P(, GuestFile,
                         testing::Values(Library{"plugin", PEDL_PLUGIN_PATH, false},
                                         Library{"toolkit", PEDL_TOOLKIT_PROBE_PATH, true}),
                         [](const auto& library) { return library.param.name; });

TEST_P(GuestFile, ExportsTheEntryUnderItsTwoNamesAndNothingElse) {
    std::vector<ElfSymbol> exported = plugin().dynamicSymbols();
    std::erase_if(exported, [](const ElfSymbol& symbol) { return !symbol.isDefined; });
    std::ranges::sort(exported, {}, &ElfSymbol::name);

    ASSERT_EQ(exported.size(), 2U);
    EXPECT_EQ(exported[0].name, "VSTPluginMain");
    EXPECT_EQ(exported[1].name, "main");
    EXPECT_EQ(exported[0].address, exported[1].address);
    EXPECT_EQ(exported[1].type, STT_FUNC);
}

TEST_P(GuestFile, NeedsOnlyLibrariesThatCannotClashWithAHost) {
    std::set<std::string> needed;
    collectNeeded(plugin(), needed);
    for (const std::string& name : needed)
        EXPECT_TRUE(kAllowedLibraries.contains(name) ||
                    (GetParam().draws && kAllowedForDrawing.contains(name)))
            << name;
    EXPECT_TRUE(needed.contains("libc.so.6")) << "the walk saw nothing";
}

TEST_P(GuestFile, NeedsNoNewerCLibraryThanTheOldestHostsHave) {
    for (const std::string& version : plugin().importedVersions()) {
        SCOPED_TRACE(version);
        if (version.starts_with("GCC_"))
            continue; // the unwinder's, all older than the C library we ask for
        if (GetParam().draws && version == kKeyboardLibraryVersion)
            continue;
        const std::optional<int> minor = glibcMinor(version);
        ASSERT_TRUE(minor.has_value()) << "of another library";
        EXPECT_LE(*minor, kNewestGlibcMinor);
    }
}

TEST_P(GuestFile, IsHardened) {
    const ElfFile& file = plugin();
    EXPECT_NE(file.segment(PT_GNU_RELRO), nullptr);
    EXPECT_TRUE(file.hasDynamicEntry(DT_BIND_NOW) || (file.dynamicValue(DT_FLAGS) & DF_BIND_NOW));
    ASSERT_NE(file.segment(PT_GNU_STACK), nullptr);
    EXPECT_EQ(file.segment(PT_GNU_STACK)->p_flags & PF_X, 0U) << "executable stack";
    EXPECT_FALSE(file.hasDynamicEntry(DT_TEXTREL) || (file.dynamicValue(DT_FLAGS) & DF_TEXTREL));
    for (const Elf64_Phdr& segment : file.segments())
        EXPECT_NE(segment.p_flags & (PF_W | PF_X), PF_W | PF_X) << "writable code";

    constexpr std::uint32_t kBoth =
        GNU_PROPERTY_X86_FEATURE_1_IBT | GNU_PROPERTY_X86_FEATURE_1_SHSTK;
    EXPECT_EQ(file.processorFeatures() & kBoth, kBoth) << "link with -z ibt -z shstk";
}

TEST_P(GuestFile, ChecksItsStackAndItsStrings) {
    const std::set<std::string> imported = imports();
    EXPECT_TRUE(imported.contains("__stack_chk_fail"));
    // Fortification replaces these wherever the size of the destination is known, and where it is
    // not known they have no place in our code.
    for (const char* unchecked : {"strcpy", "strcat", "stpcpy", "gets", "vsprintf"})
        EXPECT_FALSE(imported.contains(unchecked)) << unchecked;
}

TEST_P(GuestFile, RunsNoConstructorWhenLoaded) {
    for (const std::uint64_t address : plugin().initialisers())
        EXPECT_TRUE(kAllowedInitialisers.contains(functionAt(address)))
            << functionAt(address) << " runs when the library is loaded";
    EXPECT_FALSE(plugin().initialisers().empty()) << "the reading saw nothing";
}

TEST_P(GuestFile, CanBeUnloaded) {
    EXPECT_EQ(plugin().dynamicValue(DT_FLAGS_1) & DF_1_NODELETE, 0U);
    // A thread-local object with a destructor pins the library until its thread ends.
    EXPECT_FALSE(imports().contains("__cxa_thread_atexit_impl"));
}

TEST_P(GuestFile, TellsNothingOfThePlaceWhereItWasBuilt) {
    EXPECT_FALSE(plugin().hasDynamicEntry(DT_RPATH) || plugin().hasDynamicEntry(DT_RUNPATH));
    for (const char* folder : {PEDL_SOURCE_DIR, PEDL_BINARY_DIR})
        EXPECT_EQ(plugin().bytes().find(folder), std::string_view::npos) << folder;
}

// The linker keeps one copy of an inline function that several objects hold. Were it the one that
// was compiled for AVX2, the whole library would need such a processor.
TEST(EngineObjects, LeakNoWideInstructionsIntoSharedFunctions) {
    int objects = 0;
    std::istringstream paths(PEDL_ENGINE_OBJECTS);
    for (std::string path; std::getline(paths, path, ':');) {
        if (!bearsArchitectureTag(std::filesystem::path(path).filename()))
            continue;
        ++objects;
        for (const ElfSymbol& symbol : ElfFile(path).symbols()) {
            const bool isShared =
                symbol.isDefined && symbol.binding == STB_WEAK && symbol.type == STT_FUNC;
            EXPECT_TRUE(!isShared || bearsArchitectureTag(symbol.name))
                << symbol.name << " in " << path;
        }
    }
    EXPECT_GT(objects, 0) << "no object bears the tag in its name";
}

} // namespace pedl::test
