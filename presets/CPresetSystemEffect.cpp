#include "presets/CPresetSystemEffect.h"

#include "parameters/CopyText.h"
#include "parameters/ListPosition.h"
#include "parameters/ParameterIndex.h"
#include "presets/FileReader.h"
#include "presets/RawReader.h"
#include "presets/ValueRepair.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <optional>
#include <span>
#include <string_view>

namespace pedl {

namespace {

constexpr VstInt32 kHostPrograms = 1;

/// Lets a host that polls see the new program as a change of its own before it is told.
constexpr std::uint32_t kSelectWaitMs = 100;

/// Hosts mark a project as changed when a parameter is edited; any parameter will do.
constexpr VstInt32 kChangeMarker = 0;

/// Controllers from here on are channel mode messages: never linked, never followed.
constexpr std::int32_t kFirstChannelMode = 120;

constexpr std::int32_t kHighestDataByte = 127;

/// The bits of a control change say no more than this, so system messages (0xF0 to 0xFF) pass as
/// well, their first data byte as the controller. Gear that sends such is in use with links to it.
bool isControlChange(std::uint8_t status) {
    constexpr std::uint8_t kControlChange = 0xB0;
    return (status & kControlChange) == kControlChange;
}

/// What hosts are told of a chunk.
constexpr VstInt32 kChunkTaken = 0;
constexpr VstInt32 kChunkRefused = -1;

} // namespace

CPresetSystemEffect::CPresetSystemEffect(audioMasterCallback host, Clock& clock,
                                         DiagnosticStream& diagnostics, SettingsStore& settings)
    : AudioEffectX(host, kHostPrograms, kNumParams), clock_(clock), diagnostics_(diagnostics),
      settings_(settings) {
    AudioEffect::programsAreChunks(true);
}

void CPresetSystemEffect::startPresetSystem() {
    bank_.takeEditSnapshot(0); // before the user's bank: what is missing there is the factory's
    userDefaults_.load(FileKind::Bank);
    selectProgram(0);
    userDefaults_.load(FileKind::Program);
    resetMidiToDefault();
    recentFiles_.read(settings_);
}

void CPresetSystemEffect::resetMidiToDefault() {
    midiMap_.clear();
    setParameter(kMidiChannel, kAllChannelsValue);
    userDefaults_.load(FileKind::MidiSettings);
}

void CPresetSystemEffect::selectProgram(std::int32_t slot) {
    isProgramLoading_.set(true);
    curProgram = 0;
    bank_.setCurrentSlot(slot);
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter) {
        const float normalised = bank_.value(slot, parameter);
        if (!isNormalised(normalised))
            continue;
        playStored(parameter);
        tellParameter(parameter, normalised);
    }
    isProgramLoading_.set(false);
    clock_.sleepMs(kSelectWaitMs);
    updateDisplay();
    beginEdit(kChangeMarker);
    endEdit(kChangeMarker);
}

void CPresetSystemEffect::renameCurrentProgram(const char* name) {
    curProgram = 0;
    if (name != nullptr)
        bank_.setName(currentSlot(), name);
    updateDisplay();
}

void CPresetSystemEffect::setParameter(VstInt32 index, float normalised) {
    if (isParameter(index)) {
        storeParameter(index, normalised);
        playStored(index);
    }
    noteChange(index, normalised);
}

void CPresetSystemEffect::noteChange(std::int32_t index, float normalised) {
    countForLearning(index);
    if (isMidiLink(index)) {
        midiMap_.setLinkValue(index - kFirstMidiLink, normalised);
    } else if (index == kMidiChannel) {
        midiMap_.setChannelValue(normalised);
        tellMidiChannel();
    }
}

float CPresetSystemEffect::getParameter(VstInt32 index) {
    if (isParameter(index))
        return bank_.value(currentSlot(), index);
    if (isMidiLink(index))
        return midiMap_.linkValue(index - kFirstMidiLink);
    return index == kMidiChannel ? midiMap_.channelValue() : 0.0F;
}

void CPresetSystemEffect::resume() {
    AudioEffectX::resume();
    enableLearnHooks(true);
}

void CPresetSystemEffect::setProgramName(char* name) {
    if (name == nullptr)
        return;
    const std::int32_t slot = currentSlot();
    bank_.setName(slot, {name, ::strnlen(name, kProgramNameBytes)});
    const ProgramName stored = bank_.name(slot);
    view_.tell([&](PresetSystemView& view) { view.programNameChanged(nameText(stored)); });
}

void CPresetSystemEffect::getProgramName(char* name) {
    const ProgramName stored = bank_.name(currentSlot());
    copyText(name, nameText(stored), kProgramNameLength); // hosts have 24 bytes, the zero included
}

