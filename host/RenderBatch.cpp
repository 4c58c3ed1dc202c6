#include "host/RenderBatch.h"

#include "foundation/platform/StandardStream.h"

#include <map>
#include <system_error>

namespace pedl {

namespace {

namespace fs = std::filesystem;

/// That of the file itself, where it can be written.
AudioFormat formatLike(const fs::path& file) {
    const Result<AudioFormat> own = AudioFormat::ofFile(file);
    return own.ok() ? own.value() : AudioFormat();
}

} // namespace

Result<std::vector<RenderRequest>> renderBatch(const RenderRequest& common,
                                               const std::vector<std::string>& files,
                                               const fs::path& folder) {
    std::vector<RenderRequest> requests;
    std::map<fs::path, std::string> sources; // by what becomes of them
    for (const std::string& file : files) {
        if (file == kStandardStream)
            return Problem{"--to: standard input has no name to be called by"};
        RenderRequest request = common;
        request.in = file;
        request.format = common.format.value_or(formatLike(file));
        request.out = folder / request.in.filename().replace_extension(request.format->ending());
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
