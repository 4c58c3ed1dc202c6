#include "host/ShownEditor.h"

#include "host/XlibErrors.h"

#include <algorithm>
#include <optional>

namespace pedl {

namespace {

constexpr WindowSize kUntilItTells{400, 300};
constexpr int kTurnsUntilThere = 8; // for a window that another connection makes

/// What the editor says about its size. Some know it before they open, some after.
std::optional<WindowSize> sizeOf(Plugin& plugin) {
    ERect* rectangle = nullptr;
    plugin.call(effEditGetRect, 0, 0, &rectangle);
    if (rectangle == nullptr)
        return std::nullopt;
    const WindowSize size{rectangle->right - rectangle->left, rectangle->bottom - rectangle->top};
    if (size.widthPixels <= 0 || size.heightPixels <= 0)
        return std::nullopt;
    return size;
}

std::string titleOf(Plugin& plugin) {
    const std::string name = plugin.name();
    return name.empty() ? "zmt-pedlfilter" : name;
}

} // namespace

Result<std::unique_ptr<ShownEditor>> ShownEditor::open(Plugin& plugin) {
    if ((plugin.record().flags & effFlagsHasEditor) == 0)
        return Problem{"the plug-in has no editor"};
    Result<std::unique_ptr<EditorWindow>> window =
        EditorWindow::open(titleOf(plugin), sizeOf(plugin).value_or(kUntilItTells));
    if (!window.ok())
        return window.problem();
    tameXlib();
    std::unique_ptr<ShownEditor> editor(new ShownEditor(plugin, std::move(window.value())));
    const bool saysItOpened = plugin.call(effEditOpen, 0, 0, editor->window_->handle()) != 0;
    if (const std::optional<WindowSize> size = sizeOf(plugin))
        editor->window_->resize(*size);
    // Plug-ins answer 0 whose editor did open, so its window counts.
    for (int turn = 0; turn < kTurnsUntilThere && !saysItOpened; ++turn) {
        editor->turn();
        if (editor->window_->holdsAnEditor())
            return editor;
    }
    if (!saysItOpened)
        return Problem{"the plug-in's editor does not open"};
    return editor;
}

ShownEditor::ShownEditor(Plugin& plugin, std::unique_ptr<EditorWindow> window)
    : plugin_(plugin), window_(std::move(window)), nextTurn_(EditorWindow::Clock::now()) {}

ShownEditor::~ShownEditor() {
    plugin_.call(effEditClose); // while its parent is still there
}

void ShownEditor::turn() {
    window_->serveUntil(nextTurn_);
    // Steady, but what was missed is not made up for.
    nextTurn_ = std::max(nextTurn_ + kTurn, EditorWindow::Clock::now());
    if (const auto wanted = plugin_.services().takeWantedSize())
        window_->resize({wanted->widthPixels, wanted->heightPixels});
    plugin_.call(effEditIdle);
}

} // namespace pedl
