#pragma once

#include "foundation/text/Result.h"
#include "foundation/vst24/AEffect.h"

#include <filesystem>
#include <memory>

namespace pedl {

/// A loaded VST 2.4 shared library; unloaded when the object goes.
///
/// Nothing of a library that is refused stays loaded. What its start-up code does is beyond us.
/// Thread: one at a time; threads of the library's own must have ended before it goes.
class PluginLibrary {
public:
    /// @param path  a file; relative paths start at the working directory, no search path is used
    static Result<PluginLibrary> open(const std::filesystem::path& path);

    [[nodiscard]] VstEntryProc entry() const { return entry_; }

private:
    struct Unloader {
        void operator()(void* handle) const;
    };
    using Handle = std::unique_ptr<void, Unloader>;

    PluginLibrary(Handle handle, VstEntryProc symbol)
        : handle_(std::move(handle)), entry_(symbol) {}

    Handle handle_;
    VstEntryProc entry_;
};

} // namespace pedl
