#include "vstgui/lib/platform/common/filelisting.h"

#include <dirent.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <algorithm>

#include "foundation/text/Utf8.h"

namespace VSTGUI {

namespace {

/// More than a folder of presets ever has, few enough to be read between two frames.
constexpr std::size_t kMaxEntries = 4000;

std::string inSmallLetters(const std::string& name) {
    std::string folded;
    for (std::string_view rest = name; !rest.empty();)
        folded += pedl::utf8Of(pedl::smallLetter(pedl::takeAnyCharacter(rest)));
    return folded;
}

} // namespace

std::string joinedPath(const std::string& directory, const std::string& name) {
    return directory == "/" ? directory + name : directory + "/" + name;
}

std::string parentOf(const std::string& path) {
    const std::size_t slash = path.find_last_of('/');
    return slash == 0 || slash == std::string::npos ? "/" : path.substr(0, slash);
}

bool isDirectory(const std::string& path) {
    struct stat status {};
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool exists(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

std::string startDirectory(const std::string& wanted) {
    if (char* resolved = wanted.empty() ? nullptr : realpath(wanted.c_str(), nullptr)) {
        std::string path = resolved;
        free(resolved);
        if (isDirectory(path))
            return path;
    }
    const char* home = getenv("HOME");
    return home && home[0] == '/' && isDirectory(home) ? home : "/";
}

std::vector<FileListEntry> readFileList(const FileDialogRequest& request, const std::string& path) {
    DIR* directory = opendir(path.c_str());
    if (!directory)
        return {};
    using Line = std::pair<std::string, FileListEntry>; // by what it is sorted, and what it is
    std::vector<Line> lines;
    std::size_t seen = 0;
    while (const dirent* file = readdir(directory)) {
        if (file->d_name[0] == '.')
            continue;
        if (++seen > kMaxEntries)
            break;
        const std::string name = file->d_name;
        // Asked for only where the listing does not say: on a slow disk each question costs.
        const bool isKnown = file->d_type != DT_UNKNOWN && file->d_type != DT_LNK;
        const bool isFolder =
            isKnown ? file->d_type == DT_DIR : isDirectory(joinedPath(path, name));
        const bool wantsFiles = request.kind != FileDialogRequest::Kind::ChooseDirectory;
        if (isFolder || (wantsFiles && matchesTypes(request, name)))
            lines.push_back({(isFolder ? "0" : "1") + inSmallLetters(name), {name, isFolder}});
    }
    closedir(directory);
    std::sort(lines.begin(), lines.end(),
              [](const Line& a, const Line& b) { return a.first < b.first; });
    std::vector<FileListEntry> entries;
    for (Line& line : lines)
        entries.push_back(std::move(line.second));
    return entries;
}

} // namespace VSTGUI
