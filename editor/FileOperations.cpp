#include "editor/FileOperations.h"

#include "vstgui/lib/cfileselector.h"

#include <array>
#include <functional>
#include <string_view>
#include <utility>

namespace pedl {

using namespace VSTGUI;

namespace {

struct Titles {
    const char* load;
    const char* loadReversed;
    const char* save;
};

const Titles& titlesOf(FileKind kind) {
    static constexpr std::array<Titles, kFileTypes.size()> kTitles{{
        {"Load preset", "Load preset (endian-reversed)", "Save preset"},
        {"Load bank", "Load bank (endian-reversed)", "Save bank"},
        {"Load MIDI settings", "Load MIDI settings (endian-reversed)", "Save midi settings as"},
    }};
    return kTitles[static_cast<std::size_t>(kind)];
}

/// Told when the dialog has ended; lives until then.
class ChosenFile : public CBaseObject {
public:
    using Use = std::function<void(const std::string& path)>;
    explicit ChosenFile(Use use) : use_(std::move(use)) {}

    CMessageResult notify(CBaseObject* sender, IdStringPtr message) override {
        if (message != CNewFileSelector::kSelectEndMessage)
            return kMessageUnknown;
        const auto* const selector = static_cast<CNewFileSelector*>(sender);
        if (selector->getNumSelectedFiles() == 1)
            use_(selector->getSelectedFile(0));
        return kMessageNotified;
    }
    CLASS_METHODS_NOCOPY(ChosenFile, CBaseObject)

private:
    Use use_;
};

void runDialog(CNewFileSelector& selector, const CPresetSystemEffect& effect, FileKind kind,
               const char* title, ChosenFile::Use use) {
    const FileType& type = fileType(kind);
    selector.setTitle(title);
    selector.setInitialDirectory(effect.recentFiles().folder().c_str());
    selector.setDefaultExtension(
        CFileExtension(std::string(type.dialogName).c_str(), std::string(type.extension).c_str()));
    auto* const chosen = new ChosenFile(std::move(use));
    selector.run(chosen);
    chosen->forget();  // the selector holds it,
    selector.forget(); // and itself, while the dialog is open
}

std::string quotedName(const std::string& path) {
    return "\"" + path.substr(path.rfind('/') + 1) + "\"";
}

/// What is proposed where no file of the kind was chosen before.
std::string firstName(const CPresetSystemEffect& effect, FileKind kind) {
    std::string name(fileType(kind).name);
    if (kind == FileKind::Program) {
        const ProgramName program = effect.bank().name(effect.currentSlot());
        name = nameText(program);
        for (char& character : name)
            if (character == '/')
                character = '-';
    }
    return name + "." + std::string(fileType(kind).extension);
}

} // namespace

void FileOperations::load(CPresetSystemEffect& effect, CFrame& frame, FileKind kind,
                          OrderDecision decision) {
    const Titles& titles = titlesOf(kind);
    const char* const title =
        decision == OrderDecision::Inverted ? titles.loadReversed : titles.load;
    runDialog(*CNewFileSelector::create(&frame, CNewFileSelector::kSelectFile), effect, kind, title,
              [this, &effect, kind, decision](const std::string& path) {
                  loadChosen(effect, kind, path, decision);
              });
}

void FileOperations::save(CPresetSystemEffect& effect, CFrame& frame, FileKind kind) {
    CNewFileSelector* const selector =
        CNewFileSelector::create(&frame, CNewFileSelector::kSelectSaveFile);
    const std::string& recent = effect.recentFiles().name(kind);
    selector->setDefaultSaveName((recent.empty() ? firstName(effect, kind) : recent).c_str());
    runDialog(*selector, effect, kind, titlesOf(kind).save,
              [this, &effect, kind](const std::string& path) { saveChosen(effect, kind, path); });
}

void FileOperations::loadChosen(CPresetSystemEffect& effect, FileKind kind, const std::string& path,
                                OrderDecision decision) {
    const LoadResult result = effect.files().load(kind, path, decision);
    effect.keepRecentFiles();
    if (result != LoadResult::Loaded)
        hints_.say(quotedName(path) + " " + std::string(loadProblemText(result)) +
                   ": nothing changed");
}

void FileOperations::saveChosen(CPresetSystemEffect& effect, FileKind kind,
                                const std::string& path) {
    const auto problem = effect.files().save(kind, path);
    effect.keepRecentFiles();
    if (problem)
        hints_.say(quotedName(path) +
                   (problem->isDone ? " is saved, but may not outlive a loss of power ("
                                    : " was not saved, what was there is kept (") +
                   problem->text() + ")");
}

void FileOperations::sayUnless(bool isDone, const char* message) {
    if (!isDone)
        hints_.say(message);
}

} // namespace pedl
