#include "entry/KeptEditors.h"

#include <atomic>
#include <dlfcn.h>
#include <string>
#include <utility>

namespace pedl {

namespace {

constinit std::atomic<KeptEditor*> leftAlone{nullptr}; // the latest, and through it all

/// Beside the library, wherever both were installed.
std::string installedManual() {
    Dl_info library{};
    if (::dladdr(reinterpret_cast<const void*>(&installedManual), &library) == 0 ||
        !library.dli_fname)
        return {};
    const std::string file = library.dli_fname;
    const std::size_t slash = file.rfind('/');
    return (slash == std::string::npos ? "." : file.substr(0, slash)) + "/" PEDL_MANUAL_FROM_PLUGIN;
}

} // namespace

KeptEditor::KeptEditor(ZMTpedlFilterEffect& effect)
    : editor_(&effect, {&opener_, installedManual()}) {}

KeptEditor* KeptEditor::make(ZMTpedlFilterEffect& effect) {
    reclaim();
    return new KeptEditor(effect);
}

void KeptEditor::leave() noexcept {
    editor_.detach();
    next_ = leftAlone.load();
    while (!leftAlone.compare_exchange_weak(next_, this)) {
    }
}

void KeptEditor::reclaim() noexcept {
    for (KeptEditor* editor = leftAlone.exchange(nullptr); editor != nullptr;)
        delete std::exchange(editor, editor->next_);
}

namespace {

__attribute__((destructor)) void reclaimAtUnload() {
    KeptEditor::reclaim();
}

} // namespace

} // namespace pedl
