#include <sys/socket.h>
#include <sys/un.h>
#include <systemd/sd-bus.h>

#include "tests/foundation/vstgui/DialogFixture.h"
#include "vstgui/lib/platform/linux/portalfiledialog.h"

namespace VSTGUI {
namespace {

constexpr int32_t kPortal = 0; // among the dialogs of the system

/// With a session bus that starts nothing by itself, and a desktop's portal on it that answers as
/// it is told.
class PortalDialog : public DialogFixture {
protected:
    enum class Way { Shows, Refuses, Hangs, Answers };

    void SetUp() override {
        pedl::test::writeText(
            path("bus.conf"),
            "<busconfig><type>session</type><listen>unix:path=" + path("bus") +
                "</listen><policy context='default'><allow send_destination='*'/>"
                "<allow receive_sender='*'/><allow own='*'/></policy></busconfig>");
        set("PATH", "/usr/bin:/bin");
        daemon = ChildProgram::start(
            {"dbus-daemon", "--nofork", "--print-address", "--config-file=" + path("bus.conf")});
        if (!daemon)
            GTEST_SKIP() << "dbus-daemon is not installed";
        EXPECT_TRUE(waitFor([&] { return daemon->hasEnded() || !daemon->output().empty(); }));
        set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path("bus"));
        sd_bus_open_user(&bus);
        sd_bus_add_filter(bus, nullptr, onMessage, this);
    }
    void TearDown() override {
        dialog.reset();
        leave();
        daemon.reset();
    }
    void appear() { EXPECT_GE(sd_bus_request_name(bus, "org.freedesktop.portal.Desktop", 0), 0); }
    void leave() { bus = sd_bus_flush_close_unref(bus); }

    State look() override {
        while (bus && sd_bus_process(bus, nullptr) > 0)
            ;
        return dialog ? DialogFixture::look() : State::Ended;
    }
    void show() {
        ASSERT_EQ(start(kPortal), State::Open);
        ASSERT_TRUE(waitFor([&] { return look() != State::Open || !asked.empty(); }));
    }

    Way way = Way::Shows;
    uint32_t code = 0; // of an answer, which names the same files whatever it is
    std::string asked; // the method, and what it was given as the bus types it
    bool wasToldToClose = false;

private:
    static int onMessage(sd_bus_message* m, void* test, sd_bus_error*) {
        auto& self = *static_cast<PortalDialog*>(test);
        self.wasToldToClose |=
            sd_bus_message_is_method_call(m, "org.freedesktop.portal.Request", "Close") > 0;
        if (sd_bus_message_is_method_call(m, "org.freedesktop.portal.FileChooser", nullptr) <= 0)
            return 0;
        self.answer(m);
        return 1;
    }
    void answer(sd_bus_message* m) {
        char* text = nullptr;
        std::size_t size = 0;
        FILE* const file = open_memstream(&text, &size);
        sd_bus_message_dump(m, file, SD_BUS_MESSAGE_DUMP_SUBTREE_ONLY);
        fclose(file);
        asked = sd_bus_message_get_member(m) + std::string(text, size);
        free(text);
        if (way == Way::Refuses)
            sd_bus_reply_method_errorf(m, "org.freedesktop.portal.Error.Failed", "no");
        if (way == Way::Refuses || way == Way::Hangs)
            return;
        std::string sender = sd_bus_message_get_sender(m) + 1;
        std::ranges::replace(sender, '.', '_');
        const std::string handle = "/org/freedesktop/portal/desktop/request/" + sender + "/dialog";
        sd_bus_reply_method_return(m, "o", handle.c_str());
        if (way == Way::Answers)
            sd_bus_emit_signal(bus, handle.c_str(), "org.freedesktop.portal.Request", "Response",
                               "ua{sv}", code, 2, "choices", "a(ss)", 1, "a", "b", "uris", "as", 3,
                               "file:///a/%22b%FF", "http://x/y", "file:///c");
    }

