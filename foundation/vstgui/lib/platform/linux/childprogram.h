#pragma once

#include <sys/types.h>

#include <memory>
#include <string>
#include <vector>

namespace VSTGUI {

/// A program that runs beside the host and says what it has to say on its standard output.
///
/// Started without a shell, in a process group of its own, with none of the host's open files,
/// signal settings or library paths. Never waits: it is looked at with `hasEnded`.
///
/// Thread: one at a time for each object, any for different ones.
class ChildProgram {
public:
    /// @param arguments  the program's name, looked for in PATH, then what it is given
    /// @return null when there is no such program
    static std::unique_ptr<ChildProgram> start(const std::vector<std::string>& arguments);

    /// Ends the program and whatever it has started, however it takes that. Returns within 40 ms: a
    /// process that the system holds back longer is reaped later.
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    /// Reaps the held back ones that have gone. Every start and end does it too.
    static void reapLate();

    /// Reads what was written since.
    bool hasEnded();
    /// Once it has ended: by itself and with status 0, as far as that can be known.
    bool hasSucceeded() const { return succeeded_; }
    const std::string& output() const { return output_; }

private:
    ChildProgram(pid_t process, int outputFile) : process_(process), outputFile_(outputFile) {}

    void readOutput();

    pid_t process_; // 0 when it has been reaped
    int outputFile_;
    std::string output_;
    bool succeeded_ = false;
};

} // namespace VSTGUI
