#pragma once

#include <gtest/gtest.h>

#include <dirent.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/TemporaryFolder.h"
#include "vstgui/lib/cvstguitimer.h"
#include "vstgui/lib/platform/linux/childprogram.h"
#include "vstgui/lib/platform/linux/filedialogs.h"
#include "vstgui/lib/platform/offscreen/manualclock.h"

namespace VSTGUI {

using State = FileDialogBackend::State;
using Kind = FileDialogRequest::Kind;
using Paths = std::vector<std::string>;

/// Milliseconds, however a test's clock stands.
inline double realMs() {
    using namespace std::chrono;
    return duration<double, std::milli>(steady_clock::now().time_since_epoch()).count();
}

/// Until `condition` holds, at most this long.
inline bool waitFor(const std::function<bool()>& condition, double limitMs = 5000) {
    for (const double end = realMs() + limitMs; realMs() < end; usleep(2000))
        if (condition())
            return true;
    return condition();
}

/// A folder and an environment of the test's own; nothing of the dialogs may be left behind it.
class DialogFixture : public testing::Test {
protected:
    DialogFixture() {
        set("PATH", folder);
        set("XDG_CURRENT_DESKTOP", std::nullopt);
        set("DBUS_SESSION_BUS_ADDRESS", std::nullopt);
        set("XDG_RUNTIME_DIR", std::nullopt);
        request.title = "Load \"presets\"";
        request.directory = folder;
        request.types = {{"Banks", "zmb"}, {"Presets", "zmt"}};
        request.defaultType = 1;
        request.window = 0x2a00007;
        openFilesBefore_ = openFiles();
    }
    ~DialogFixture() override {
        dialog.reset();
        EXPECT_EQ(openFiles(), openFilesBefore_) << "files are left open";
        EXPECT_TRUE(waitFor([&] {
            clock.advance(100); // the programs that the system held back
            CVSTGUITimer::fireDueTimers();
            siginfo_t child;
            return waitid(P_ALL, 0, &child, WEXITED | WNOHANG | WNOWAIT) != 0;
        })) << "a child is left";
        EXPECT_FALSE(pedl::test::readText("/proc/self/maps").find("libsystemd") !=
                     std::string::npos);
        for (const auto& [name, value] : environmentBefore_)
            value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }

    void set(const std::string& name, const std::optional<std::string>& value) {
        const char* before = getenv(name.c_str());
        environmentBefore_.emplace(name,
                                   before ? std::optional<std::string>(before) : std::nullopt);
        value ? setenv(name.c_str(), value->c_str(), 1) : unsetenv(name.c_str());
    }
    std::string path(const std::string& name) const { return temporary / name; }
    void write(const std::string& name, const std::string& text) const {
        pedl::test::writeText(path(name), text);
    }

    State start(std::unique_ptr<FileDialogBackend> backend) {
        dialog = std::move(backend);
        paths.clear();
        return timed([&] { return dialog->start(request) ? State::Open : State::Failed; });
    }
    State look() {
        return timed([&] { return dialog->poll(paths); });
    }
    /// Looks at the dialog until it is no longer open.
    State end() {
        State state = State::Open;
        EXPECT_TRUE(waitFor([&] { return (state = look()) != State::Open; }));
        return state;
    }
    void close() {
        timed([&] {
            dialog.reset();
            return State::Ended;
        });
    }

    const pedl::test::TemporaryFolder temporary;
    const std::string& folder = temporary.path();
    FileDialogRequest request;
    ManualClock clock; // stands still: the user has not seen the dialog yet
    std::unique_ptr<FileDialogBackend> dialog;
    Paths paths;

private:
    template <class Step> State timed(Step step) {
        const double before = realMs();
        const State state = step();
        const double ms = realMs() - before;
        EXPECT_LT(ms, 50) << "the host's idle was held";
        return state;
    }
    static std::vector<std::string> openFiles() {
        std::vector<std::string> names;
        for (const auto& file : std::filesystem::directory_iterator("/proc/self/fd")) {
            std::error_code gone; // the listing's own
            const auto target = std::filesystem::read_symlink(file, gone);
            if (!gone && target.string().find("/fd") == std::string::npos)
                names.push_back(file.path().filename().string() + " " + target.string());
        }
        std::sort(names.begin(), names.end());
        return names;
    }

    std::map<std::string, std::optional<std::string>> environmentBefore_;
    std::vector<std::string> openFilesBefore_;
};

} // namespace VSTGUI
