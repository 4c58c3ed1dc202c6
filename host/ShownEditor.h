#pragma once

#include "host/EditorWindow.h"
#include "host/Plugin.h"

#include <memory>

namespace pedl {

/// A plug-in's editor in a window of ours, as a DAW shows it, from its opening to its end.
///
/// Thread: one, which is the only one that calls the plug-in but for its `process`.
class ShownEditor {
public:
    /// How often a turn is due; editors count on 10 to 50 ms.
    static constexpr std::chrono::milliseconds kTurn{25};

    /// A problem where the plug-in has no editor, or where it does not open.
    static Result<std::unique_ptr<ShownEditor>> open(Plugin& plugin);
    ~ShownEditor();
    ShownEditor(const ShownEditor&) = delete;
    ShownEditor& operator=(const ShownEditor&) = delete;

    /// Waits until the next turn is due, and lets the editor have it.
    void turn();
    [[nodiscard]] const EditorWindow& window() const { return *window_; }

private:
    ShownEditor(Plugin& plugin, std::unique_ptr<EditorWindow> window);

    Plugin& plugin_;
    std::unique_ptr<EditorWindow> window_;
    EditorWindow::Clock::time_point nextTurn_;
};

} // namespace pedl
