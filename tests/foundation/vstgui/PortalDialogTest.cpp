#include <sys/socket.h>
#include <sys/un.h>

#include "tests/foundation/vstgui/DialogFixture.h"
#include "vstgui/lib/platform/linux/portalfiledialog.h"

namespace VSTGUI {
namespace {

constexpr const char* kBusSettings = R"(<!DOCTYPE busconfig PUBLIC
 "-//freedesktop//DTD D-BUS Bus Configuration 1.0//EN"
 "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">
<busconfig>
  <type>session</type>
  <listen>unix:path=PLACE</listen>
  <auth>EXTERNAL</auth>
  <policy context="default">
    <allow send_destination="*" eavesdrop="true"/>
    <allow eavesdrop="true"/>
    <allow own="*"/>
  </policy>
</busconfig>
)";

/// With a session bus that starts nothing by itself.
class PortalDialog : public DialogFixture {
protected:
    void SetUp() override {
        std::string settings = kBusSettings;
        settings.replace(settings.find("PLACE"), 5, path("bus"));
        write("bus.conf", settings);
        set("PATH", "/usr/bin:/bin");
        bus = ChildProgram::start(
            {"dbus-daemon", "--nofork", "--print-address", "--config-file=" + path("bus.conf")});
        if (!bus)
            GTEST_SKIP() << "dbus-daemon is not installed";
        ASSERT_TRUE(waitFor([&] { return bus->hasEnded() || !bus->output().empty(); }));
        set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path("bus"));
    }
    void TearDown() override {
        dialog.reset();
        portal.reset();
        bus.reset();
    }

    void startPortal(std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), PEDL_FAKE_PORTAL);
        portal = ChildProgram::start(arguments);
        ASSERT_NE(portal, nullptr);
        ASSERT_TRUE(waitFor([&] { return portal->hasEnded() || !portal->output().empty(); }));
        ASSERT_EQ(portal->output(), "ready\n");
    }
    bool portalSays(const std::string& text) {
        return waitFor([&] {
            if (dialog)
                look();
            portal->hasEnded();
            return portal->output().find(text) != std::string::npos;
        });
    }
    /// Returns when the portal has taken the call and its answer has had time to arrive.
    void show() {
        ASSERT_EQ(start(createSystemFileDialog(0)), State::Open);
        ASSERT_TRUE(portalSays("OpenFile"));
        for (int turn = 0; turn < 20; ++turn, usleep(5000))
            EXPECT_EQ(look(), State::Open);
    }
    State ask() {
        const State started = start(createSystemFileDialog(0));
        return started == State::Open ? end() : started;
    }

    std::unique_ptr<ChildProgram> bus, portal;
};

TEST(FileUri, IsThePathOnThisMachineByteByByte) {
    struct Row {
        const char *uri, *path;
    };
    for (const Row row : {Row{"file:///a%20b/%22it's%22%0A.zmt", "/a b/\"it's\"\n.zmt"},
                          {"file://localhost/%C3%bc%ff", "/\u00fc\xff"},
                          {"file:/plain", "/plain"},
                          {"file:///100%25", "/100%"},
                          {"file://server/share", ""},
                          {"file:////server/share", ""},
                          {"http:///a", ""},
                          {"/a", ""},
                          {"file:///a%00b", ""},
                          {"file:///a%4", ""},
                          {"file:///a%zz", ""}})
        EXPECT_EQ(pathFromUri(row.uri), row.path) << row.uri;
}

TEST_F(DialogFixture, KnowsTheBusesThatNeedNoWaiting) {
    EXPECT_EQ(sessionBusAddresses(), "");
    set("DBUS_SESSION_BUS_ADDRESS", "tcp:host=far;unix:path=/a,guid=1;unixexec:path=/b;"
                                    "unix:abstract=/c");
    EXPECT_EQ(sessionBusAddresses(), "unix:path=/a,guid=1;unix:abstract=/c");
}

TEST_F(PortalDialog, ReturnsWhatWasChosen) {
    startPortal({"answer", "0", "file://" + folder + "/a%20%22b%22%0Ac%C3%A4%FF.zmt", "http://x/y",
                 "file:///second"});
    EXPECT_EQ(ask(), State::Ended);
    EXPECT_EQ(paths, (Paths{path("a \"b\"\nc\u00e4\xff.zmt"), "/second"}));
}

