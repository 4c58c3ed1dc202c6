#include "vstgui/lib/platform/linux/filedialogs.h"

#include <stdlib.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstring>
#include <string_view>

#include "vstgui/lib/cframe.h"
#include "vstgui/lib/platform/common/filelisting.h"
#include "vstgui/lib/platform/common/framefilelist.h"
#include "vstgui/lib/platform/common/textline.h"
#include "vstgui/lib/platform/linux/portalfiledialog.h"
#include "vstgui/lib/platform/linux/programfiledialog.h"
#include "vstgui/lib/platform/linux/x11frame.h"
#include "vstgui/lib/platform/linux/x11toplevel.h"

namespace VSTGUI {

namespace {

using Kind = FileDialogRequest::Kind;
using Maker = std::unique_ptr<FileDialogBackend> (*)();

bool exists(const std::string& path) {
    struct stat status {};
    return lstat(path.c_str(), &status) == 0;
}

/// The host's window: what lies inside it the window manager does not know.
uintptr_t windowAround(const FileDialogRequest& request) {
    IPlatformFrame* const platformFrame =
        request.frame ? request.frame->getPlatformFrame() : nullptr;
    if (auto* const frame = dynamic_cast<X11Frame*>(platformFrame))
        return topLevelAround(frame->connection(), static_cast<xcb_window_t>(request.window));
    return request.window;
}

/// What the dialogs of the system have in common: a request in order, and a last look at the name
/// to save under.
class SystemFileDialog : public FileDialogBackend {
public:
    explicit SystemFileDialog(Maker maker) : maker_(maker) {}

    bool start(const FileDialogRequest& request) override {
        if (request.window == 0)
            return false;
        request_ = request;
        request_.window = windowAround(request);
        request_.title = oneLine(request.title);
        request_.directory = startDirectory(request.directory);
        if (!request_.saveName.empty())
            request_.saveName = withDefaultExtension(request_, request_.saveName);
        moveDefaultTypeFirst();
        return startDialog();
    }

    State poll(std::vector<std::string>& paths) override {
        const State state = dialog_->poll(paths);
        if (state == State::Failed && asksAgain_)
            return State::Ended;
        if (state != State::Ended || request_.kind != Kind::SaveFile || paths.empty())
            return state;
        const std::string typed = paths[0];
        paths[0] = withDefaultExtension(request_, typed);
        if (paths[0] == typed || !exists(paths[0]))
            return State::Ended;
        // Whoever typed "lead" was not asked whether "lead.zmt" may be replaced. With the whole
        // name in its field the dialog asks.
        request_.directory = typed.substr(0, std::max<std::size_t>(typed.rfind('/'), 1));
        request_.saveName = paths[0].substr(paths[0].rfind('/') + 1);
        request_.title = oneLine(request_.saveName) + " is there already";
        paths.clear();
        asksAgain_ = true;
        return startDialog() ? State::Open : State::Ended;
    }

private:
    /// The dialogs begin with the first.
    void moveDefaultTypeFirst() {
        if (request_.defaultType <= 0)
            return;
        const auto begin = request_.types.begin();
        std::rotate(begin, begin + request_.defaultType, begin + request_.defaultType + 1);
        request_.defaultType = 0;
    }

    bool startDialog() {
        dialog_ = maker_();
        return dialog_->start(request_);
    }

    Maker maker_;
    FileDialogRequest request_;
    std::unique_ptr<FileDialogBackend> dialog_;
    bool asksAgain_ = false;
};

std::unique_ptr<FileDialogBackend> zenity() {
    return createProgramFileDialog(kZenity);
}

std::unique_ptr<FileDialogBackend> kdialog() {
    return createProgramFileDialog(kKDialog);
}

/// The variable lists names between colons.
bool isDesktopKde() {
    const char* names = getenv("XDG_CURRENT_DESKTOP");
    for (std::string_view rest = names ? names : ""; !rest.empty();) {
        const std::size_t length = std::min(rest.find(':'), rest.size());
        if (rest.substr(0, length) == "KDE")
            return true;
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return false;
}

char smallLetter(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

char capitalLetter(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

} // namespace

std::unique_ptr<FileDialogBackend> createSystemFileDialog(int32_t index) {
    if (index < 0 || index > 2)
        return nullptr;
    if (index == 0)
        return std::make_unique<SystemFileDialog>(createPortalFileDialog);
    return std::make_unique<SystemFileDialog>((index == 1) == isDesktopKde() ? kdialog : zenity);
}

std::vector<std::string> filePatterns(const FileDialogRequest::FileType& type) {
    std::vector<std::string> patterns{"*." + type.extension};
    for (char (*const letter)(char) : {smallLetter, capitalLetter}) {
        std::string pattern = patterns[0];
        std::transform(pattern.begin(), pattern.end(), pattern.begin(), letter);
        if (std::find(patterns.begin(), patterns.end(), pattern) == patterns.end())
            patterns.push_back(pattern);
    }
    return patterns;
}

} // namespace VSTGUI
