#pragma once

#include <filesystem>

namespace pedl {

/// Turns the end signals into a question that a long job asks between its steps.
///
/// While an object lives, the first SIGINT, SIGTERM or SIGHUP only sets `signalNumber()`. The
/// second one, and a crash (of a plug-in, mostly), remove the file named by `removeAtEnd` and end
/// the process. A signal that the process was started to ignore (nohup) stays ignored, and a
/// handler that somebody else installed for a crash is left alone. A file that hits
/// the process's size limit, a pipe without a reader and an X server that has gone are meanwhile
/// errors of the write, not the end.
///
/// Thread: made and ended by one; the signals come in any thread of the process, the plug-in's too.
/// One object at a time: handlers are the whole process's, and as they were when it has gone.
class Interrupt {
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    /// The signal that came, 0 while none has.
    [[nodiscard]] static int signalNumber();

    /// Names the file that shall not survive a sudden end; an empty path names none.
    static void removeAtEnd(const std::filesystem::path& path);
};

} // namespace pedl
