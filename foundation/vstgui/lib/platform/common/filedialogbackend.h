#pragma once

#include <memory>
#include <string>
#include <vector>

#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

class CFrame;

/// What the user is asked for.
struct FileDialogRequest {
    enum class Kind { OpenFile, OpenFiles, SaveFile, ChooseDirectory };
    struct FileType {
        std::string description;
        std::string extension; // without the dot
    };

    Kind kind = Kind::OpenFile;
    std::string title;
    std::string directory; // to begin in; may be empty or gone
    std::string saveName;  // proposed
    std::vector<FileType> types;
    int32_t defaultType = -1; // index into them
    CFrame* frame = nullptr;  // may be null
    /// The platform's window that the dialog belongs to, 0 for none: then there is no display, and
    /// no dialog of the system.
    uintptr_t window = 0;
};

/// One way to ask. Never waits: it is polled by its editor's idle.
class FileDialogBackend {
public:
    enum class State { Open, Ended, Failed };

    /// Ends what is still open, without waiting.
    virtual ~FileDialogBackend() = default;

    /// False when it cannot work here: the next way is tried. The request lives as long as this
    /// object.
    virtual bool start(const FileDialogRequest& request) = 0;

    /// At each pump. When it ended, `paths` are the absolute paths chosen, none when the user
    /// cancelled. A failure before the user saw anything lets the next way have its turn.
    ///
    /// A path to save to is final: where the user typed no extension, the default one is on it
    /// (see `withDefaultExtension`), and replacing a file of that name was agreed to.
    virtual State poll(std::vector<std::string>& paths) = 0;
};

/// The dialogs of the system in the order in which they are tried, null behind the last. The list
/// drawn in the frame comes after them.
using FileDialogFactory = std::unique_ptr<FileDialogBackend> (*)(int32_t index);

/// For tests, and for a host that wants no dialogs of the system; null is the system's own. Called
/// from the threads of all editors.
void setFileDialogFactory(FileDialogFactory factory);

/// `path`, with the default type's extension when it has none of the request's.
std::string withDefaultExtension(const FileDialogRequest& request, const std::string& path);

/// Whether `name` ends in one of the extensions asked for, in any case of letters. All do when none
/// is asked for.
bool matchesTypes(const FileDialogRequest& request, const std::string& name);

} // namespace VSTGUI