    std::unique_ptr<ChildProgram> daemon;
    sd_bus* bus = nullptr;
};

TEST(FileUri, IsThePathOnThisMachineByteByByte) {
    for (const auto& [uri, path] : std::map<std::string, std::string>{
             {"file:///a%20b/%22it's%22%0A.zmt", "/a b/\"it's\"\n.zmt"},
             {"file://localhost/%C3%bc%ff", "/\u00fc\xff"},
             {"file:/100%25", "/100%"},
             {"file://server/share", ""},
             {"file:////server/share", ""},
             {"/a", ""},
             {"file:///a%00b", ""},
             {"file:///a%4", ""}})
        EXPECT_EQ(pathFromUri(uri), path) << uri;
}

TEST_F(PortalDialog, PassesTheRequestOnAndTheAnswerBack) {
    appear();
    way = Way::Answers;
    pedl::test::writeText(path("lead.zmt"), "");
    struct Row {
        Kind kind;
        std::string saveName, method, options; // those that not every request has
    };
    for (const Row& row :
         {Row{Kind::OpenFile, "", "OpenFile", " filters"},
          {Kind::OpenFiles, "", "OpenFile", " filters multiple"},
          {Kind::ChooseDirectory, "", "OpenFile", " directory"},
          {Kind::SaveFile, "-new", "SaveFile", " filters current_name"},
          {Kind::SaveFile, "lead", "SaveFile", " filters current_name current_file"},
          {Kind::SaveFile, "no\xfftext", "SaveFile", " filters"}}) {
        SCOPED_TRACE(row.method + " " + row.saveName);
        const bool isChosen = row.kind == Kind::OpenFiles;
        code = isChosen ? 0 : 1;
        request.kind = row.kind;
        request.saveName = row.saveName;
        EXPECT_EQ(ask(kPortal), State::Ended);
        EXPECT_EQ(paths, isChosen ? (Paths{"/a/\"b\xff", "/c"}) : Paths{});
        const auto has = [&](const std::string& text) {
            return asked.find("\"" + text + "\"") != std::string::npos;
        };
        EXPECT_TRUE(asked.starts_with(row.method) && has("x11:2a00007") &&
                    has("Load \"presets\"") && has("modal") && has("current_folder"))
            << asked;
        std::string options;
        for (const char* name :
             {"filters", "multiple", "directory", "current_name", "current_file"})
            options += has(name) ? " " + std::string(name) : "";
        EXPECT_EQ(options, row.options);
        EXPECT_EQ(has(row.saveName + ".zmt"), has("current_name"));
        EXPECT_LE(asked.find("\"*.ZMT\""), asked.find("\"*.zmb\""));
    }
}

TEST_F(PortalDialog, GivesWayToTheNextDialogWhereNobodySawIt) {
    EXPECT_EQ(ask(kPortal), State::Failed) << "no portal on the bus";
    appear();
    way = Way::Refuses;
    EXPECT_EQ(ask(kPortal), State::Failed);
    way = Way::Answers;
    code = 2;
    EXPECT_EQ(ask(kPortal), State::Failed) << "ended by itself at once";
    way = Way::Hangs;
    asked.clear();
    show();
    clock.advance(4000);
    EXPECT_EQ(look(), State::Open) << "it may be starting up";
    clock.advance(2000);
    EXPECT_EQ(look(), State::Failed);
    request.window = 0;
    EXPECT_EQ(start(kPortal), State::Failed) << "no display";
}

TEST_F(PortalDialog, GoesWithTheEditorAndCountsAsCancelledWhenItDies) {
    appear();
    show();
    dialog.reset();
    EXPECT_TRUE(waitFor([&] { return look(), wasToldToClose; }));
    asked.clear();
    show();
    leave();
    EXPECT_EQ(end(), State::Ended);
    EXPECT_TRUE(paths.empty());
}

TEST_F(DialogFixture, DoesNotWaitForABusThatIsHungOrFarAway) {
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{AF_UNIX, {}};
    path("hung").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(listener, 1), 0);
    set("DBUS_SESSION_BUS_ADDRESS", "tcp:host=far;unixexec:path=/b;unix:path=" + path("hung"));
    EXPECT_EQ(sessionBusAddresses(), "unix:path=" + path("hung"));
    ASSERT_EQ(start(kPortal), State::Open);
    EXPECT_EQ(look(), State::Open);
    clock.advance(2000);
    EXPECT_EQ(look(), State::Failed);
    dialog.reset();
    close(listener);
}

} // namespace
} // namespace VSTGUI
