#pragma once

#include "foundation/basics/Relaxed.h"
#include "foundation/platform/Clock.h"
#include "foundation/platform/DiagnosticStream.h"
#include "foundation/platform/SettingsStore.h"
#include "foundation/vst24/AudioEffectX.h"
#include "presets/LearnState.h"
#include "presets/MidiLinks.h"
#include "presets/MidiMap.h"
#include "presets/PresetFiles.h"
#include "presets/PresetSystemView.h"
#include "presets/ProgramBank.h"
#include "presets/RecentFiles.h"
#include "presets/RecordReader.h"
#include "presets/StoredState.h"
#include "presets/StreamFormat.h"
#include "presets/StreamReader.h"
#include "presets/StreamWriter.h"
#include "presets/UserDefaults.h"
#include "presets/ViewLink.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace pedl {

/// An effect that keeps a bank of programs of its own behind the one program that the host sees.
///
/// Owns the `ProgramBank`. The current slot always holds the sound being heard: whoever sets a
/// parameter sets it there too. A derived effect says what its parameters mean, by the operations
/// under "Hooks".
///
/// Thread: `setParameter` and `getParameter` any, real time; everything else the host's main or
/// user-interface thread.
class CPresetSystemEffect : public AudioEffectX, public StoredState {
public:
    /// The three outlive the effect.
    CPresetSystemEffect(audioMasterCallback host, Clock& clock, DiagnosticStream& diagnostics,
                        SettingsStore& settings);

    /// Whom to tell of changes; null for nobody. When it returns, the view that was told before is
    /// called no more, on any thread.
    void setView(PresetSystemView* view) noexcept { view_.set(view); }

    // Programs of the bank

    /// Makes a slot (0 to 139) current and applies its values; blocks the caller for 100 ms.
    ///
    /// A value outside 0..1 stays in the slot and is not applied.
    virtual void selectProgram(std::int32_t slot);

    [[nodiscard]] std::int32_t currentSlot() const noexcept { return bank_.currentSlot(); }

    /// Whether some thread is selecting a program and has not played all of its values yet.
    [[nodiscard]] bool isProgramLoading() const noexcept { return isProgramLoading_.get(); }

    /// Writes the edit snapshot into a slot (0 to 139) without applying it.
    void storeSnapshot(std::int32_t slot) noexcept { bank_.storeEditSnapshot(slot); }

    /// Gives the current slot a name, unless it is null, and lets the host refresh its display.
    void renameCurrentProgram(const char* name);

    [[nodiscard]] const ProgramBank& bank() const noexcept { return bank_; }

    // MIDI links. Thread: any, real time

    [[nodiscard]] MidiMap& midiMap() noexcept { return midiMap_; }
    [[nodiscard]] const MidiMap& midiMap() const noexcept { return midiMap_; }

    /// From here on the parameter that was changed last is linked to the controller that moves
    /// next, which ends learning.
    void startLearn() noexcept { learnState_.startLearn(); }
    void stopLearn() noexcept;
    void setLearnTarget(std::int32_t parameter) noexcept { learnState_.setTarget(parameter); }

    /// From here on the parameter that is changed next loses its link, which ends forgetting.
    void startForget() noexcept { learnState_.startForget(); }
    void stopForget() noexcept;

    /// Links and channel as the user wants new instances to have them: his stored ones, else no
    /// link and all channels. Thread: user interface.
    void resetMidiToDefault();

    /// Whether changes of parameters count for learning and forgetting: an open view has only those
    /// counted that the user makes in it. They count again after every `resume`.
    void enableLearnHooks(bool isEnabled) noexcept { learnState_.enableHooks(isEnabled); }

    [[nodiscard]] const LearnState& learnState() const noexcept { return learnState_; }

    // Stored data. Thread: any but audio; the caller of `showLoaded` waits 100 ms

    /// The MIDI links as the host would read them.
    [[nodiscard]] HeldMidiLinks heldMidiLinks();

    /// Puts stored links in the place of all others.
    void replaceMidiLinks(const MidiLinks& links);

    /// Tells the view of a bank that was read, and plays its current program.
    void showLoaded(const LoadedBank& loaded);

    [[nodiscard]] std::vector<std::byte> stored(FileKind kind) override;
    LoadResult load(FileKind kind, std::span<const std::byte> stored,
                    OrderDecision decision) override;

    // What the user keeps. Thread: user interface

    [[nodiscard]] PresetFiles& files() noexcept { return files_; }
    [[nodiscard]] UserDefaults& userDefaults() noexcept { return userDefaults_; }
    [[nodiscard]] const RecentFiles& recentFiles() const noexcept { return recentFiles_; }
    bool keepRecentFiles() const { return recentFiles_.write(settings_); }

