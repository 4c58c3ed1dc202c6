#include <fcntl.h>
#include <signal.h>

#include "tests/foundation/vstgui/DialogFixture.h"
#include "tests/foundation/vstgui/FileDelegate.h"
#include "tests/foundation/vstgui/ToolkitWindow.h"

namespace VSTGUI {
namespace {

using pedl::test::readText;

/// The places of the dialogs while no desktop is named.
constexpr int32_t kZenityIndex = 1, kKDialogIndex = 2;

/// With programs of the test's own in the place of zenity and kdialog.
class ProgramDialog : public DialogFixture {
protected:
    void install(const std::string& name, const std::string& script) {
        write(name, "#!/bin/sh\n" + script + "\n");
        std::filesystem::permissions(path(name), std::filesystem::perms::owner_all);
    }
    State startZenity(const std::string& script) {
        install("zenity", script);
        return start(createSystemFileDialog(kZenityIndex));
    }
    State ask(const std::string& script) {
        EXPECT_EQ(startZenity(script), State::Open);
        return end();
    }
    /// Looks at the dialog until the program has written the file.
    void awaitFile(const std::string& name) {
        ASSERT_TRUE(waitFor([&] {
            EXPECT_EQ(look(), State::Open);
            return !readText(path(name)).empty();
        }));
    }
    bool isAlive(const std::string& fileWithNumber) {
        return kill(std::stoi(readText(path(fileWithNumber))), 0) == 0;
    }
    bool goes(const std::string& fileWithNumber) {
        return waitFor([&] {
            clock.advance(100);
            CVSTGUITimer::fireDueTimers();
            return !isAlive(fileWithNumber);
        });
    }
    static const char* sayAnswer() { return R"(printf '%s\n' "$ANSWER")"; }
    static const char* hang() { return "echo $$ > ${0%/*}/pid; while :; do /bin/sleep 60; done"; }
    static const char* sayArguments() {
        return R"(printf '%s\n' "$@" > ${0%/*}/arguments; echo /chosen)";
    }
};

TEST_F(ProgramDialog, ReturnsNamesAsTheyAre) {
    for (const std::string name :
         {"plain.zmt", "with space.zmt ", "it's \"quoted\".zmt", "two\nlines.zmt", "end\n",
          "\u00fc\u4e2d.zmt", "not\xfftext.zmt", "-dash $HOME `id`.zmt", "a|b;c.zmt"}) {
        set("ANSWER", "/a b/" + name);
        EXPECT_EQ(ask(sayAnswer()), State::Ended);
        EXPECT_EQ(paths, Paths{"/a b/" + name});
    }
    request.kind = Kind::OpenFiles;
    set("ANSWER", "/a\n/b//c\n//d/e"); // of which "//" separates
    install("kdialog", R"(printf '%s\n' "/a b" "/c
d" /e)");
    EXPECT_EQ(ask(R"(printf '%s\n' '/a
b///c///d e/f')"),
              State::Ended);
    EXPECT_EQ(paths, (Paths{"/a\nb", "/c", "/d e/f"}));
    start(createSystemFileDialog(kKDialogIndex));
    end();
    EXPECT_EQ(paths, (Paths{"/a b", "/c\nd", "/e"}));
}

TEST_F(ProgramDialog, PassesTheRequestOn) {
    const std::string zenity = "--file-selection\n--modal\n--attach=44040199\n"
                               "--title=Load \"presets\"\n--filename=" +
                               folder + "/";
    const std::string kdialog = "--attach=44040199\n--title=Load \"presets\"\n";
    const std::string filters = "\n--file-filter=Presets | *.zmt *.ZMT"
                                "\n--file-filter=Banks | *.zmb *.ZMB\n";
    const std::string allFilters = "/\nPresets (*.zmt *.ZMT *.zmb *.ZMB)\n";
    install("kdialog", sayArguments());
    struct Row {
        Kind kind;
        std::string zenity, kdialog;
    };
    for (const Row& row :
         {Row{Kind::OpenFile, filters, "--getopenfilename\n" + folder + allFilters},
          {Kind::OpenFiles, "\n--multiple\n--separator=//" + filters,
           "--multiple\n--separate-output\n--getopenfilename\n" + folder + allFilters},
          {Kind::ChooseDirectory, "\n--directory" + filters,
           "--getexistingdirectory\n" + folder + "/\n"},
          {Kind::SaveFile, "-new.zmt\n--save\n--confirm-overwrite" + filters,
           "--getsavefilename\n" + folder + "/-new.zmt\nPresets (*.zmt *.ZMT *.zmb *.ZMB)\n"}}) {
        request.kind = row.kind;
        request.saveName = row.kind == Kind::SaveFile ? "-new" : "";
        EXPECT_EQ(ask(sayArguments()), State::Ended);
        EXPECT_EQ(readText(path("arguments")), zenity + row.zenity);
        start(createSystemFileDialog(kKDialogIndex));
        EXPECT_EQ(end(), State::Ended);
        EXPECT_EQ(readText(path("arguments")), kdialog + row.kdialog);
    }
}

TEST_F(ProgramDialog, EndsWithoutAChoice) {
    struct Row {
        const char *story, *script;
    };
    for (const Row row : {Row{"cancelled", "exit 1"},
                          {"crashed", "kill -SEGV $$"},
                          {"killed, its answer half said", "printf /a; kill -9 $$"},
                          {"chose nothing", "echo"},
                          {"said something else", "echo Gtk-Message: hello"},
                          {"closed its output first", "exec >&-; exit 1"},
                          {"cannot be run", "exit 127"},
                          {"never stops talking", "while :; do echo /aaaaaaaaaaaaaaaaaaaaa; done"}})
        for (const bool wasSeen : {true, false}) {
            SCOPED_TRACE(row.story);
            ASSERT_EQ(startZenity(row.script), State::Open);
            clock.advance(wasSeen ? 600 : 400);
            EXPECT_EQ(end(), wasSeen ? State::Ended : State::Failed);
            EXPECT_TRUE(paths.empty());
        }
}

TEST_F(ProgramDialog, IsTheDesktopsOwnWhereBothAreThere) {
    install("kdialog", "echo /kdialog");
    set("ANSWER", "/zenity");
    install("zenity", sayAnswer());
    for (const char* desktop : {"GNOME", "ubuntu:KDE", "KDE", "KDEX"}) {
        set("XDG_CURRENT_DESKTOP", desktop);
        const bool isKde = std::string(desktop).ends_with("KDE");
        start(createSystemFileDialog(1));
        end();
        EXPECT_EQ(paths, Paths{isKde ? "/kdialog" : "/zenity"}) << desktop;
        start(createSystemFileDialog(2));
        end();
        EXPECT_EQ(paths, Paths{isKde ? "/zenity" : "/kdialog"}) << desktop;
    }
    set("PATH", path("empty"));
    EXPECT_EQ(start(createSystemFileDialog(1)), State::Failed);
    EXPECT_EQ(start(createSystemFileDialog(0)), State::Failed) << "no bus";
    EXPECT_EQ(createSystemFileDialog(3), nullptr);
}

TEST_F(ProgramDialog, HasNothingOfTheHosts) {
    set("LD_LIBRARY_PATH", folder);
    set("GTK_PATH", folder);
    set("QT_PLUGIN_PATH", folder);
    set("GDK_BACKEND", "wayland");
    set("LC_ALL", "C");
    set("KEPT", "as it is");
    const int file = fcntl(STDERR_FILENO, F_DUPFD, 40); // as careless hosts leave them
    sigset_t blocked, before;
    sigemptyset(&blocked);
    sigaddset(&blocked, SIGTERM);
    sigprocmask(SIG_BLOCK, &blocked, &before);
    const auto handler = signal(SIGPIPE, SIG_IGN);
    const State state = ask(R"(cd ${0%/*}
/usr/bin/env > environment; /bin/cat /proc/self/status > status
[ -e /proc/$$/fd/40 ] && echo leaked > leaked
/bin/cat > input; echo through >&2; /bin/readlink /proc/$$/fd/0 /proc/$$/fd/2 > files; echo /ok)");
    signal(SIGPIPE, handler);
    sigprocmask(SIG_SETMASK, &before, nullptr);
    ::close(file);
    EXPECT_EQ(state, State::Ended);
    EXPECT_EQ(paths, Paths{"/ok"});

    const std::string environment = "\n" + readText(path("environment"));
    for (const char* gone : {"LD_LIBRARY_PATH=", "GTK_PATH=", "QT_PLUGIN_PATH=", "LC_ALL="})
        EXPECT_EQ(environment.find(std::string("\n") + gone), std::string::npos) << gone;
    for (const char* there : {"GDK_BACKEND=x11", "LC_CTYPE=C.UTF-8", "KEPT=as it is", "PATH="})
        EXPECT_NE(environment.find(std::string("\n") + there), std::string::npos) << there;
    const std::string status = readText(path("status"));
    for (const char* field : {"SigBlk:\t", "SigIgn:\t"}) {
        const std::string bits = status.substr(status.find(field) + 8, 16);
        // 32 and 33 are the C library's own
        EXPECT_EQ(std::stoull(bits, nullptr, 16) & 0x7fffffff, 0) << field << bits;
    }
    EXPECT_EQ(readText(path("leaked")), "");
    EXPECT_EQ(readText(path("files")), "/dev/null\n/dev/null\n");
}

TEST_F(ProgramDialog, GoesWithAllItStartedHoweverItRefuses) {
    ASSERT_EQ(startZenity("trap '' TERM; (trap '' TERM; echo $$ > /dev/null; "
                          "while :; do /bin/sleep 60; done) & echo $! > ${0%/*}/child; " +
                          std::string(hang())),
              State::Open);
    awaitFile("pid");
    EXPECT_TRUE(isAlive("pid"));
    close();
    EXPECT_TRUE(goes("pid"));
    EXPECT_TRUE(goes("child"));
}

TEST_F(ProgramDialog, WorksInAHostThatIgnoresItsChildren) {
    const auto handler = signal(SIGCHLD, SIG_IGN);
    set("ANSWER", "/a b");
    EXPECT_EQ(ask(sayAnswer()), State::Ended);
    EXPECT_EQ(paths, Paths{"/a b"});
    startZenity("exit 1");
    clock.advance(600);
    EXPECT_EQ(end(), State::Ended);
    EXPECT_TRUE(paths.empty());
    startZenity(hang());
    awaitFile("pid");
    close();
    EXPECT_TRUE(goes("pid"));
    signal(SIGCHLD, handler);
}

TEST_F(ProgramDialog, AsksAgainBeforeTheExtensionMeetsAFileThatIsThere) {
    request.kind = Kind::SaveFile;
    set("ANSWER", path("fresh"));
    EXPECT_EQ(ask(sayAnswer()), State::Ended);
    EXPECT_EQ(paths, Paths{path("fresh.zmt")});

    write("lead.zmt", "");
    set("ANSWER", path("lead"));
    const std::string script = R"(printf '%s\n' "$@" > ${0%/*}/arguments
case "$*" in *lead.zmt*) )";
    EXPECT_EQ(ask(script + "echo ${0%/*}/lead.zmt;; *) " + sayAnswer() + ";; esac"), State::Ended);
    EXPECT_EQ(paths, Paths{path("lead.zmt")});
    const std::string arguments = readText(path("arguments"));
    EXPECT_NE(arguments.find("--title=lead.zmt is there already\n"), std::string::npos);
    EXPECT_NE(arguments.find("--filename=" + path("lead.zmt")), std::string::npos);

