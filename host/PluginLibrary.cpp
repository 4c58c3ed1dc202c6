#include "host/PluginLibrary.h"

#include <dlfcn.h>
#include <link.h>
#include <string>
#include <system_error>

namespace pedl {

namespace {

/// The symbol `name`, if it belongs to the library itself. One that a dependency exports (some
/// libraries carry a `main`) would not be an entry.
void* ownSymbol(void* handle, const char* name) {
    void* const symbol = dlsym(handle, name);
    Dl_info place{};
    link_map* library = nullptr;
    if (symbol == nullptr || dladdr(symbol, &place) == 0 ||
        dlinfo(handle, RTLD_DI_LINKMAP, &library) != 0)
        return nullptr;
    return reinterpret_cast<std::uintptr_t>(place.dli_fbase) == library->l_addr ? symbol : nullptr;
}

/// The loader's message without the path, which the caller has named already.
std::string loaderMessage(const std::string& path) {
    const char* const text = dlerror(); // NOLINT(concurrency-mt-unsafe): per thread in glibc
    std::string message = text != nullptr ? text : "the loader gives no reason";
    if (message.starts_with(path + ": "))
        message.erase(0, path.size() + 2);
    return message;
}

} // namespace

Result<PluginLibrary> PluginLibrary::open(const std::filesystem::path& path) {
    std::error_code error;
    const auto status = std::filesystem::status(path, error);
    if (!std::filesystem::exists(status))
        return Problem{path.string() + ": no such plug-in file"};
    if (std::filesystem::is_directory(status))
        return Problem{path.string() + ": is a folder, not a plug-in library"};

    // Absolute, else the loader would search the system's folders. "Now": an undefined symbol is
    // an error here instead of the end of the process later. "Local": two plug-ins may define
    // alike.
    const std::string absolute = std::filesystem::absolute(path).string();
    Handle handle(dlopen(absolute.c_str(), RTLD_NOW | RTLD_LOCAL));
    if (handle == nullptr)
        return Problem{path.string() + ": cannot be loaded: " + loaderMessage(absolute)};

    for (const char* name : {"VSTPluginMain", "main"})
        if (void* const symbol = ownSymbol(handle.get(), name))
            return PluginLibrary(std::move(handle), reinterpret_cast<VstEntryProc>(symbol));
    return Problem{path.string() +
                   ": is not a VST 2.4 plug-in: it exports neither VSTPluginMain nor main"};
}

void PluginLibrary::Unloader::operator()(void* handle) const {
    dlclose(handle);
}

} // namespace pedl
