#include "host/RenderBatch.h"

#include "foundation/platform/StandardStream.h"

#include <map>
#include <system_error>

namespace pedl {

namespace {

namespace fs = std::filesystem;

Result<AudioFormat> formatFor(const fs::path& file, const std::optional<AudioFormat>& wanted,
                              const std::string& bits) {
    Result<AudioFormat> format = wanted ? Result(*wanted) : AudioFormat::ofFile(file);
    if (!format.ok())
        format = AudioFormat::named("wav");
    return bits.empty() ? format : format.value().withBits(bits);
}

} // namespace

Result<std::vector<RenderRequest>> renderBatch(const RenderRequest& common,
                                               const std::vector<std::string>& files,
                                               const fs::path& folder,
                                               const std::optional<AudioFormat>& format,
                                               const std::string& bits) {
    std::vector<RenderRequest> requests;
    std::map<fs::path, std::string> sources; // by what becomes of them
    for (const std::string& file : files) {
        if (file == kStandardStream)
            return Problem{"--to: standard input has no name to be called by"};
        const Result<AudioFormat> own = formatFor(file, format, bits);
        if (!own.ok())
            return own.problem().of("--bits");
        RenderRequest request = common;
        request.in = file;
        request.out = folder / request.in.filename().replace_extension(own.value().ending());
        request.format = own.value();
        const auto [place, isNew] = sources.emplace(request.out, file);
        if (!isNew)
            return Problem{place->second + " and " + file + " would both become " +
                           request.out.string()};
        requests.push_back(std::move(request));
    }
    std::error_code error;
    fs::create_directories(folder, error);
    if (!fs::is_directory(folder))
        return Problem{folder.string() + ": is no folder" + (error ? ": " + error.message() : "")};
    return requests;
}

} // namespace pedl
