#pragma once

#include "foundation/text/Result.h"
#include "host/AudioReader.h"
#include "host/AudioWriter.h"
#include "host/AutomationCurve.h"
#include "host/MidiPlayback.h"
#include "host/Plugin.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace pedl {

enum class Precision { Float, Double };

template <typename Sample> class Channels;

/// A curve and the parameter that follows it.
struct Automation {
    VstInt32 index = 0;
    AutomationCurve curve;
};

/// What is processed after the sound, so that what it set ringing rings out.
struct Tail {
    std::int64_t frames = 0;    // of silence that go in
    bool endsInSilence = false; // and what comes out ends where it is silent for good
};

/// What a finished render tells about itself.
struct RenderReport {
    std::int64_t frames = 0;
    int sampleRateHz = 0;
    double wallSeconds = 0.0;    // reading and writing the files included
    double pluginSeconds = 0.0;  // inside the plug-in alone
    double inputPeak = 0.0;      // largest finite sample, full scale at 1.0
    double peak = 0.0;           // the same of the output
    std::int64_t samplesCut = 0; // beyond full scale in a format that ends there
    std::int64_t samplesNotFinite = 0;
    std::int64_t framesMissing = 0;    // that the file's head promised
    bool endsInSound = false;          // where silence was waited for and did not come
    std::vector<std::string> warnings; // what the user should know, a line each

    [[nodiscard]] double audioSeconds() const { return static_cast<double>(frames) / sampleRateHz; }
};

/// Runs a whole file through a plug-in, block by block: memory does not grow with the file.
///
/// Every block has the set size, but for the last of the audio and the last of the tail. Curves
/// are read at the first frame of each block, so a smaller block follows them more closely. A MIDI
/// file cuts a block where it has something due: the plug-in gets the parts as blocks. A mono
/// file goes into both inputs, a stereo file into a plug-in with one input as the mean; further
/// inputs are silent. The first two outputs are written, the only one to both sides.
class Renderer {
public:
    /// @param plugin  prepared for the reader's rate and for `blockFrames`; suspended
    Renderer(Plugin& plugin, AudioReader& reader, AudioWriter& writer, VstInt32 blockFrames);

    void follow(std::vector<Automation> automation) { automation_ = std::move(automation); }
    void play(MidiPlayback midi) { midi_ = std::move(midi); }
    void addTail(Tail tail) { tail_ = tail; }
    /// @param share  of the whole length, 0 to 1; called after each block where the length is known
    void onProgress(std::function<void(double share)> listener) { listener_ = std::move(listener); }

    /// Renders and leaves the writer to be committed. Ends early, with a problem, when a file fails
    /// or an end signal has come.
    Result<RenderReport> run(Precision precision);

private:
    template <typename Sample> struct Buffers;

    template <typename Sample> Result<RenderReport> runAs();
    void switchOn();
    void applyCurves();
    template <typename Sample> Done playSound(Buffers<Sample>& buffers, RenderReport& report);
    template <typename Sample> Done playTail(Buffers<Sample>& buffers, RenderReport& report);
    template <typename Sample>
    void renderBlock(Buffers<Sample>& buffers, VstInt32 frames, RenderReport& report);
    template <typename Sample>
    void process(const Channels<Sample>& inputs, const Channels<Sample>& outputs, VstInt32 frames);
    template <typename Sample>
    Done write(const Sample* stereo, std::int64_t frames, RenderReport& report);

    Plugin& plugin_;
    AudioReader& reader_;
    AudioWriter& writer_;
    VstInt32 blockFrames_;
    Tail tail_;
    std::vector<Automation> automation_;
    std::vector<float> applied_; // last value of each curve, -1 before the first
    std::optional<MidiPlayback> midi_;
    std::function<void(double)> listener_;
};

} // namespace pedl
