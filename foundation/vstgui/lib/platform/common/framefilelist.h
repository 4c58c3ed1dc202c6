#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vstgui/lib/platform/common/filedialogbackend.h"

namespace VSTGUI {

/// A file dialog drawn in the frame, as its modal view: for machines without any other.
///
/// A directory's folders and the files of the types asked for, hidden ones left out; Up, Cancel, a
/// field for the name when saving. One file at a time. Saving under a name that is taken asks for a
/// second press.
std::unique_ptr<FileDialogBackend> createFrameFileList();

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

} // namespace VSTGUI
