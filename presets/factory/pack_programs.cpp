// pack-programs: turns the table of factory programs into sources, and into the page for players.
//
//   pack-programs TABLE values OUT     the values, for presets/FactoryTable.h
//   pack-programs TABLE notes OUT      the words, for presets/FactoryNotes.h
//   pack-programs TABLE page OUT       docs/programs.md
//   pack-programs TABLE check PAGE     fails where PAGE is not what "page" would write

#include "presets/factory/ProgramTable.h"
#include "presets/factory/TableWriters.h"

#include <cstdio>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>

namespace {

using namespace pedl;

int fail(const std::string& text) {
    std::fprintf(stderr, "%s\n", text.c_str());
    return 1;
}

std::optional<std::string> contentOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

int write(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::binary);
    file << text;
    return file.flush() ? 0 : fail(path + ": cannot be written");
}

int check(const std::string& path, const std::string& page) {
    if (contentOf(path) == page)
        return 0;
    return fail(path + ": is not what the table says; build the target programs-page");
}

} // namespace

int main(int count, char** words) {
    if (count != 4)
        return fail("usage: pack-programs TABLE values|notes|page|check FILE");
    const std::string path = words[1], form = words[2], out = words[3];
    const std::optional<std::string> text = contentOf(path);
    if (!text)
        return fail(path + ": cannot be read");
    const Result<ProgramTable> table = readProgramTable(*text);
    if (!table.ok())
        return fail(table.problem().of(path).text);
    if (form == "values")
        return write(out, valuesAsSource(table.value()));
    if (form == "notes")
        return write(out, notesAsSource(table.value()));
    if (form == "page")
        return write(out, programsPage(table.value()));
    return check(out, programsPage(table.value()));
}
