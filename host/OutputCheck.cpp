#include "host/OutputCheck.h"

#include <system_error>

namespace pedl {

Done checkIsNone(const std::filesystem::path& output, const std::vector<InputFile>& inputs) {
    std::error_code none;
    for (const InputFile& input : inputs)
        if (input.path && std::filesystem::equivalent(*input.path, output, none))
            return Problem{output.string() + ": " + input.is};
    return done();
}

} // namespace pedl
