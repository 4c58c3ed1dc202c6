#include "host/FileCommands.h"

#include "foundation/platform/FileReplacement.h"
#include "foundation/text/PrintableText.h"

namespace pedl {

std::string textOf(const Conversion& conversion) {
    return {reinterpret_cast<const char*>(conversion.bytes.data()), conversion.bytes.size()};
}

Result<std::string> writeConversion(const Conversion& conversion, const std::string& out) {
    const auto problem = replaceFile(out, conversion.bytes, kForEveryone);
    if (problem && !problem->isDone)
        return Problem{out + ": cannot be written: " +
                       (problem->number != 0 ? systemText(problem->number) : problem->text())};
    return printableText(out) + ": " + std::string(kindName(conversion.kind)) +
           (conversion.isText ? " as text, " : ", ") + std::to_string(conversion.bytes.size()) +
           " bytes" + (problem ? ", which may not outlive a loss of power" : "");
}

Result<std::string> writeProgramFiles(const std::vector<ProgramFile>& files,
                                      const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder))
        return Problem{folder.string() + ": is no folder" + (error ? ": " + error.message() : "")};
    for (const ProgramFile& file : files) {
        Result<std::string> written = writeConversion(file.content, folder / file.name);
        if (!written.ok())
            return written;
    }
    return printableText(folder.string()) + ": " + std::to_string(files.size()) + " programs";
}

} // namespace pedl
