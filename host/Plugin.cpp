#include "host/Plugin.h"

#include "foundation/text/PrintableText.h"
#include "foundation/vst24/VendorCalls.h"

#include <array>
#include <cmath>
#include <cstring>

namespace pedl {

namespace {

/// Plug-ins overrun the limits of their texts: 32 bytes for 8, 65 for 32 have been seen.
constexpr std::size_t kTextBufferBytes = 512;
using TextBuffer = std::array<char, kTextBufferBytes>;

/// Our own effect shows the text of the float that follows these bytes in the text buffer.
constexpr std::string_view kOtherValueMark = "1EAD";

/// Counts beyond these are a broken record, not a large plug-in.
constexpr VstInt32 kMostPins = 1024;
constexpr VstInt32 kMostParameters = 65536;
constexpr VstInt32 kMostPrograms = 65536;

constexpr std::size_t kPointerBytes = sizeof(void*);

/// Slots that our own effect may name beyond its declared programs.
constexpr VstInt32 kMostHiddenSlots = 1024;

std::string textFrom(TextBuffer& buffer) {
    buffer.back() = '\0';
    return printableText(buffer.data());
}

template <std::size_t Bytes> std::string textFromField(const char (&field)[Bytes]) {
    return printableText(std::string_view(field, strnlen(field, Bytes)));
}

bool isBetween(VstInt32 count, VstInt32 most) {
    return count >= 0 && count <= most;
}

/// Why the record cannot be used, or null.
const char* faultOf(const AEffect& effect) {
    if (effect.magic != kEffectMagic)
        return "its entry returns something else than a VST 2.4 effect (wrong magic number)";
    if (effect.dispatcher == nullptr || effect.setParameter == nullptr ||
        effect.getParameter == nullptr)
        return "its effect lacks functions that every plug-in has";
    if (!isBetween(effect.numInputs, kMostPins) || !isBetween(effect.numOutputs, kMostPins) ||
        !isBetween(effect.numParams, kMostParameters) ||
        !isBetween(effect.numPrograms, kMostPrograms))
        return "its effect declares impossible numbers of pins, parameters or programs";
    if ((effect.flags & effFlagsCanReplacing) == 0 || effect.processReplacing == nullptr)
        return "its effect cannot replace its output, as hosts need it to";
    return nullptr;
}

} // namespace

Result<std::unique_ptr<Plugin>> Plugin::load(const std::filesystem::path& path,
                                             const AudioSetup& setup) {
    Result<PluginLibrary> library = PluginLibrary::open(path);
    if (!library.ok())
        return library.problem();
    std::unique_ptr<Plugin> plugin(new Plugin(std::move(library.value()), setup));
    if (const Done started = plugin->start(path.string()); !started.ok())
        return started.problem();
    return plugin;
}

Plugin::Plugin(PluginLibrary library, const AudioSetup& setup) : library_(std::move(library)) {
    services_.sampleRateHz = setup.sampleRateHz;
    services_.blockFrames = setup.blockFrames;
}

Done Plugin::start(const std::string& path) {
    AEffect* effect = nullptr;
    {
        const HostServices::Active active(services_);
        effect = library_.entry()(HostServices::callback);
    }
    if (effect == nullptr)
        return Problem{path + ": its entry gives no effect"};
    if (const char* const fault = faultOf(*effect)) {
        if (effect->magic == kEffectMagic && effect->dispatcher != nullptr) {
            // It may have started threads: they must end before the library goes.
            const HostServices::Active active(services_);
            effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0F);
        }
        return Problem{path + ": " + fault};
    }
    effect_ = effect;
    effect_->resvd1 = reinterpret_cast<VstIntPtr>(&services_);
    call(effOpen);
    setUp({services_.sampleRateHz, services_.blockFrames});
    return done();
}

Plugin::~Plugin() {
    if (effect_ == nullptr)
        return;
    suspend();
    call(effClose);
}

VstIntPtr Plugin::call(VstInt32 opcode, VstInt32 index, VstIntPtr value, void* ptr, float opt) {
    const HostServices::Active active(services_);
    return effect_->dispatcher(effect_, opcode, index, value, ptr, opt);
}

