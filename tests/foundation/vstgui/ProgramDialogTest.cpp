#include <fcntl.h>
#include <signal.h>

#include "tests/foundation/vstgui/DialogFixture.h"

namespace VSTGUI {
namespace {

using pedl::test::readText;

/// Among the dialogs of the system while no desktop is named.
constexpr int32_t kZenity = 1, kKDialog = 2;

/// With programs of the test's own in the place of zenity and kdialog.
class ProgramDialog : public DialogFixture {
protected:
    void install(const std::string& name, const std::string& script) {
        pedl::test::writeText(path(name), "#!/bin/sh\nhere=${0%/*}\n" + script + "\n");
        std::filesystem::permissions(path(name), std::filesystem::perms::owner_all);
    }
    State askZenity(const std::string& script) {
        install("zenity", script);
        return ask(kZenity);
    }
    bool goes(const std::string& fileWithNumber) {
        const pid_t process = std::stoi(readText(path(fileWithNumber)));
        return waitFor([&] {
            ChildProgram::reapLate();
            return kill(process, 0) != 0;
        });
    }
    static constexpr const char* kSayAnswer = R"(printf '%s\n' "$ANSWER")";
    static constexpr const char* kSayArguments = R"(printf '%s|' "$@" > $here/arguments)";
};

TEST_F(ProgramDialog, ReturnsNamesAsTheyAre) {
    for (const std::string name :
         {"it's \"quoted\".zmt ", "two\nlines\n", "not\xfftext", "-dash $HOME `id`"}) {
        set("ANSWER", "/a b/" + name);
        EXPECT_EQ(askZenity(kSayAnswer), State::Ended);
        EXPECT_EQ(paths, Paths{"/a b/" + name});
    }
    request.kind = Kind::OpenFiles;
    set("ANSWER", "/a\nb///c///d e/f");
    askZenity(kSayAnswer);
    EXPECT_EQ(paths, (Paths{"/a\nb", "/c", "/d e/f"}));
    set("ANSWER", "/a b\n/c\nd\n/e");
    install("kdialog", kSayAnswer);
    ask(kKDialog);
    EXPECT_EQ(paths, (Paths{"/a b", "/c\nd", "/e"}));
}

TEST_F(ProgramDialog, PassesTheRequestOn) {
    const std::string common = "--attach=44040199|--title=Load \"presets\"|";
    const std::string zenity = "--file-selection|--modal|" + common + "--filename=" + folder;
    const std::string filters = "|--file-filter=Presets | *.zmt *.ZMT"
                                "|--file-filter=Banks | *.zmb *.ZMB|";
    const std::string allFilters = "|Presets (*.zmt *.ZMT *.zmb *.ZMB)|";
    install("kdialog", kSayArguments);
    struct Row {
        Kind kind;
        std::string zenity, kdialog;
    };
    for (const Row& row :
         {Row{Kind::OpenFile, "/" + filters, "--getopenfilename|" + folder + "/" + allFilters},
          {Kind::OpenFiles, "/|--multiple|--separator=//" + filters,
           "--multiple|--separate-output|--getopenfilename|" + folder + "/" + allFilters},
          {Kind::ChooseDirectory, "/|--directory" + filters,
           "--getexistingdirectory|" + folder + "/|"},
          {Kind::SaveFile, "/-new.zmt|--save|--confirm-overwrite" + filters,
           "--getsavefilename|" + folder + "/-new.zmt" + allFilters}}) {
        request.kind = row.kind;
        request.saveName = row.kind == Kind::SaveFile ? "-new" : "";
        askZenity(kSayArguments);
        EXPECT_EQ(readText(path("arguments")), zenity + row.zenity);
        ask(kKDialog);
        EXPECT_EQ(readText(path("arguments")), common + row.kdialog);
    }
}

TEST_F(ProgramDialog, EndsWithoutAChoice) {
    for (const char* script :
         {"exit 1 # cancelled", "printf /a; kill -9 $$", "echo", "echo Gtk-Message: hello",
          "exec >&-; exit 1", "while :; do echo /aaaaaaaaaaaaaaaaaaaaa; done"})
        for (const uint64_t seenMs : {400, 600}) {
            install("zenity", script);
            ASSERT_EQ(start(kZenity), State::Open);
            clock.advance(seenMs);
            EXPECT_EQ(end(), seenMs > 500 ? State::Ended : State::Failed) << script;
            EXPECT_TRUE(paths.empty());
        }
}

TEST_F(ProgramDialog, IsTheDesktopsOwnWhereBothAreThere) {
    install("kdialog", "echo /kdialog");
    for (const std::string desktop : {"GNOME", "ubuntu:KDE", "KDE", "KDEX"}) {
        set("XDG_CURRENT_DESKTOP", desktop);
        askZenity("echo /zenity"); // the first of the two, whichever it is
        EXPECT_EQ(paths, Paths{desktop.ends_with("KDE") ? "/kdialog" : "/zenity"}) << desktop;
    }
    set("PATH", path("empty"));
    for (const int32_t dialogOfSystem : {0, 1, 2})
        EXPECT_EQ(start(dialogOfSystem), State::Failed) << "no bus, no program";
    EXPECT_EQ(createSystemFileDialog(3), nullptr);
}

TEST_F(ProgramDialog, HasNothingOfTheHosts) {
    set("LD_LIBRARY_PATH", folder);
    set("GTK_PATH", folder);
    set("GDK_BACKEND", "wayland");
    set("LC_ALL", "C");
    set("KEPT", "as it is");
    const int file = fcntl(STDERR_FILENO, F_DUPFD, 40); // as careless hosts leave them
    const auto handler = signal(SIGPIPE, SIG_IGN);
    askZenity("/usr/bin/env > $here/environment; [ -e /proc/$$/fd/40 ] || echo /ok\n"
              "/bin/grep SigIgn /proc/self/status > $here/ignored");
    signal(SIGPIPE, handler);
    close(file);
    EXPECT_EQ(paths, Paths{"/ok"});
    const std::string environment = "\n" + readText(path("environment"));
    for (const char* gone : {"\nLD_LIBRARY_PATH=", "\nGTK_PATH=", "\nLC_ALL=", "wayland"})
        EXPECT_EQ(environment.find(gone), std::string::npos) << gone;
    for (const char* there : {"\nGDK_BACKEND=x11", "\nLC_CTYPE=C.UTF-8", "\nKEPT=as it is"})
        EXPECT_NE(environment.find(there), std::string::npos) << there;
    EXPECT_TRUE(readText(path("ignored")).ends_with("0000000\n"));
}

TEST_F(ProgramDialog, GoesWithAllItStartedHoweverItRefusesAndWhateverTheHostDoesWithChildren) {
    for (const auto childrensEnd : {SIG_DFL, SIG_IGN}) {
        const auto handler = signal(SIGCHLD, childrensEnd);
        install("zenity",
                "trap '' TERM; (while :; do /bin/sleep 60; done) & echo $! > $here/child\n"
                "echo $$ > $here/pid; while :; do /bin/sleep 60; done");
        ASSERT_EQ(start(kZenity), State::Open);
        EXPECT_TRUE(waitFor([&] { return readText(path("pid")).ends_with('\n'); }));
        EXPECT_EQ(look(), State::Open);
        dialog.reset();
        EXPECT_TRUE(goes("pid") && goes("child"));
        std::filesystem::remove(path("pid"));
        signal(SIGCHLD, handler);
    }
}

TEST_F(ProgramDialog, AsksAgainBeforeTheExtensionMeetsAFileThatIsThere) {
    request.kind = Kind::SaveFile;
    set("ANSWER", path("lead"));
    askZenity(kSayAnswer);
    EXPECT_EQ(paths, Paths{path("lead.zmt")});
    pedl::test::writeText(path("lead.zmt"), "");
    const std::string script = kSayArguments + std::string("; case \"$*\" in *lead.zmt*) ");
    askZenity(script + "echo $here/lead.zmt;; *) " + kSayAnswer + ";; esac");
    EXPECT_EQ(paths, Paths{path("lead.zmt")});
    EXPECT_NE(readText(path("arguments"))
                  .find("--title=lead.zmt is there already|--filename=" + path("lead.zmt")),
              std::string::npos);
    EXPECT_EQ(askZenity(script + "exit 1;; *) " + kSayAnswer + ";; esac"), State::Ended);
    EXPECT_TRUE(paths.empty()) << "not to be replaced";
}

} // namespace
} // namespace VSTGUI