bool CPresetSystemEffect::getProgramNameIndexed(VstInt32 /*category*/, VstInt32 index, char* text) {
    if (!isProgramSlot(index))
        return false;
    const ProgramName stored = bank_.name(index);
    copyText(text, nameText(stored), kProgramNameLength);
    return true;
}

// Stored data

HeldMidiLinks CPresetSystemEffect::heldMidiLinks() {
    HeldMidiLinks links;
    links.channelValue = getParameter(kMidiChannel);
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        links.linkValue[static_cast<std::size_t>(parameter)] =
            getParameter(kFirstMidiLink + parameter);
    return links;
}

void CPresetSystemEffect::replaceMidiLinks(const MidiLinks& links) {
    midiMap_.clear();
    layOverMidiLinks(links);
}

void CPresetSystemEffect::layOverMidiLinks(const MidiLinks& links) {
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        if (const auto link = links.linkValue[static_cast<std::size_t>(parameter)])
            setParameter(kFirstMidiLink + parameter, *link);
    if (links.channelValue)
        setParameter(kMidiChannel, *links.channelValue);
    midiMap_.rebuild();
}

void CPresetSystemEffect::showLoaded(const LoadedBank& loaded) {
    view_.tell([&](PresetSystemView& view) {
        for (std::int32_t slot = 0; slot < kNumPrograms; ++slot)
            if (loaded.named[static_cast<std::size_t>(slot)])
                view.programMenuEntryChanged(slot);
        view.programShown(loaded.currentSlot);
    });
    selectProgram(loaded.currentSlot);
}

std::vector<std::byte> CPresetSystemEffect::stored(FileKind kind) {
    switch (kind) {
    case FileKind::Program:
        return writeProgram(bank_, currentSlot(), diagnostics_);
    case FileKind::Bank:
        return writeBank(bank_, diagnostics_);
    case FileKind::MidiSettings:
        break;
    }
    return writeMidi(heldMidiLinks(), diagnostics_);
}

LoadResult CPresetSystemEffect::load(FileKind kind, std::span<const std::byte> stored,
                                     OrderDecision decision) {
    switch (kind) {
    case FileKind::Program:
        return loadProgram(stored, decision);
    case FileKind::Bank:
        return loadBank(stored, decision);
    case FileKind::MidiSettings:
        break;
    }
    return loadMidiSettings(stored, decision);
}

LoadResult CPresetSystemEffect::loadProgram(std::span<const std::byte> stored,
                                            OrderDecision decision) {
    const std::int32_t slot = currentSlot();
    const ProgramFromFile read = readProgramFile(stored, decision, bank_, slot, diagnostics_);
    if (read.result == LoadResult::Loaded) {
        LoadedBank loaded{{}, slot};
        loaded.named[static_cast<std::size_t>(slot)] = read.isNamed;
        showLoaded(loaded);
    }
    return read.result;
}

LoadResult CPresetSystemEffect::loadBank(std::span<const std::byte> stored,
                                         OrderDecision decision) {
    const BankFromFile read = readBankFile(stored, decision, bank_, diagnostics_);
    if (read.result == LoadResult::Loaded)
        showLoaded(read.bank);
    return read.result;
}

LoadResult CPresetSystemEffect::loadMidiSettings(std::span<const std::byte> stored,
                                                 OrderDecision decision) {
    const MidiFromFile read = readMidiFile(stored, decision, diagnostics_);
    if (read.result != LoadResult::Loaded)
        return read.result;
    if (read.replacesAll)
        replaceMidiLinks(read.links);
    else
        layOverMidiLinks(read.links);
    return read.result;
}

VstInt32 CPresetSystemEffect::getChunk(void** data, bool /*isPreset*/) {
    if (chunk_ == nullptr)
        chunk_.reset(new (std::nothrow) ChunkBuffer);
    if (chunk_ == nullptr)
        return 0;
    writeChunk(*chunk_, bank_, heldMidiLinks(), diagnostics_);
    *data = chunk_->data();
    return kChunkBytes;
}

VstInt32 CPresetSystemEffect::setChunk(void* data, VstInt32 byteSize, bool /*isPreset*/) {
    if (data == nullptr || byteSize < 0)
        return kChunkRefused;
    const std::optional<ChunkView> chunk =
        openChunk({static_cast<const std::byte*>(data), static_cast<std::size_t>(byteSize)});
    if (!chunk)
        return kChunkRefused;
    return chunk->version == kRawChunkVersion ? loadRawChunk(*chunk) : loadChunk(*chunk);
}

