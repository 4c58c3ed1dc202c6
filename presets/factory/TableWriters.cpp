#include "presets/factory/TableWriters.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace pedl {

namespace {

constexpr const char* kSourceHead =
    "// Written by pack-programs from presets/factory-programs.txt when the project is built.\n";

std::string literal(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text)
        quoted += (c == '"' || c == '\\') ? std::string{'\\', c} : std::string(1, c);
    return quoted + '"';
}

/// One entry for each slot of each program.
template <typename Entry> std::string entries(const ProgramTable& table, const Entry& entry) {
    std::string all;
    for (const TableProgram& program : table.programs)
        for (int slot = program.firstSlot; slot <= program.lastSlot; ++slot)
            all += "    " + entry(program) + ",\n";
    return all;
}

std::string valuesEntry(const TableProgram& program) {
    std::string entry = "{{toProgramName(" + literal(nameText(program.record.name)) + "), {{";
    for (const float value : program.record.normalised) {
        std::array<char, 32> text{};
        std::snprintf(text.data(), text.size(), "%aF, ", static_cast<double>(value));
        entry += text.data();
    }
    return entry + "}}}, " + (program.leavesSpare ? "true" : "false") + "}";
}

std::string notesEntry(const TableProgram& program) {
    return "{" + literal(program.family) + ", " + literal(program.material) + ", " +
           literal(program.purpose) + ", " + literal(program.turnFirst) + "}";
}

std::string sourceOf(const char* header, const std::string& definition, const std::string& all) {
    return std::string(kSourceHead) + "#include \"" + header + "\"\n\nnamespace pedl {\n\n" +
           definition + "{{\n" + all + "}};\n\n} // namespace pedl\n";
}

std::string slotsText(const TableProgram& program) {
    return std::to_string(program.firstSlot) +
           (program.lastSlot > program.firstSlot ? " to " + std::to_string(program.lastSlot) : "");
}

/// Characters that a table's cell would take for its own.
std::string cell(std::string_view text) {
    std::string escaped;
    for (const char c : text)
        escaped += (c == '|' || c == '<' || c == '>' || c == '*' || c == '[' || c == ']')
                       ? std::string{'\\', c}
                       : std::string(1, c);
    return escaped;
}

} // namespace

std::string valuesAsSource(const ProgramTable& table) {
    return sourceOf("presets/FactoryTable.h",
                    "constinit const std::array<FactoryEntry, kNumPrograms> kFactoryTable",
                    entries(table, valuesEntry));
}

std::string notesAsSource(const ProgramTable& table) {
    return sourceOf("presets/FactoryNotes.h",
                    "constinit const std::array<FactoryNotes, kNumPrograms> kFactoryNotes",
                    entries(table, notesEntry));
}

std::string programsPage(const ProgramTable& table) {
    std::string page =
        "# Factory programs\n\n"
        "The 140 programs that an instance starts with, by slot, with what each is for and what to "
        "turn\nfirst. A name with \"[snc]\" or \"[sync]\" follows the host's tempo. The page is "
        "made "
        "from\n[presets/factory-programs.txt](../presets/factory-programs.txt), which has the "
        "values; after a\nchange there, `cmake --build --preset release --target programs-page` "
        "writes it anew.\n\n## Families\n\n";
    for (const std::string& family : table.families) {
        std::string slots;
        for (const TableProgram& program : table.programs)
            if (program.family == family)
                slots.append(slots.empty() ? "" : ", ").append(slotsText(program));
        page.append("- ").append(family).append(": ").append(slots).append("\n");
    }
    page += "\n## Programs\n\n| slot | name | family | for | turn first |\n|---|---|---|---|---|\n";
    for (const TableProgram& program : table.programs)
        page += "| " + slotsText(program) + " | " + cell(nameText(program.record.name)) + " | " +
                program.family + " | " + cell(program.purpose) + " | " + cell(program.turnFirst) +
                " |\n";
    return page;
}

} // namespace pedl