    EXPECT_EQ(ask(script + "exit 1;; *) " + sayAnswer() + ";; esac"), State::Ended);
    EXPECT_TRUE(paths.empty()) << "not to be replaced";
}

/// The first of the system's dialogs that works, as if the window were one of X11.
class OnX11 : public FileDialogBackend {
public:
    explicit OnX11(int32_t index) : dialog_(createSystemFileDialog(index)) {}
    bool start(const FileDialogRequest& request) override {
        FileDialogRequest onX11 = request;
        onX11.window = 1;
        return dialog_->start(onX11);
    }
    State poll(std::vector<std::string>& paths) override { return dialog_->poll(paths); }

private:
    std::unique_ptr<FileDialogBackend> dialog_;
};

TEST_F(ProgramDialog, LeavesTheEditorDrawingAndGoesWithIt) {
    install("kdialog", std::string(hang()));
    setFileDialogFactory([](int32_t index) -> std::unique_ptr<FileDialogBackend> {
        return index < 3 ? std::make_unique<OnX11>(index) : nullptr;
    });
    auto* delegate = new FileDelegate;
    {
        ToolkitWindow w;
        ScriptedControl* knob = w.add("knob", CRect(0, 0, 20, 20));
        const auto turn = [&] {
            w.clock.advance(20);
            const double before = realMs();
            w.window().turn();
            EXPECT_LT(realMs() - before, 50);
        };
        const auto ask = [&] {
            CNewFileSelector* selector = CNewFileSelector::create(&w.theFrame());
            selector->run(delegate);
            selector->forget();
        };
        ask();
        ASSERT_TRUE(waitFor([&] {
            turn();
            return !readText(path("pid")).empty();
        }));
        w.log.take();
        knob->invalid();
        turn();
        EXPECT_EQ(w.log.take(), "knob draw");
        EXPECT_TRUE(isAlive("pid"));
        w.close();
        EXPECT_TRUE(goes("pid"));
        EXPECT_EQ(delegate->ends, 0);
    }
    setFileDialogFactory(nullptr);
    delegate->forget();
}

} // namespace
} // namespace VSTGUI
