#pragma once

#include <string>
#include <vector>

#include "vstgui/lib/platform/common/filedialogbackend.h"

namespace VSTGUI {

/// Where a dialog begins: `wanted`, absolute and without a slash at its end; the user's own
/// directory when there is no such one.
std::string startDirectory(const std::string& wanted);

/// A line of a directory's listing.
struct FileListEntry {
    std::string name;
    bool isDirectory = false;
};

/// The folders, then the files that match the request, each sorted without regard to case.
///
/// Reads a bounded number of entries: a folder beyond that is cut. Empty for one that cannot be
/// read.
std::vector<FileListEntry> readFileList(const FileDialogRequest& request, const std::string& path);

/// The path of what is called `name` in the directory.
std::string joinedPath(const std::string& directory, const std::string& name);

/// The directory that a path's last name stands in; that of "/" is "/".
std::string parentOf(const std::string& path);

bool isDirectory(const std::string& path);

/// Is anything there, be it a link that leads nowhere?
bool exists(const std::string& path);

} // namespace VSTGUI
