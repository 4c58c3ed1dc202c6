#pragma once

#include "editor/HintLine.h"
#include "presets/CPresetSystemEffect.h"
#include "vstgui/lib/cframe.h"

#include <string>

namespace pedl {

/// Programs, banks and MIDI settings go to files and come from files that the user chooses.
///
/// A dialog opens at once and the operation follows when a file is chosen; closing the window ends
/// the dialog without one. What does not work is said in the hint line and in the diagnostic
/// stream, and changes nothing. Thread: the editor's.
class FileOperations {
public:
    explicit FileOperations(HintLine& hints) : hints_(hints) {}

    /// @param effect, frame  those of the open window
    void load(CPresetSystemEffect& effect, VSTGUI::CFrame& frame, FileKind kind,
              OrderDecision decision);
    void save(CPresetSystemEffect& effect, VSTGUI::CFrame& frame, FileKind kind);

    /// What an operation without a file has to say: nothing where it worked.
    void sayUnless(bool isDone, const char* message);

private:
    void loadChosen(CPresetSystemEffect& effect, FileKind kind, const std::string& path,
                    OrderDecision decision);
    void saveChosen(CPresetSystemEffect& effect, FileKind kind, const std::string& path);

    HintLine& hints_;
};

} // namespace pedl
