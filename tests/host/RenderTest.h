#pragma once

#include "host/RenderCommand.h"
#include "tests/host/SoundFiles.h"
#include "tests/support/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace pedl::test {

/// A render from one file of the test's folder into another.
class RenderTest : public testing::Test {
protected:
    explicit RenderTest(const char* plugin) {
        request_.in = folder_ / "in.wav";
        request_.out = folder_ / "out.wav";
        request_.plugin = plugin;
    }

    /// Writes a saw as the input: every filter setting sounds different.
    void writeSaw(long frames) {
        writeSound(request_.in, 2, 48000, frames,
                   [](long frame, int) { return static_cast<double>(frame % 100) / 200.0 - 0.25; });
    }

    Sound rendered() { return rendered(request_); }
    static Sound rendered(const RenderRequest& request) {
        const Result<RenderReport> report = render(request);
        EXPECT_TRUE(report.ok()) << (report.ok() ? "" : report.problem().text);
        return report.ok() ? readSound(request.out) : Sound{2, 0, 0, {}};
    }

    TemporaryFolder folder_;
    RenderRequest request_;
};

} // namespace pedl::test