    // What the host calls
    /// Writes a change into the current slot, plays it and lets it count for learning. Takes MIDI
    /// links and the channel too.
    void setParameter(VstInt32 index, float normalised) override;
    float getParameter(VstInt32 index) override;
    void setProgramName(char* name) override;
    void getProgramName(char* name) override;
    bool getProgramNameIndexed(VstInt32 category, VstInt32 index, char* text) override;
    /// The whole state: bank, current slot and MIDI links. 0 where there is no memory for it.
    ///
    /// @param isPreset  not looked at: a host that asks for one program gets the whole bank
    VstInt32 getChunk(void** data, bool isPreset) override;
    /// @return 0, or -1 and nothing changed for data that are no chunk of ours; a chunk that ends
    ///         early gives what was whole
    VstInt32 setChunk(void* data, VstInt32 byteSize, bool isPreset) override;
    void resume() override;
    /// Lets linked controllers move their parameters. Thread: audio, real time.
    VstInt32 processEvents(VstEvents* events) override;

    // Hooks

    /// Fills the bank as it leaves the factory.
    virtual void initialiseFactoryPrograms() = 0;

    /// Makes the value of a parameter heard that the current slot holds now. It comes from the
    /// slot, so it is not stored; and another thread may store the same parameter meanwhile, so
    /// what is heard in the end must be what the slot holds in the end. Thread: any, real time.
    virtual void playStored(std::int32_t parameter) = 0;

    /// The long name, cut to eight characters and a terminator.
    virtual void getLongParameterName(std::int32_t index, char* text) = 0;

    /// The parameter that MIDI learn links when the user touches the control with this tag.
    [[nodiscard]] virtual std::int32_t learnTarget(std::int32_t tag) = 0;

    /// Whether an index can have no MIDI link.
    [[nodiscard]] virtual bool isNotLearnable(std::int32_t index) const = 0;

    /// The level in force, the program's or the bank's, for `kDry` and `kWet`; 0 for others.
    [[nodiscard]] virtual float effectiveDryWetLevel(std::int32_t index) const = 0;

    /// Hands the levels in force to the engine and tells the view that of `index`.
    virtual void applyDryWetSource(std::int32_t index) = 0;

    /// The sentence that explains a control of the panel, with the state that it is in: empty for a
    /// control without one, `text` untouched where a state has no words.
    ///
    /// @param text  room for `kHintTextLength` characters and the terminating zero
    virtual void getHintText(std::int32_t tag, char* text) = 0;

    /// The same for the preset bar's controls.
    virtual void getPresetBarHintText(std::int32_t tag, char* text);

    /// Sets a parameter as a user's gesture that the host may record.
    virtual void automate(std::int32_t index, float normalised);

protected:
    /// The last step of construction: takes the edit snapshot from the first slot, loads what the
    /// user wants new instances to start with, and plays the first slot.
    void startPresetSystem();

    [[nodiscard]] ProgramBank& editableBank() noexcept { return bank_; }

    /// Writes a value into the current slot, as the user's or the host's edit.
    void storeParameter(std::int32_t parameter, float normalised) noexcept {
        bank_.setValue(currentSlot(), parameter, normalised);
    }

    /// What follows a change of any index: learning and forgetting, and MIDI links and channel
    /// where it is theirs.
    void noteChange(std::int32_t index, float normalised);

    void tellParameter(std::int32_t index, float normalised) noexcept;
    void tellSuspended() noexcept;

    [[nodiscard]] Clock& clock() const noexcept { return clock_; }
    [[nodiscard]] DiagnosticStream& diagnostics() const noexcept { return diagnostics_; }

private:
    using ChunkBuffer = std::array<std::byte, kChunkBytes>;

    void layOverMidiLinks(const MidiLinks& links);
    LoadResult loadProgram(std::span<const std::byte> stored, OrderDecision decision);
    LoadResult loadBank(std::span<const std::byte> stored, OrderDecision decision);
    LoadResult loadMidiSettings(std::span<const std::byte> stored, OrderDecision decision);
    [[nodiscard]] VstInt32 loadChunk(const ChunkView& chunk);
    [[nodiscard]] VstInt32 loadRawChunk(const ChunkView& chunk);
    void countForLearning(std::int32_t tag);
    void takeControlChange(std::uint8_t status, std::int32_t controller, std::int32_t position);
    void tellMidiChannel() noexcept;
    void tellMidiActivity() noexcept;

    Clock& clock_;
    DiagnosticStream& diagnostics_;
    SettingsStore& settings_;
    ProgramBank bank_;
    std::unique_ptr<ChunkBuffer> chunk_; // handed out to the host; made when it first asks
    MidiMap midiMap_;
    LearnState learnState_;
    RecentFiles recentFiles_;
    PresetFiles files_{*this, recentFiles_, diagnostics_};
    UserDefaults userDefaults_{*this, settings_};
    ViewLink view_;
    Relaxed<bool> isProgramLoading_{false}; // set by the selecting thread, read by any
};

} // namespace pedl
