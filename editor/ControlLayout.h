#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "parameters/BarTag.h"
#include "parameters/ParameterIndex.h"

namespace pedl {

// Where every control of the face is, which bitmaps it draws and how its label is set. Frame sizes
// and counts are those of the bitmaps themselves.

/// The class of a control.
enum class ControlKind : std::uint8_t {
    // Main panel
    CutoffSlider, // handle, groove, scales in Hz and in notes
    OnOffButton,
    HoldButton,
    Overlay,
    CyclingSwitch,
    Counter, // digits, glass
    DotCounter,
    SyncDisplay,
    LabelledKnob,
    Knob,
    ValueDisplay,
    Encoder,
    LabelledSwitch,
    MeterLamp,     // first colour, second colour, off
    IndicatorLamp, // on, off
    WaveSelector,  // strip, hover, selection
    ClickArea,
    RelativeMix,
    About,
    // Preset bar
    NameEdit,
    Menu,
    Rocker,
    FileButton,
    KickButton,
    ToggleButton,
    TextDisplay,
    StepDisplay,
    ActivityLamp,
    HintLine
};

/// Logical pixels from the face's top left corner; right and bottom are outside.
struct Place {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    [[nodiscard]] constexpr double width() const { return right - left; }
    [[nodiscard]] constexpr double height() const { return bottom - top; }
};

enum class LabelInk : std::uint8_t { OnIvory, OnPetrol };

/// The value below a knob or a switch, logical pixels.
struct LabelSettings {
    LabelInk ink = LabelInk::OnIvory;
    double top = 0;   // from the control's
    double shift = 0; // to the right
    double widen = 0; // on both sides
};

/// Which views take turns: they are built with the others, and put in and taken out as the state
/// asks.
enum class Turn : std::uint8_t { Always, ModulationLock, Display };

constexpr std::int32_t kOwnTag = -1;   // as the source of a first value
constexpr std::int32_t kNoSource = -2; // the first value is the class's own

/// A number on the glass: what value 0 and 1 show, and where its point is, from the right.
struct DigitSettings {
    float lowest = 0;
    float highest = 1;
    bool isFrequency = false; // else along the range
    std::int32_t dotCell = 0;
    std::int32_t litCells = 0;
    bool isEditable = true;
};

/// What an event of an encoder is worth.
struct EncoderSettings {
    float step = 0.04F; // hundreds of pixels
    float coarseFactor = 1;
    float fineFactor = 1;
};

/// What few controls have.
struct ControlExtras {
    std::int32_t valueOf = kOwnTag; // whose value it shows at first
    bool isComplement = false;      // of that value
    float defaultValue = 0.5F;      // where Control or a double click goes
    Turn turn = Turn::Always;
    DigitSettings digits{};
    EncoderSettings encoder{};
    double shiftBefore = 0; // a label's shift that counts for the view's size as well
    bool doubleClickOnly = false;
};

struct ControlRow {
    std::int32_t tag = -1;
    ControlKind kind = ControlKind::ClickArea;
    Place place;
    std::array<std::int32_t, 4> bitmaps{}; // in the order that the kind names
    LabelSettings label{};
    ControlExtras extras{};
};

constexpr double kFaceWidth = 521;
constexpr double kFaceHeight = 544;
constexpr std::int32_t kFaceBitmap = 12100;
constexpr std::int32_t kAboutBitmap = 12200;
/// What a labelled knob's view reaches further down than its picture, for the label.
constexpr double kKnobLabelHeight = 12;
/// Left and right of a labelled switch's positions.
constexpr double kSwitchInset = 10;

constexpr LabelSettings kLargeLabel{LabelInk::OnIvory, 48, -2};
constexpr LabelSettings kMediumLabel{LabelInk::OnIvory, 39, -2};
constexpr LabelSettings kModulationLabel{LabelInk::OnIvory, 36, -2};
constexpr LabelSettings kHighSwitchLabel{LabelInk::OnPetrol, 35};
constexpr LabelSettings kLowSwitchLabel{LabelInk::OnPetrol, 23};

constexpr LabelSettings smallLabel(double top, double shift = 0, double widen = 0) {
    return {LabelInk::OnPetrol, top, shift, widen};
}

/// log10(44) / 3: the slider's rest, where `20 * 1000^v` is 880 Hz.
constexpr float kCutoffRest = 0.54781755F;

constexpr ControlExtras kLocked{.turn = Turn::ModulationLock};
constexpr ControlExtras kNothingAtFirst{.valueOf = kNoSource};
constexpr ControlExtras kDoubleClickOnly{.doubleClickOnly = true};

/// In the order in which they are built, which is that of drawing.
inline constexpr auto kPanelRows = std::to_array<ControlRow>({
    // clang-format off
    {kFilterFreqSlider,      ControlKind::CutoffSlider,   {30, 201, 491, 219},   {12143, 12145, 12142, 12146}, {}, {.valueOf = kFilterCutoffFreq, .defaultValue = kCutoffRest}},
    {kPower,                 ControlKind::OnOffButton,    {434, 432, 501, 492},  {12110}},
    {kFreez,                 ControlKind::HoldButton,     {106, 432, 173, 492},  {12111}},
    {kDryDefeat,             ControlKind::OnOffButton,    {385, 320, 412, 334},  {12296}},
    {kWetDefeat,             ControlKind::OnOffButton,    {445, 320, 472, 334},  {12297}},
    {kFilterFreqByLFODefeat, ControlKind::OnOffButton,    {103, 320, 158, 334},  {12292}, {}, kLocked},
    {kGainByLFODefeat,       ControlKind::OnOffButton,    {168, 320, 223, 334},  {12291}, {}, kLocked},
    {kFilterFreqByENVDefeat, ControlKind::OnOffButton,    {236, 320, 291, 334},  {12290}, {}, kLocked},
    {kGainByENVDefeat,       ControlKind::OnOffButton,    {300, 320, 355, 334},  {12301}, {}, kLocked},
    {kModulationOnOff,       ControlKind::OnOffButton,    {100, 400, 360, 415},  {12117}},
    {kModulationLockLabel,   ControlKind::Overlay,        {97, 317, 361, 334},   {12310}, {}, {.valueOf = kNoSource, .turn = Turn::ModulationLock}},
    {kRateLFOByEnvDefeat,    ControlKind::OnOffButton,    {115, 243, 146, 257},  {12293}},
    {kDepthLFOByEnvDefeat,   ControlKind::OnOffButton,    {166, 243, 203, 257},  {12294}},
    {kLimiterDefeat,         ControlKind::OnOffButton,    {340, 420, 359, 433},  {12287}},
    {kSoftSatDefeat,         ControlKind::OnOffButton,    {384, 416, 412, 435},  {12295}},
    {kEnvThresholdMode,      ControlKind::CyclingSwitch,  {229, 238, 277, 260},  {12305}},
    {kLFORndmizationType,    ControlKind::OnOffButton,    {148, 112, 184, 126},  {12308}},
    {kFilterCutoffFreq,      ControlKind::Counter,        {193, 58, 328, 99},    {12153, 12155}, {}, {.turn = Turn::Display, .digits = {20, 20000, true}}},
    {kLFOFreq,               ControlKind::DotCounter,     {193, 58, 328, 99},    {12152, 12155}, {}, {.turn = Turn::Display, .digits = {0.1F, 150, false, 2, 1}}},
    {kTempoSetup,            ControlKind::DotCounter,     {193, 58, 328, 99},    {12151, 12155}, {}, {.turn = Turn::Display, .digits = {15, 600, false, 1, 1}}},
    {kSynchroTempoFromHost,  ControlKind::DotCounter,     {193, 58, 328, 99},    {12148, 12155}, {}, {.turn = Turn::Display, .digits = {15, 600, false, 1, 1, false}}},
    {kLFOSynchroRate,        ControlKind::SyncDisplay,    {193, 58, 328, 99},    {12152, 12155}, {}, {.turn = Turn::Display}},
    {kGain,                  ControlKind::LabelledKnob,   {36, 337, 88, 386},    {12179}, kLargeLabel},
    {kFilterFreqByLFO,       ControlKind::LabelledKnob,   {105, 337, 157, 386},  {12180}, kLargeLabel},
    {kFilterFreqByENV,       ControlKind::LabelledKnob,   {237, 337, 289, 386},  {12181}, kLargeLabel},
    {kGainByLFO,             ControlKind::LabelledKnob,   {170, 337, 222, 386},  {12182}, kLargeLabel},
    {kGainByENV,             ControlKind::LabelledKnob,   {303, 337, 355, 386},  {12183}, kLargeLabel},
    {kWet,                   ControlKind::LabelledKnob,   {433, 337, 485, 386},  {12185}, kLargeLabel},
    {kDry,                   ControlKind::LabelledKnob,   {372, 337, 424, 386},  {12184}, kLargeLabel, {.shiftBefore = -1}},
    {kEnvAttack,             ControlKind::LabelledKnob,   {286, 256, 326, 296},  {12189}, kMediumLabel},
    {kEnvRelease,            ControlKind::LabelledKnob,   {385, 256, 425, 296},  {12190}, kMediumLabel},
    {kLFOSpread,             ControlKind::Knob,           {45, 259, 80, 294},    {12177}},
    {kLFOSpread,             ControlKind::ValueDisplay,   {49, 296, 74, 308}},
    {kEnvThreshold,          ControlKind::Knob,           {234, 260, 269, 294},  {12188}},
    {kEnvThreshold,          ControlKind::ValueDisplay,   {239, 296, 266, 308}},
    {kEnvRange,              ControlKind::LabelledKnob,   {439, 256, 479, 296},  {12191}, kMediumLabel},
    {kRateLFOByEnv,          ControlKind::LabelledKnob,   {110, 259, 150, 296},  {12186}, kModulationLabel},
    {kDepthLFOByEnv,         ControlKind::LabelledKnob,   {164, 259, 204, 296},  {12187}, kModulationLabel},
    {kLFOEncoder,            ControlKind::Encoder,        {57, 40, 127, 110},    {12172}, {}, {.valueOf = kNoSource, .encoder = {0.04F, 1}}},
    {kCutoffEncoder,         ControlKind::Encoder,        {393, 40, 463, 110},   {12173}, {}, {.valueOf = kNoSource, .encoder = {0.05F, 10, 1}}},
    {kLFOFilter,             ControlKind::LabelledKnob,   {38, 128, 66, 154},    {12192}, smallLabel(25)},
    {kLFOWidth,              ControlKind::LabelledKnob,   {117, 128, 145, 156},  {12193}, smallLabel(25, 1)},
    {kFilterSaturation,      ControlKind::LabelledKnob,   {453, 128, 481, 154},  {12197}, smallLabel(25, 1)},
    {kLimiterTreshold,       ControlKind::LabelledKnob,   {335, 435, 363, 461},  {12198}, smallLabel(23, 1)},
    {kSoftSatTreshold,       ControlKind::LabelledKnob,   {383, 435, 411, 461},  {12199}, smallLabel(23, 1)},
    {kFilterType,            ControlKind::LabelledKnob,   {341, 128, 369, 154},  {12195}, smallLabel(25, 1, 1)},
    {kFilterReso,            ControlKind::LabelledKnob,   {374, 128, 402, 154},  {12196}, smallLabel(25, 1)},
    {kEnvAttackExtension,    ControlKind::LabelledKnob,   {342, 269, 370, 295},  {12176}, {LabelInk::OnIvory, 26, -1}},
    {kLFORndmization,        ControlKind::LabelledKnob,   {151, 128, 179, 154},  {12194}, smallLabel(25)},
    {kLFOSyncMode,           ControlKind::LabelledSwitch, {176, 118, 237, 176},  {12131}, kHighSwitchLabel},
    {kFreezMode,             ControlKind::LabelledSwitch, {31, 423, 92, 481},    {12132}, kHighSwitchLabel},
    {kFilterPole,            ControlKind::LabelledSwitch, {398, 130, 459, 176},  {12135}, kLowSwitchLabel},
    {kLimSoftSatRouting,     ControlKind::LabelledSwitch, {262, 435, 323, 481},  {12133}, kLowSwitchLabel},
    {kWetLEDMeter,           ControlKind::MeterLamp,      {433, 321, 445, 333},  {12161, 12162, 12160}, {}, kNothingAtFirst},
    {kDryLEDMeter,           ControlKind::MeterLamp,      {372, 321, 384, 333},  {12161, 12162, 12160}, {}, kNothingAtFirst},
    {kLfoLEDMeter_L,         ControlKind::IndicatorLamp,  {34, 295, 46, 307},    {12161, 12160}, {}, kNothingAtFirst},
    {kLfoLEDMeter_R,         ControlKind::IndicatorLamp,  {77, 295, 89, 307},    {12161, 12160}, {}, kNothingAtFirst},
    {kEfLEDMeter,            ControlKind::MeterLamp,      {226, 295, 238, 307},  {12161, 12162, 12160}, {}, kNothingAtFirst},
    {kLimiterLEDMeter,       ControlKind::IndicatorLamp,  {323, 420, 335, 432},  {12161, 12160}, {}, kNothingAtFirst},
    {kSoftSatLED,            ControlKind::IndicatorLamp,  {370, 420, 382, 432},  {12162, 12160}, {}, kNothingAtFirst},
    {kFreezStatusLED,        ControlKind::IndicatorLamp,  {97, 420, 109, 432},   {12163, 12160}, {}, {.valueOf = kFreez}},
    {kPowerLED,              ControlKind::IndicatorLamp,  {424, 420, 436, 432},  {12162, 12160}, {}, {.valueOf = kPower}},
    {kDisplayMode_LFORate,   ControlKind::IndicatorLamp,  {135, 25, 147, 37},    {12161, 12160}, {}, {.valueOf = kDisplayParameterMode}},
    {kDisplayMode_Cutoff,    ControlKind::IndicatorLamp,  {373, 25, 385, 37},    {12161, 12160}, {}, {.valueOf = kDisplayParameterMode, .isComplement = true}},
    {kFreqNoteScaleSwitch,   ControlKind::OnOffButton,    {35, 188, 489, 198},   {12144}},
    {kLFOType,               ControlKind::WaveSelector,   {71, 126, 113, 154},   {12140, 12141, 12139}},
    {kDisplayMode_LFORate,   ControlKind::ClickArea,      {31, 17, 153, 39}, {}, {}, kNothingAtFirst},
    {kDisplayMode_Cutoff,    ControlKind::ClickArea,      {367, 17, 489, 39}, {}, {}, kNothingAtFirst},
    {kDryWetGlobal,          ControlKind::OnOffButton,    {466, 400, 483, 415},  {19001}},
    {kInverseInputLink,      ControlKind::RelativeMix,    {80, 383, 91, 403},    {12116}, {}, {.valueOf = kGain}},
    {kDryWetMix,             ControlKind::RelativeMix,    {415, 381, 442, 403},  {12115}, {}, {.defaultValue = 0.25F}},
    {kAbout,                 ControlKind::About,          {176, 19, 333, 41},    {12200}, {}, kNothingAtFirst},
    // clang-format on
});

inline constexpr auto kBarRows = std::to_array<ControlRow>({
    // clang-format off
    {kPresetNameEdit,        ControlKind::NameEdit,       {175, 528.5, 309, 543.5}},
    {kPresetMenu,            ControlKind::Menu,           {310, 528, 322, 542}},
    {kPresetPrevNext,        ControlKind::Rocker,         {330, 528, 361, 542},  {19997}},
    {kBankLoad,              ControlKind::FileButton,     {60, 528, 72, 542},    {19991}},
    {kBankSave,              ControlKind::FileButton,     {10, 528, 22, 542},    {19995}},
    {kBankDefault,           ControlKind::KickButton,     {21, 530, 58, 540},    {19990}, {}, kDoubleClickOnly},
    {kPresetLoad,            ControlKind::FileButton,     {148, 528, 160, 542},  {19991}},
    {kPresetSave,            ControlKind::FileButton,     {85, 528, 97, 542},    {19995}},
    {kPresetDefault,         ControlKind::KickButton,     {97, 530, 147, 540},   {19988}, {}, kDoubleClickOnly},
    {kSlotARecall,           ControlKind::KickButton,     {391, 528, 403, 542},  {19991}},
    {kSlotASave,             ControlKind::KickButton,     {369, 528, 381, 542},  {19995}},
    {kSlotBRecall,           ControlKind::KickButton,     {435, 528, 447, 542},  {19991}},
    {kSlotBSave,             ControlKind::KickButton,     {413, 528, 425, 542},  {19995}},
    {kMidiCCDisplay,         ControlKind::TextDisplay,    {175, 511, 309, 525}},
    {kMidiChannel,           ControlKind::StepDisplay,    {85, 511, 120, 525}},
    {kMidiChannel,           ControlKind::Rocker,         {130, 510, 161, 524},  {19997}},
    {kMidiLearn,             ControlKind::ToggleButton,   {328, 510, 350, 525},  {19998}},
    {kMidiSettingsLoad,      ControlKind::FileButton,     {60, 510, 72, 524},    {19991}},
    {kMidiSettingsSave,      ControlKind::FileButton,     {10, 510, 22, 524},    {19995}},
    {kMidiSettingsDefault,   ControlKind::KickButton,     {22, 512, 59, 522},    {19994}, {}, kDoubleClickOnly},
    {kMidiForget,            ControlKind::ToggleButton,   {362, 510, 384, 525},  {19999}},
    {kMidiReset,             ControlKind::KickButton,     {396, 510, 418, 525},  {19973}, {}, kDoubleClickOnly},
    {kMidiActivityLED,       ControlKind::ActivityLamp,   {435, 512, 446, 523},  {19975}},
    {kManual,                ControlKind::KickButton,     {498, 528, 514, 542},  {19989}},
    {kHintLabel,             ControlKind::HintLine,       {3, 492, 496, 508}},
    {kHintsOnOff,            ControlKind::ToggleButton,   {498, 493, 513, 508},  {19979}},
    // clang-format on
});

} // namespace pedl