VstInt32 CPresetSystemEffect::loadChunk(const ChunkView& chunk) {
    const std::optional<StreamView> stream =
        openStream(chunk.bytes.subspan(kChunkHeadBytes), chunk.order);
    if (!stream)
        return kChunkTaken; // ends within its header: ours, yet nothing in it was whole
    if (!hasMidiChannel(stream->header))
        setParameter(kMidiChannel, kAllChannelsValue);
    replaceMidiLinks(readMidiLinks(*stream, diagnostics_));
    showLoaded(readBank(*stream, bank_, diagnostics_));
    return kChunkTaken;
}

VstInt32 CPresetSystemEffect::loadRawChunk(const ChunkView& chunk) {
    const std::optional<RawChunkView> raw = openRawChunk(chunk.bytes, chunk.order);
    if (!raw)
        return kChunkTaken;
    if (raw->programs == 0)
        return kChunkRefused;
    const LoadedBank loaded = readRawPrograms(*raw, bank_, diagnostics_);
    const MidiLinks links = readRawLinks(*raw, diagnostics_);
    // Laid over the links that there are, which is all that such a chunk has ever done.
    for (std::int32_t parameter = 0; parameter < kNumParams; ++parameter)
        if (const auto link = links.linkValue[static_cast<std::size_t>(parameter)])
            midiMap_.link(parameter, listPosition(*link, kNumControllers + 1));
    midiMap_.rebuild();
    setParameter(kMidiChannel, kAllChannelsValue);
    showLoaded(loaded);
    return kChunkTaken;
}

// MIDI

void CPresetSystemEffect::stopLearn() noexcept {
    learnState_.stopLearn();
    view_.tell([](PresetSystemView& view) { view.learnEnded(); });
}

void CPresetSystemEffect::stopForget() noexcept {
    learnState_.stopForget();
    view_.tell([](PresetSystemView& view) { view.forgetEnded(); });
}

void CPresetSystemEffect::countForLearning(std::int32_t tag) {
    const bool isArmed = learnState_.isLearning() || learnState_.isForgetting();
    if (!isArmed || !learnState_.hasHooks())
        return;
    const std::int32_t parameter = learnTarget(tag);
    if (!isParameter(parameter))
        return;
    learnState_.setTarget(parameter);
    if (learnState_.isForgetting()) {
        midiMap_.forgetParameter(parameter);
        stopForget();
    }
}

VstInt32 CPresetSystemEffect::processEvents(VstEvents* events) {
    if (events == nullptr)
        return 1;
    const VstEvent* const* const list = events->events; // longer than its declaration says
    for (VstInt32 i = 0; i < events->numEvents; ++i) {
        if (list[i] == nullptr || list[i]->type != kVstMidiType)
            continue;
        const auto& event = *reinterpret_cast<const VstMidiEvent*>(list[i]);
        takeControlChange(static_cast<std::uint8_t>(event.midiData[0]),
                          static_cast<signed char>(event.midiData[1]),
                          static_cast<signed char>(event.midiData[2]));
    }
    return 1;
}

/// @param position  of the controller; beyond 0..127 in a broken message
void CPresetSystemEffect::takeControlChange(std::uint8_t status, std::int32_t controller,
                                            std::int32_t position) {
    if (!isControlChange(status) || !midiMap_.receives(status) || controller >= kFirstChannelMode)
        return;
    tellMidiActivity();
    if (!isController(controller))
        return;
    const std::int32_t target = learnState_.target();
    if (isParameter(target)) {
        midiMap_.relink(target, controller);
        stopLearn();
    }
    const std::int32_t parameter = midiMap_.drivenBy(controller); // the one just learned as well
    if (isParameter(parameter))
        setParameter(parameter, static_cast<float>(std::clamp(position, 0, kHighestDataByte)) /
                                    static_cast<float>(kHighestDataByte));
}

void CPresetSystemEffect::automate(std::int32_t index, float normalised) {
    beginEdit(index);
    setParameterAutomated(index, normalised);
    endEdit(index);
}

void CPresetSystemEffect::tellParameter(std::int32_t index, float normalised) noexcept {
    view_.tell([=](PresetSystemView& view) { view.parameterChanged(index, normalised); });
}

void CPresetSystemEffect::tellMidiChannel() noexcept {
    view_.tell(
        [this](PresetSystemView& view) { view.midiChannelChanged(midiMap_.channelValue()); });
}

void CPresetSystemEffect::tellMidiActivity() noexcept {
    view_.tell([](PresetSystemView& view) { view.midiActivity(); });
}

void CPresetSystemEffect::tellSuspended() noexcept {
    view_.tell([](PresetSystemView& view) { view.processingSuspended(); });
}

} // namespace pedl
