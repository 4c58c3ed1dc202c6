#pragma once

#include "foundation/platform/Clock.h"
#include "foundation/platform/DiagnosticStream.h"
#include "foundation/vst24/AEffect.h"
#include "foundation/vst24/VstOpcodes.h"
#include "foundation/vst24/VstStructures.h"
#include "presets/PresetSystemView.h"
#include "tests/support/MemorySettings.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace pedl::test {

/// Everything that an effect does to its surroundings, as lines in the order in which it happened.
///
/// Its parts stand for the host, the clock, the diagnostic stream and the view. One journal is
/// current at a time, since the host's callback carries nothing that could tell journals apart.
class Journal {
public:
    Journal() { current = this; }
    ~Journal() { current = nullptr; }
    Journal(const Journal&) = delete;
    Journal& operator=(const Journal&) = delete;

    static VstIntPtr host(AEffect* effect, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                          void* ptr, float opt) {
        return current->answer(effect, opcode, index, value, ptr, opt);
    }

    template <typename... Parts> void note(const Parts&... parts) {
        std::ostringstream line;
        (line << ... << parts);
        lines.push_back(line.str());
    }

    [[nodiscard]] int count(std::string_view line) const {
        return static_cast<int>(std::count(lines.begin(), lines.end(), line));
    }

    std::vector<std::string> lines;

    // The host's answers
    VstIntPtr sampleRateHz = 0;
    VstIntPtr canDo = 0;
    std::function<void()> onEdit;    ///< inside each begin and end of an edit
    std::vector<VstTimeInfo*> times; ///< one for each question in a row, then the last again

    struct JournalClock final : Clock {
        [[nodiscard]] std::uint32_t tickMs() const override { return 0; }
        void sleepMs(std::uint32_t durationMs) override { current->note("wait ", durationMs); }
        [[nodiscard]] std::uint32_t calendarSeconds() const override { return 1; }
    } clock;

    struct JournalStream final : DiagnosticStream {
        void line(std::string_view text) override { current->note("line ", text); }
    } diagnostics;

    MemorySettings settings; ///< the user has stored nothing yet

    struct JournalView final : PresetSystemView {
        void parameterChanged(std::int32_t index, float normalised) noexcept override {
            current->note("view ", index, " ", normalised);
        }
        void programNameChanged(std::string_view name) noexcept override {
            current->note("view name ", name);
        }
        void programMenuEntryChanged(std::int32_t slot) noexcept override {
            current->note("view menu entry ", slot);
        }
        void programShown(std::int32_t slot) noexcept override {
            current->note("view shows ", slot);
        }
        void processingSuspended() noexcept override { current->note("view suspended"); }
        void midiChannelChanged(float normalised) noexcept override {
            current->note("view channel ", normalised);
        }
        void midiActivity() noexcept override { current->note("view activity"); }
        void learnEnded() noexcept override { current->note("view learn ended"); }
        void forgetEnded() noexcept override { current->note("view forget ended"); }
    } view;

private:
    VstIntPtr answer(AEffect* /*effect*/, VstInt32 opcode, VstInt32 index, VstIntPtr value,
                     void* /*ptr*/, float opt) {
        switch (opcode) {
        case audioMasterAutomate:
            note("automate ", index, " ", opt);
            return 0;
        case audioMasterVersion:
            return 2400;
        case audioMasterGetSampleRate:
            return sampleRateHz;
        case audioMasterCanDo:
            return canDo;
        case audioMasterUpdateDisplay:
            note("update display");
            return 1;
        case audioMasterBeginEdit:
        case audioMasterEndEdit:
            note(opcode == audioMasterBeginEdit ? "begin " : "end ", index);
            if (onEdit)
                std::function(onEdit).operator()(); // a copy: it may put another in its place
            return 1;
        case audioMasterGetTime: {
            note("time ", value);
            if (times.empty())
                return 0;
            VstTimeInfo* const time = times.front();
            if (times.size() > 1)
                times.erase(times.begin());
            return reinterpret_cast<VstIntPtr>(time);
        }
        default:
            return 0;
        }
    }

    inline static Journal* current = nullptr;
};

} // namespace pedl::test
