#include "host/ShowCommand.h"

#include "foundation/text/FormattedText.h"
#include "host/CommandOutput.h"
#include "host/Interrupt.h"
#include "host/LivePlayback.h"
#include "host/Messages.h"
#include "host/OutputCheck.h"
#include "host/PngPicture.h"
#include "host/PrivateXServer.h"
#include "host/ShownEditor.h"

#include <array>
#include <cstdlib>

namespace pedl {

namespace {

using Clock = EditorWindow::Clock;
using Seconds = std::chrono::duration<double>;

constexpr VstInt32 kBlockFrames = 512;
constexpr AudioSetup kUnheard{48000.0, kBlockFrames};
constexpr std::array kPrivateScreen{"-screen", "0", "4096x3072x24"}; // an editor at any scale

void setScale(double scale) {
    setenv("ZMT_EDITOR_SCALE", formatted("%g", scale).c_str(), 1);
}

/// The user's display; for a picture one of our own where there is none.
Result<std::unique_ptr<PrivateXServer>> findDisplay(bool isForAPicture) {
    const Done found = EditorWindow::findDisplay();
    if (found.ok())
        return std::unique_ptr<PrivateXServer>();
    if (!isForAPicture)
        return found.problem();
    auto server = PrivateXServer::start({kPrivateScreen.begin(), kPrivateScreen.end()});
    if (!server)
        return Problem{found.problem().text + ", and Xvfb, which would do, is not installed"};
    server->use();
    return server;
}

/// Decides when the editor is pictured: at a set time, or when it has painted.
class Photographer {
public:
    Photographer(const EditorWindow& window, std::optional<Clock::time_point> moment)
        : window_(window), moment_(moment) {}

