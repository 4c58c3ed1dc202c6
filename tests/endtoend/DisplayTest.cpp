// When a library with an editor looks for a display, and what happens where there is none.

#include "tests/support/PluginLibrary.h"
#include "tests/support/StereoBuffer.h"

#include <arpa/inet.h>
#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <string>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace pedl::test {

namespace {

constexpr VstInt32 kBlockFrames = 512;
constexpr std::uint16_t kFirstDisplayPort = 6000;

/// Where a display would listen. Nobody answers, but whoever asks is seen.
class SilentDisplay {
public:
    SilentDisplay() : listener_(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_in address{};
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        for (std::uint16_t number = 200; number < 300 && display_.empty(); ++number) {
            address.sin_port = htons(static_cast<std::uint16_t>(kFirstDisplayPort + number));
            if (bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
                listen(listener_, 8) == 0)
                display_ = "127.0.0.1:" + std::to_string(number);
        }
        setenv("DISPLAY", display_.c_str(), 1);
    }
    ~SilentDisplay() { close(listener_); }
    SilentDisplay(const SilentDisplay&) = delete;
    SilentDisplay& operator=(const SilentDisplay&) = delete;

    [[nodiscard]] bool isListening() const { return !display_.empty(); }
    [[nodiscard]] bool wasAsked(int waitMs = 0) const {
        pollfd waiting{listener_, POLLIN, 0};
        return poll(&waiting, 1, waitMs) == 1;
    }
    void hangUp() const { close(accept(listener_, nullptr, nullptr)); }

private:
    int listener_;
    std::string display_;
};

float loudestOf(AEffect* effect) {
    auto buffer = noise<float>(kBlockFrames, 1);
    auto pointers = buffer.from(0);
    float loudest = 0.0F;
    for (int block = 0; block < 8; ++block)
        effect->processReplacing(effect, pointers.data(), pointers.data(), kBlockFrames);
    for (VstInt32 frame = 0; frame < kBlockFrames; ++frame)
        loudest = std::max(loudest, std::abs(pointers[0][frame]));
    return loudest;
}

/// What scanners ask of an instance.
void scan(AEffect* effect) {
    ERect* size = nullptr;
    EXPECT_NE(effect->flags & effFlagsHasEditor, 0);
    EXPECT_EQ(dispatch(effect, effEditGetRect, 0, 0, static_cast<void*>(&size)), 1);
    ASSERT_NE(size, nullptr);
    EXPECT_EQ(size->right, 521);
    EXPECT_EQ(size->bottom, 544);
    char text[256] = {};
    dispatch(effect, effGetEffectName, 0, 0, text);
    for (VstInt32 index = 0; index < effect->numParams; ++index) {
        dispatch(effect, effGetParamName, index, 0, text);
        dispatch(effect, effGetParamDisplay, index, 0, text);
        effect->setParameter(effect, index, effect->getParameter(effect, index));
    }
}

class Display : public testing::Test {
protected:
    RecordingHost host;
    PluginLibrary library{PEDL_TOOLKIT_PROBE_PATH};
};

} // namespace

TEST_F(Display, IsAskedForByNothingButAnOpenEditor) {
    const SilentDisplay display;
    ASSERT_TRUE(display.isListening());
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    scan(effect.get());
    EXPECT_GT(loudestOf(effect.get()), 0.0F);
    dispatch(effect.get(), effEditIdle);
    EXPECT_FALSE(display.wasAsked());

    // That the net catches something: an editor does ask.
    bool wasAsked = false;
    std::thread hangsUp([&] {
        wasAsked = display.wasAsked(10000);
        if (wasAsked)
            display.hangUp();
    });
    EXPECT_EQ(dispatch(effect.get(), effEditOpen, 0, 0, this), 0);
    hangsUp.join();
    EXPECT_TRUE(wasAsked);
    dispatch(effect.get(), effEditClose);
}

TEST_F(Display, WithoutOneTheEditorRefusesAndTheSoundGoesOn) {
    setenv("DISPLAY", ":no-such", 1);
    const RunningEffect effect(library, 48000.0F, kBlockFrames);
    for (int attempt = 0; attempt < 3; ++attempt) {
        EXPECT_EQ(dispatch(effect.get(), effEditOpen, 0, 0, this), 0);
        dispatch(effect.get(), effEditIdle);
        dispatch(effect.get(), effEditKeyDown, 'a');
        dispatch(effect.get(), effEditClose);
        EXPECT_GT(loudestOf(effect.get()), 0.0F);
    }
}

} // namespace pedl::test
