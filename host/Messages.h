#pragma once

#include <cstdio>

namespace pedl {

/// Where the command writes errors, warnings and progress: the standard error stream, also while
/// `PluginSilence` keeps the plug-in away from it.
[[nodiscard]] std::FILE* messages() noexcept;

/// The same as a descriptor, for signal handlers and terminal questions.
[[nodiscard]] int messageDescriptor() noexcept;

/// Keeps what a plug-in writes to the process's standard error stream from the user for as long as
/// it lives: an error of ours is one line, whatever the plug-in has to tell.
///
/// Thread: made and ended by one, while no other writes; then any may. One at a time: the stream is
/// the whole process's.
class PluginSilence {
public:
    /// @param isVerbose the user wants to read it: nothing is kept away
    explicit PluginSilence(bool isVerbose) noexcept;
    ~PluginSilence();
    PluginSilence(const PluginSilence&) = delete;
    PluginSilence& operator=(const PluginSilence&) = delete;
};

} // namespace pedl
