#pragma once

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <chrono>

#include "tests/support/TemporaryFolder.h"
#include "vstgui/lib/platform/linux/childprogram.h"
#include "vstgui/lib/platform/linux/filedialogs.h"
#include "vstgui/lib/platform/offscreen/manualclock.h"

namespace VSTGUI {

using State = FileDialogBackend::State;
using Kind = FileDialogRequest::Kind;
using Paths = std::vector<std::string>;

/// Until another program has done something. However busy the machine is, it does within this time.
inline bool waitFor(const std::function<bool()>& condition) {
    using namespace std::chrono;
    for (const auto end = steady_clock::now() + 60s; steady_clock::now() < end; usleep(2000))
        if (condition())
            return true;
    return false;
}

/// A folder and an environment of the test's own; nothing of the dialogs may be left behind it.
class DialogFixture : public testing::Test {
protected:
    DialogFixture() {
        set("PATH", folder);
        for (const char* name :
             {"XDG_CURRENT_DESKTOP", "DBUS_SESSION_BUS_ADDRESS", "XDG_RUNTIME_DIR"})
            unsetenv(name);
        request.title = "Load \"presets\"";
        request.directory = folder;
        request.types = {{"Banks", "zmb"}, {"Presets", "zmt"}};
        request.defaultType = 1;
        request.window = 0x2a00007;
    }
    ~DialogFixture() override {
        dialog.reset();
        EXPECT_EQ(openFiles(), openFilesBefore_);
        EXPECT_TRUE(waitFor([] {
            ChildProgram::reapLate();
            siginfo_t child;
            return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) != 0;
        })) << "a child is left";
    }

    static void set(const char* name, const std::string& value) { setenv(name, value.c_str(), 1); }
    std::string path(const std::string& name) const { return temporary / name; }

    State start(int32_t systemDialog) {
        dialog = createSystemFileDialog(systemDialog);
        paths.clear();
        return dialog->start(request) ? State::Open : State::Failed;
    }
    virtual State look() { return dialog->poll(paths); }
    /// Looks at the dialog until it is no longer open.
    State end() {
        State state = State::Open;
        EXPECT_TRUE(waitFor([&] { return (state = look()) != State::Open; }));
        return state;
    }
    State ask(int32_t systemDialog) {
        return start(systemDialog) == State::Open ? end() : State::Failed;
    }

    const pedl::test::TemporaryFolder temporary;
    const std::string& folder = temporary.path();
    FileDialogRequest request;
    ManualClock clock; // stands still: the user has not seen the dialog yet
    std::unique_ptr<FileDialogBackend> dialog;
    Paths paths;

private:
    static std::ptrdiff_t openFiles() {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    }
    const std::ptrdiff_t openFilesBefore_ = openFiles();
};

} // namespace VSTGUI
