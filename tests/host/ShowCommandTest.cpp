// A plug-in's editor in the command's window, as the plug-in and the user see it.

#include "foundation/vst24/VstStructures.h"
#include "host/PrivateXServer.h"
#include "tests/host/SoundFiles.h"
#include "tests/support/ShellCommand.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <cstring>
#include <thread>
#include <xcb/xcb.h>

namespace pedl {
namespace {

using namespace test;

class ShowCommandTest : public testing::Test {
protected:
    void SetUp() override {
        server_ = PrivateXServer::start();
        if (!server_)
            GTEST_SKIP() << "Xvfb is not installed";
        server_->use();
        xcb_.reset(xcb_connect(nullptr, nullptr));
        writeSound(folder_ / "in.wav", 2, 48000, 4800, [](long, int) { return 0.5; });
    }

    Outcome show(const std::string& arguments, const std::string& before) {
        return runInShell(folder_, before + " exec '" PEDL_COMMAND "' show --plugin '" +
                                       PEDL_STUB_PLUGIN + "' --verbose " + arguments);
    }

    /// The command's window once it is there; there is no window manager to put one around it.
    xcb_window_t window() {
        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(xcb_.get())).data->root;
        for (int wait = 0; wait < 500; ++wait) {
            xcb_query_tree_reply_t* const tree =
                xcb_query_tree_reply(xcb_.get(), xcb_query_tree(xcb_.get(), root), nullptr);
            const xcb_window_t found =
                tree->children_len > 0 ? xcb_query_tree_children(tree)[0] : XCB_NONE;
            std::free(tree);
            if (found != XCB_NONE)
                return found;
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
        }
        return XCB_NONE;
    }

    xcb_atom_t atom(const char* name) {
        const auto length = static_cast<std::uint16_t>(std::strlen(name));
        xcb_intern_atom_reply_t* const reply = xcb_intern_atom_reply(
            xcb_.get(), xcb_intern_atom(xcb_.get(), 0, length, name), nullptr);
        const xcb_atom_t atom = reply->atom;
        std::free(reply);
        return atom;
    }

    void pressCloseButton(xcb_window_t window) {
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = window;
        message.type = atom("WM_PROTOCOLS");
        message.data.data32[0] = atom("WM_DELETE_WINDOW");
        xcb_send_event(xcb_.get(), 0, window, 0, reinterpret_cast<const char*>(&message));
        xcb_flush(xcb_.get());
    }

    TemporaryFolder folder_;
    std::unique_ptr<PrivateXServer> server_;
    std::unique_ptr<xcb_connection_t, void (*)(xcb_connection_t*)> xcb_{nullptr, xcb_disconnect};
};

TEST_F(ShowCommandTest, TheEditorIdlesWhileASoundRunsInRealTimeAndIsPicturedInItsSize) {
    const Outcome shown =
        show("--play in.wav --seconds 1 --screenshot shot.png --set Gain=100", "STUB_EDITOR=0");
    EXPECT_EQ(shown.status, 0) << shown.error;
    EXPECT_EQ(shown.out, "shot.png: 300 x 200 pixels\n") << "as it wished once it was open";
    EXPECT_TRUE(readText(folder_ / "shot.png").starts_with("\x89PNG"));
    EXPECT_NE(shown.error.find("playing in.wav "), std::string::npos);
    const char* const told = std::strstr(shown.error.c_str(), "editor: ");
    int turns = 0, level = 0, frames = 0, levelOfAudio = 0, loops = 0;
    ASSERT_TRUE(told != nullptr &&
                std::sscanf(told, "editor: %d turns at level %d, %d frames at level %d in %d loops",
                            &turns, &level, &frames, &levelOfAudio, &loops) == 5)
        << shown.error;
    EXPECT_EQ(level, kVstProcessLevelUser);
    EXPECT_EQ(levelOfAudio, kVstProcessLevelRealtime);
    EXPECT_GE(turns, 10) << "40 on a machine that has nothing else to do";
    EXPECT_LE(turns, 80);
    EXPECT_GE(frames, 40000);
    EXPECT_LE(frames, 80000);
    EXPECT_NEAR(loops, frames / 4800, 1);
}

TEST_F(ShowCommandTest, WhateverEndsItTheEditorIsClosedBeforeThePlugInGoes) {
    struct End {
        const char* story;
        int status;
        std::function<void(xcb_window_t)> act;
        int signal = 0; // that the plug-in sends
    };
    const auto destroy = [this](xcb_window_t window) {
        xcb_destroy_window(xcb_.get(), window);
        xcb_flush(xcb_.get());
    };
    const auto nothing = [](xcb_window_t /*window*/) {};
    for (const End& end :
         {End{"close button", 0, [this](xcb_window_t window) { pressCloseButton(window); }},
          End{"destroyed", 1, destroy}, End{"SIGTERM", 128 + SIGTERM, nothing, SIGTERM},
          End{"Ctrl-C", 128 + SIGINT, nothing, SIGINT},
          End{"server gone", 1, [this](xcb_window_t /*window*/) { server_->kill(); }}}) {
        SCOPED_TRACE(end.story);
        Outcome outcome;
        {
            const std::jthread user([&] { end.act(window()); });
            outcome = show("--play in.wav", "STUB_EDITOR=" + std::to_string(end.signal));
        }
        EXPECT_EQ(outcome.status, end.status) << outcome.error;
        EXPECT_NE(outcome.error.find(" loops\nstub: gone\n"), std::string::npos) << outcome.error;
    }
}

TEST_F(ShowCommandTest, APlugInWithoutAnEditorIsRefused) {
    const Outcome refused = show("--screenshot shot.png", "");
    EXPECT_EQ(refused.status, 1);
    EXPECT_NE(refused.error.find("stub_plugin.so: the plug-in has no editor\n"), std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder_ / "shot.png"));
}

} // namespace
} // namespace pedl