std::string Plugin::text(VstInt32 opcode, VstInt32 index, VstIntPtr value) {
    TextBuffer buffer{};
    call(opcode, index, value, buffer.data());
    return textFrom(buffer);
}

std::string Plugin::name() {
    return text(effGetEffectName);
}

std::string Plugin::vendor() {
    return text(effGetVendorString);
}

std::string Plugin::product() {
    return text(effGetProductString);
}

VstIntPtr Plugin::canDo(const char* ability) {
    return call(effCanDo, 0, 0, const_cast<char*>(ability)); // the interface knows no const
}

std::optional<VstPinProperties> Plugin::inputPin(VstInt32 index) {
    VstPinProperties pin{};
    if (call(effGetInputProperties, index, 0, &pin) == 0)
        return std::nullopt;
    return pin;
}

std::optional<VstPinProperties> Plugin::outputPin(VstInt32 index) {
    VstPinProperties pin{};
    if (call(effGetOutputProperties, index, 0, &pin) == 0)
        return std::nullopt;
    return pin;
}

std::string Plugin::parameterName(VstInt32 index) {
    return text(effGetParamName, index);
}

std::string Plugin::parameterLongName(VstInt32 index) {
    VstParameterProperties properties{};
    if (call(effGetParameterProperties, index, 0, &properties) == 0)
        return {};
    return textFromField(properties.label);
}

std::string Plugin::parameterUnit(VstInt32 index) {
    return text(effGetParamLabel, index);
}

std::string Plugin::displayText(VstInt32 index) {
    return text(effGetParamDisplay, index);
}

bool Plugin::canBeAutomated(VstInt32 index) {
    return call(effCanBeAutomated, index) != 0;
}

float Plugin::parameter(VstInt32 index) {
    const HostServices::Active active(services_);
    return effect_->getParameter(effect_, index);
}

void Plugin::setParameter(VstInt32 index, float normalised) {
    const HostServices::Active active(services_);
    effect_->setParameter(effect_, index, normalised);
}

std::string Plugin::textAtValue(VstInt32 index, float normalised) {
    TextBuffer buffer{};
    std::memcpy(buffer.data(), kOtherValueMark.data(), kOtherValueMark.size());
    std::memcpy(buffer.data() + kOtherValueMark.size(), &normalised, sizeof normalised);
    call(effGetParamDisplay, index, 0, buffer.data());
    return textFrom(buffer);
}

bool Plugin::tellsTextsOfOtherValues() {
    if (tellsTexts_)
        return *tellsTexts_;
    // Who does not know the mark shows the held value both times. A buffer left as it was does not
    // count either: the mark itself would be the text.
    tellsTexts_ = false;
    for (VstInt32 index = 0; index < numParameters() && !*tellsTexts_; ++index) {
        const std::string low = textAtValue(index, 0.0F);
        const std::string high = textAtValue(index, 1.0F);
        tellsTexts_ =
            low != high && !low.starts_with(kOtherValueMark) && !high.starts_with(kOtherValueMark);
    }
    return *tellsTexts_;
}

std::string Plugin::displayTextAt(VstInt32 index, float normalised) {
    if (tellsTextsOfOtherValues())
        return textAtValue(index, normalised);
    const float held = parameter(index);
    setParameter(index, normalised);
    std::string shown = displayText(index);
    setParameter(index, held);
    return shown;
}

std::vector<std::string> Plugin::programNames() {
    std::vector<std::string> names;
    const VstInt32 declared = effect_->numPrograms;
    // Our own effect names the slots behind its one program too; of others that is not believed.
    const VstInt32 most = isOurs() ? kMostHiddenSlots : declared;
    for (VstInt32 slot = 0; slot < most; ++slot) {
        TextBuffer buffer{};
        if (call(effGetProgramNameIndexed, slot, -1, buffer.data()) != 0) {
            names.push_back(textFrom(buffer));
            continue;
        }
        if (slot >= declared)
            break;
        const VstIntPtr held = call(effGetProgram);
        if (held != slot)
            call(effSetProgram, 0, slot);
        names.push_back(text(effGetProgramName));
        if (held != slot)
            call(effSetProgram, 0, held);
    }
    return names;
}