    /// The picture once it is time, a problem when it could not be taken for too long.
    std::optional<Result<WindowPicture>> turn() {
        constexpr int kTurnsToPaint = 10;
        constexpr int kTurnsToWait = 80;
        if (moment_ ? Clock::now() < *moment_ : turns_ < kTurnsToPaint) {
            ++turns_;
            return std::nullopt;
        }
        Result<WindowPicture> picture = window_.picture();
        const bool isLast = ++tries_ > kTurnsToWait;
        const bool isStill = picture.ok() && picture.value().bytes == before_;
        if (isLast || isStill || (picture.ok() && moment_))
            return picture;
        if (picture.ok())
            before_ = std::move(picture.value().bytes);
        return std::nullopt;
    }

private:
    const EditorWindow& window_;
    std::optional<Clock::time_point> moment_; // none: when two turns show the same
    int turns_ = 0;
    int tries_ = 0;
    std::vector<std::uint8_t> before_;
};

/// A meter needs a while to show what is played.
std::optional<Seconds> secondsToPicture(const ShowRequest& request) {
    constexpr Seconds kToLiven{1.0};
    if (request.seconds)
        return Seconds(*request.seconds);
    return request.play ? std::optional(kToLiven) : std::nullopt;
}

std::optional<Clock::time_point> after(std::optional<Seconds> wait) {
    if (!wait)
        return std::nullopt;
    return Clock::now() + std::chrono::duration_cast<Clock::duration>(*wait);
}

/// Shows the editor until it is closed or pictured.
/// @return the picture, if one was asked for
Result<std::optional<WindowPicture>> showUntilTheEnd(ShownEditor& editor, LivePlayback* playback,
                                                     const ShowRequest& request) {
    Photographer photographer(editor.window(), after(secondsToPicture(request)));
    std::optional<Clock::time_point> end;
    if (request.seconds && !request.screenshot)
        end = after(Seconds(*request.seconds));
    while (!end || Clock::now() < *end) {
        editor.turn();
        if (Interrupt::signalNumber() != 0)
            return Problem{"interrupted; the editor was closed"};
        if (editor.window().state() == EditorWindow::State::Gone)
            return Problem{"the X server or the window is gone"};
        if (editor.window().state() == EditorWindow::State::CloseWanted) {
            if (request.screenshot)
                return Problem{"the window was closed before its picture was taken"};
            break;
        }
        if (playback != nullptr && playback->survive())
            say("playing on " + playback->description());
        if (!request.screenshot)
            continue;
        if (auto picture = photographer.turn()) {
            if (!picture->ok())
                return picture->problem();
            return std::optional(std::move(picture->value()));
        }
    }
    return std::optional<WindowPicture>();
}

/// The plug-in as it is wanted, ready for `sound`.
Result<std::unique_ptr<Plugin>> loadPlugin(const ShowRequest& request,
                                           const std::optional<LoopedSound>& sound) {
    AudioSetup setup = kUnheard;
    if (sound)
        setup.sampleRateHz = sound->sampleRateHz();
    Result<std::unique_ptr<Plugin>> plugin = Plugin::load(request.plugin, setup);
    if (!plugin.ok())
        return plugin;
    if (sound)
        if (const Done able = plugin.value()->processesFiles(); !able.ok())
            return able.problem().of(request.plugin.string());
    const Result<std::vector<std::string>> warnings =
        applyStartingState(*plugin.value(), request.start);
    if (!warnings.ok())
        return warnings.problem();
    for (const std::string& warning : warnings.value())
        warn(warning);
    return plugin;
}

/// Opens the editor, with the sound running where there is one, and shows it until the end.
Result<std::optional<WindowPicture>> showEditor(Plugin& plugin, std::optional<LoopedSound> sound,
                                                const ShowRequest& request) {
    const Result<std::unique_ptr<ShownEditor>> editor = ShownEditor::open(plugin);
    if (!editor.ok())
        return editor.problem().of(request.plugin.string());
    std::unique_ptr<LivePlayback> playback;
    if (sound) {
        playback = std::make_unique<LivePlayback>(plugin, std::move(*sound), kBlockFrames);
        say("playing " + request.play->string() + " " + playback->description());
    }
    return showUntilTheEnd(*editor.value(), playback.get(), request);
}

/// The file of the picture, which is none of those that are read.
Result<std::unique_ptr<OutputFile>> pictureFile(const ShowRequest& request) {
    if (!request.screenshot)
        return std::unique_ptr<OutputFile>();
    const StartingState& start = request.start;
    if (const Done checked =
            checkIsNone(*request.screenshot, {{request.plugin, "is the plug-in itself"},
                                              {request.play},
                                              {start.bank},
                                              {start.preset},
                                              {start.midiSettings}});
        !checked.ok())
        return checked.problem();
    return OutputFile::create(*request.screenshot);
}

} // namespace

Result<ShowReport> show(const ShowRequest& request) {
    if (request.scale)
        setScale(*request.scale);
    std::optional<LoopedSound> sound;
    if (request.play) {
        Result<LoopedSound> loaded = LoopedSound::load(*request.play);
        if (!loaded.ok())
            return loaded.problem().of("--play");
        sound = std::move(loaded.value());
    }
    const Interrupt interrupt;
    const Result<std::unique_ptr<OutputFile>> file = pictureFile(request);
    if (!file.ok())
        return file.problem();
    // Before the plug-in is loaded, for it may look for the display then.
    const Result<std::unique_ptr<PrivateXServer>> display =
        findDisplay(request.screenshot.has_value());
    if (!display.ok())
        return display.problem();
    const Result<std::unique_ptr<Plugin>> plugin = loadPlugin(request, sound);
    if (!plugin.ok())
        return plugin.problem();
    const Result<std::optional<WindowPicture>> shown =
        showEditor(*plugin.value(), std::move(sound), request);
    if (!shown.ok())
        return shown.problem();
    if (!shown.value())
        return ShowReport{};
    if (const Done written = writePng(*shown.value(), *file.value()); !written.ok())
        return written.problem();
    if (const Done committed = file.value()->commit(); !committed.ok())
        return committed.problem();
    return ShowReport{shown.value()->size.widthPixels, shown.value()->size.heightPixels};
}

} // namespace pedl
