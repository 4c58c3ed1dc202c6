#include "entry/KeptEditors.h"

#include <atomic>
#include <cstdlib>
#include <dlfcn.h>
#include <string>
#include <string_view>
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

/// Window pixels per pixel of the face: 2 where the user asks for it, else 1. The skin is drawn for
/// these two.
double userScale() {
    const char* const asked = std::getenv("ZMT_PEDLFILTER_SCALE");
    return asked && std::string_view(asked) == "2" ? 2.0 : 1.0;
}

} // namespace

KeptEditor::KeptEditor(ZMTpedlFilterEffect& effect)
    : editor_(&effect, {&opener_, installedManual(), userScale()}) {}

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
