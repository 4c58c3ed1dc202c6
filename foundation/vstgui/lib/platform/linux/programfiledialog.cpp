#include "vstgui/lib/platform/linux/programfiledialog.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include "vstgui/lib/platform/common/textline.h"
#include "vstgui/lib/platform/iplatformframe.h"
#include "vstgui/lib/platform/linux/childprogram.h"
#include "vstgui/lib/platform/linux/filedialogs.h"

namespace VSTGUI {

struct DialogProgram {
    std::vector<std::string> (*arguments)(const FileDialogRequest& request);
    /// Between two paths of an answer. The path after it begins with the slash.
    std::string_view separator;
};

namespace {

using Arguments = std::vector<std::string>;
using Kind = FileDialogRequest::Kind;

/// Without the characters by which these programs take a description apart.
std::string plainDescription(const FileDialogRequest::FileType& type) {
    std::string text = oneLine(type.description);
    for (char& c : text)
        if (std::strchr("|();,", c))
            c = ' ';
    return text;
}

std::string patterns(const FileDialogRequest::FileType& type) {
    std::string text;
    for (const std::string& pattern : filePatterns(type))
        text += (text.empty() ? "" : " ") + pattern;
    return text;
}

std::string startPath(const FileDialogRequest& request) {
    const std::string directory = request.directory == "/" ? "/" : request.directory + "/";
    return request.kind == Kind::SaveFile ? directory + request.saveName : directory;
}

Arguments zenityArguments(const FileDialogRequest& request) {
    Arguments arguments{"zenity",
                        "--file-selection",
                        "--modal",
                        "--attach=" + std::to_string(request.window),
                        "--title=" + request.title,
                        "--filename=" + startPath(request)};
    if (request.kind == Kind::SaveFile)
        arguments.insert(arguments.end(), {"--save", "--confirm-overwrite"});
    if (request.kind == Kind::OpenFiles)
        arguments.insert(arguments.end(), {"--multiple", "--separator=//"});
    if (request.kind == Kind::ChooseDirectory)
        arguments.emplace_back("--directory");
    for (const FileDialogRequest::FileType& type : request.types)
        arguments.push_back("--file-filter=" + plainDescription(type) + " | " + patterns(type));
    return arguments;
}

Arguments kdialogArguments(const FileDialogRequest& request) {
    Arguments arguments{"kdialog", "--attach=" + std::to_string(request.window),
                        "--title=" + request.title};
    if (request.kind == Kind::OpenFiles)
        arguments.insert(arguments.end(), {"--multiple", "--separate-output"});
    const bool wantsDirectory = request.kind == Kind::ChooseDirectory;
    arguments.emplace_back(wantsDirectory                   ? "--getexistingdirectory"
                           : request.kind == Kind::SaveFile ? "--getsavefilename"
                                                            : "--getopenfilename");
    arguments.push_back(startPath(request));
    if (wantsDirectory || request.types.empty())
        return arguments;
    // One filter for all types: its versions differ in what stands between two.
    std::string all;
    for (const FileDialogRequest::FileType& type : request.types)
        all += (all.empty() ? "" : " ") + patterns(type);
    arguments.push_back(plainDescription(request.types[0]) + " (" + all + ")");
    return arguments;
}

/// The absolute paths of an answer, which ends in a newline of the program's own.
std::vector<std::string> pathsIn(std::string answer, const std::string& separator, bool several) {
    if (!answer.empty() && answer.back() == '\n')
        answer.pop_back();
    if (answer.empty() || answer[0] != '/' || answer.find('\0') != std::string::npos)
        return {};
    std::vector<std::string> paths;
    for (std::size_t end; several && (end = answer.find(separator + "/")) != std::string::npos;) {
        paths.push_back(answer.substr(0, end));
        answer.erase(0, end + separator.size());
    }
    paths.push_back(answer);
    return paths;
}

class ProgramFileDialog : public FileDialogBackend {
public:
    explicit ProgramFileDialog(const DialogProgram& program) : program_(program) {}

    bool start(const FileDialogRequest& request) override {
        several_ = request.kind == Kind::OpenFiles;
        startedMs_ = currentTickMs();
        child_ = ChildProgram::start(program_.arguments(request));
        return child_ != nullptr;
    }

    State poll(std::vector<std::string>& paths) override {
        if (!child_->hasEnded())
            return State::Open;
        if (child_->hasSucceeded())
            paths = pathsIn(child_->output(), std::string(program_.separator), several_);
        const bool wasSeen = currentTickMs() - startedMs_ >= kUnseenMs;
        return wasSeen || !paths.empty() ? State::Ended : State::Failed;
    }

private:
    const DialogProgram& program_;
    std::unique_ptr<ChildProgram> child_;
    bool several_ = false;
    uint64_t startedMs_ = 0;
};

} // namespace

// No path holds two slashes in a row, so they stand between two paths best; kdialog knows lines
// alone.
const DialogProgram kZenity{zenityArguments, "//"};
const DialogProgram kKDialog{kdialogArguments, "\n"};

std::unique_ptr<FileDialogBackend> createProgramFileDialog(const DialogProgram& program) {
    return std::make_unique<ProgramFileDialog>(program);
}

} // namespace VSTGUI