TEST_F(PortalDialog, PassesTheRequestOn) {
    startPortal({"answer", "1"});
    const std::string types = "filters ((Presets ((0 *.zmt) (0 *.ZMT))) (Banks ((0 *.zmb) (0 "
                              "*.ZMB))))";
    const std::string folderOption = "handle_token dialog modal 1 current_folder " + folder;
    write("lead.zmt", "");
    struct Row {
        Kind kind;
        const char *saveName, *method;
        std::string options;
    };
    for (const Row& row :
         {Row{Kind::OpenFile, "", "OpenFile", folderOption + " " + types},
          {Kind::OpenFiles, "", "OpenFile",
           "handle_token dialog modal 1 multiple 1 current_folder " + folder + " " + types},
          {Kind::ChooseDirectory, "", "OpenFile",
           "handle_token dialog modal 1 directory 1 current_folder " + folder},
          {Kind::SaveFile, "-new", "SaveFile", folderOption + " current_name -new.zmt " + types},
          {Kind::SaveFile, "lead", "SaveFile",
           folderOption + " current_file " + folder + "/lead.zmt current_name lead.zmt " + types},
          {Kind::SaveFile, "no\xfftext", "SaveFile", folderOption + " " + types}}) {
        request.kind = row.kind;
        request.saveName = row.saveName;
        EXPECT_EQ(ask(), State::Ended);
        EXPECT_TRUE(paths.empty());
        EXPECT_TRUE(portalSays(std::string(row.method) + " x11:2a00007|Load \"presets\"|(" +
                               row.options + ")\n"))
            << row.options << "\n"
            << portal->output();
    }
}

TEST_F(PortalDialog, GivesWayToTheNextDialogWhereNobodySawIt) {
    EXPECT_EQ(ask(), State::Failed) << "no portal on the bus";
    startPortal({"refuse"});
    EXPECT_EQ(ask(), State::Failed);
    portal.reset();
    startPortal({"answer", "2"});
    EXPECT_EQ(ask(), State::Failed) << "ended by itself at once";
    portal.reset();
    startPortal({"hang"});
    start(createSystemFileDialog(0));
    ASSERT_TRUE(portalSays("OpenFile"));
    clock.advance(4000);
    EXPECT_EQ(look(), State::Open) << "it may be starting up";
    clock.advance(2000);
    EXPECT_EQ(look(), State::Failed);
    close();
    EXPECT_TRUE(portalSays("Close")) << "it must not open later";
    bus.reset();
    EXPECT_EQ(ask(), State::Failed) << "the bus has gone";
    request.window = 0;
    EXPECT_EQ(ask(), State::Failed) << "no display";
}

TEST_F(PortalDialog, IsClosedWithTheEditor) {
    startPortal({"show"});
    show();
    clock.advance(60000);
    EXPECT_EQ(look(), State::Open) << "the user takes what time it takes";
    close();
    EXPECT_TRUE(portalSays("Close /org/freedesktop/portal/desktop/request/"));
}

TEST_F(PortalDialog, CountsAsCancelledWhenItDies) {
    startPortal({"leave"});
    EXPECT_EQ(ask(), State::Ended);
    EXPECT_TRUE(paths.empty());
    portal.reset();
    startPortal({"show"});
    show();
    bus.reset();
    EXPECT_EQ(end(), State::Ended);
    EXPECT_TRUE(paths.empty());
}

TEST_F(PortalDialog, DoesNotWaitForABusThatIsHung) {
    const int listener = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    path("hung").copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(listener, 1), 0);
    set("DBUS_SESSION_BUS_ADDRESS", "unix:path=" + path("hung"));
    ASSERT_EQ(start(createSystemFileDialog(0)), State::Open);
    for (int turn = 0; turn < 20; ++turn, usleep(1000))
        EXPECT_EQ(look(), State::Open);
    clock.advance(2000);
    EXPECT_EQ(look(), State::Failed);
    close();
    ::close(listener);
}

} // namespace
} // namespace VSTGUI