bool Plugin::selectProgram(VstInt32 slot) {
    if (isOurs() && call(effVendorSpecific, kVendorCallId, kVendorCallSelectSlot, nullptr,
                         static_cast<float>(slot)) == 1)
        return true;
    if (slot < 0 || slot >= effect_->numPrograms)
        return false;
    call(effBeginSetProgram);
    call(effSetProgram, 0, slot);
    call(effEndSetProgram);
    return true;
}

std::vector<std::byte> Plugin::chunk() {
    if (!keepsChunks())
        return {};
    void* data = nullptr;
    const VstIntPtr bytes = call(effGetChunk, 0, 0, &data);
    if (data == nullptr || bytes <= 0)
        return {};
    const auto* const begin = static_cast<const std::byte*>(data);
    return {begin, begin + bytes};
}

bool Plugin::setChunk(std::vector<std::byte> chunk) {
    if (!keepsChunks())
        return false;
    // What is answered differs among plug-ins that took it.
    call(effSetChunk, 0, static_cast<VstIntPtr>(chunk.size()), chunk.data());
    return true;
}

void Plugin::setUp(const AudioSetup& setup) {
    suspend();
    services_.sampleRateHz = setup.sampleRateHz;
    services_.blockFrames = setup.blockFrames;
    call(effSetSampleRate, 0, 0, nullptr, static_cast<float>(setup.sampleRateHz));
    call(effSetBlockSize, 0, setup.blockFrames);
}

void Plugin::resume() {
    if (isRunning_)
        return;
    isRunning_ = true;
    call(effMainsChanged, 0, 1);
    call(effStartProcess);
}

void Plugin::suspend() {
    if (!isRunning_)
        return;
    isRunning_ = false;
    call(effStopProcess);
    call(effMainsChanged, 0, 0);
}

bool Plugin::processesDouble() const {
    // The flag first: records of older plug-ins end before the function.
    return (effect_->flags & effFlagsCanDoubleReplacing) != 0 &&
           effect_->processDoubleReplacing != nullptr;
}

Done Plugin::processesFiles() const {
    if (effect_->numInputs > 0 && effect_->numOutputs > 0)
        return done();
    return Problem{std::string("has no audio ") + (effect_->numInputs == 0 ? "input" : "output") +
                   ", so it cannot process a file"};
}

void Plugin::process(const float* const* inputs, float* const* outputs, VstInt32 frames) {
    const HostServices::Active active(services_, HostServices::Purpose::Audio);
    effect_->processReplacing(effect_, const_cast<float**>(inputs), const_cast<float**>(outputs),
                              frames);
    services_.advance(frames);
}

void Plugin::process(const double* const* inputs, double* const* outputs, VstInt32 frames) {
    const HostServices::Active active(services_, HostServices::Purpose::Audio);
    effect_->processDoubleReplacing(effect_, const_cast<double**>(inputs),
                                    const_cast<double**>(outputs), frames);
    services_.advance(frames);
}

void Plugin::sendMidi(std::span<const VstMidiEvent> events) {
    midi_.assign(events.begin(), events.end());
    const std::size_t bytes = sizeof(VstEvents) + midi_.size() * kPointerBytes;
    if (eventRecord_.size() < bytes)
        eventRecord_.resize(bytes);
    // The pointers run past the two that the structure declares, as the interface has it.
    const VstEvents head{static_cast<VstInt32>(midi_.size()), 0, {}};
    std::memcpy(eventRecord_.data(), &head, sizeof head);
    std::byte* place = eventRecord_.data() + offsetof(VstEvents, events);
    for (VstMidiEvent& event : midi_) {
        event.type = kVstMidiType;
        event.byteSize = sizeof(VstMidiEvent);
        const VstMidiEvent* const address = &event;
        std::memcpy(place, &address, kPointerBytes);
        place += kPointerBytes;
    }
    call(effProcessEvents, 0, 0, eventRecord_.data());
}

} // namespace pedl
