#include "host/CommandOutput.h"

#include "foundation/platform/StandardStream.h"
#include "foundation/text/PrintableText.h"
#include "host/Messages.h"

#include <algorithm>
#include <cstdio>

namespace pedl {

void say(const std::string& text) {
    std::fprintf(messages(), "zmt-pedlfilter: %s\n", printableText(text).c_str());
}

void warn(const std::string& text) {
    say("warning: " + text);
}

void warn(const std::string& path, const std::vector<std::string>& lines) {
    constexpr std::size_t kMostLines = 20;
    for (std::size_t i = 0; i < std::min(lines.size(), kMostLines); ++i)
        warn(path + ": " + lines[i]);
    if (lines.size() > kMostLines)
        warn(path + ": and " + std::to_string(lines.size() - kMostLines) + " more");
}

int fail(const std::string& text, int status) {
    say(text);
    return status;
}

int print(const std::string& text) {
    const bool isWritten = std::fwrite(text.data(), 1, text.size(), stdout) == text.size();
    if (!isWritten || std::fflush(stdout) != 0)
        return fail(std::string(kStandardOutput) + " cannot be written");
    return 0;
}

} // namespace pedl
