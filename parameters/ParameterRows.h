#pragma once

// The parameters, one row each, in the order that hosts, stored programs and MIDI links count them.
//
// Whoever needs a column passes a macro that picks it: the enumeration takes the identifiers
// (`ParameterIndex.h`), the catalogue the names, texts and steps (`ParameterCatalogue.h`), and the
// effect, which alone knows engine and view, the last two: the engine's setter for a value, and
// what else hangs on it.
//
// A row without a name is hidden from hosts. "Default" is the value in the factory program of that
// name; "auto" tells whether hosts may automate.

// clang-format off
#define PEDL_PARAMETER_ROWS(ROW) \
    /*  identifier                short      long                      text             Default    steps   auto  engine setter                     what else follows */          \
    ROW(kPower,                   "Byps",    "Bypass",                 Process,         0.0F,      Switch, Yes,  &Engine::setPower,                nullptr)                      \
    ROW(kGain,                    "Gain",    "Gain",                   GainDb,          0.5F,      Fine,   Yes,  &Engine::setInputGain,            &Effect::tellInverseLink)     \
    ROW(kFreezMode,               "FrzMode", "FreezMode",              FreezeMode,      0.0F,      Three,  Yes,  nullptr,                          nullptr)                      \
    ROW(kFreez,                   "Freeze",  "Freez",                  OnOff,           0.0F,      Switch, Yes,  &Engine::setFreeze,               nullptr)                      \
    ROW(kLFOType,                 "LFOwave", "LFOWave",                Wave,            0.0F,      Wave,   Yes,  &Engine::setLfoType,              nullptr)                      \
    ROW(kLFOFilter,               "LFOfltr", "LFOflt",                 Percent,         0.5F,      Fine,   Yes,  &Engine::setLfoFilter,            nullptr)                      \
    ROW(kLFOWidth,                "LFOwidh", "LFOwidh",                WidthRatio,      0.5F,      Fine,   Yes,  &Engine::setLfoWidth,             nullptr)                      \
    ROW(kLFOSyncMode,             "LFOsync", "LFOsync",                SyncMode,        0.0F,      Three,  Yes,  nullptr,                          &Effect::changeSyncMode)      \
    ROW(kLFOFreq,                 "LFOfreq", "LFOfreq",                LfoRateHz,       0.066044F, Rate,   Yes,  &Engine::setLfoRate,              nullptr)                      \
    ROW(kLFOSynchroRate,          "LFOnote", "LFOnote",                Note,            0.290323F, Note,   Yes,  nullptr,                          &Effect::changeDivision)      \
    ROW(kTempoSetup,              "Tempo",   "Tempo BPM",              TempoBpm,        0.179487F, Rate,   Yes,  nullptr,                          &Effect::changeManualTempo)   \
    ROW(kLFORndmizationType,      "RNDtype", "RNDtype",                RandomType,      0.0F,      Switch, Yes,  &Engine::setLfoRandomType,        nullptr)                      \
    ROW(kLFORndmization,          "LFOrnd",  "LFOrandomization",       Percent,         0.0F,      Fine,   Yes,  &Engine::setLfoRandomAmount,      nullptr)                      \
    ROW(kLFOSpread,               "LFOsprd", "LFOsprd",                SpreadDegrees,   0.5F,      Fine,   Yes,  &Engine::setLfoSpread,            nullptr)                      \
    ROW(kRateLFOByEnvDefeat,      "ELfoRSt", "ELFOrSt",                OnOff,           0.0F,      Switch, Yes,  &Engine::setEnvToLfoRateSwitch,   nullptr)                      \
    ROW(kRateLFOByEnv,            "EnLfoRt", "EF-LFO",                 BipolarPercent,  0.5F,      Fine,   Yes,  &Engine::setEnvToLfoRate,         nullptr)                      \
    ROW(kDepthLFOByEnvDefeat,     "ELfoDSt", "ELFOdSt",                OnOff,           0.0F,      Switch, Yes,  &Engine::setEnvToLfoDepthSwitch,  nullptr)                      \
    ROW(kDepthLFOByEnv,           "EnLfoDt", "EF-LFOdeep",             BipolarPercent,  0.5F,      Fine,   Yes,  &Engine::setEnvToLfoDepth,        nullptr)                      \
    ROW(kFilterType,              "FltrTyp", "Filter Type",            FilterMorph,     0.0F,      Fine,   Yes,  &Engine::setFilterType,           nullptr)                      \
    ROW(kFilterPole,              "FltrSlp", "Filter Slope",           Slope,           1.0F,      Switch, Yes,  &Engine::setFilterSlope,          nullptr)                      \
    ROW(kFilterReso,              "FltrRes", "Filter Q",               Percent,         0.300797F, Fine,   Yes,  &Engine::setResonance,            nullptr)                      \
    ROW(kFilterCutoffFreq,        "FltrCut", "Filter Cutoff",          CutoffHz,        0.566642F, Cutoff, Yes,  &Engine::setCutoff,               &Effect::tellFrequencySlider) \
    ROW(kFilterFreqMin,           "",        "",                       Empty,           0.0F,      Cutoff, No,   nullptr,                          nullptr)                      \
    ROW(kFilterFreqMax,           "",        "",                       Empty,           1.0F,      Cutoff, No,   nullptr,                          nullptr)                      \
    ROW(kParam2,                  "",        "",                       Empty,           0.0F,      Spare,  No,   nullptr,                          nullptr)                      \
    ROW(kFilterSaturation,        "FltrSat", "Filter Saturate",        Percent,         0.5F,      Fine,   Yes,  &Engine::setFilterSaturation,     nullptr)                      \
    ROW(kEnvThresholdMode,        "ThrsMod", "EFthresholdMode",        ThresholdMode,   0.0F,      Switch, Yes,  &Engine::setEnvThresholdMode,     nullptr)                      \
    ROW(kEnvThreshold,            "Thresh",  "EFthreshold",            ThresholdDb,     0.5F,      Fine,   Yes,  &Engine::setEnvThreshold,         nullptr)                      \
    ROW(kEnvAttack,               "Attack",  "EFattack",               AttackMs,        0.67191F,  Fine,   Yes,  &Engine::setEnvAttack,            nullptr)                      \
    ROW(kEnvAttackExtension,      "AtkExtn", "EFattackExtended",       ExtensionFactor, 0.5F,      Fine,   Yes,  &Engine::setEnvAttackExtension,   nullptr)                      \
    ROW(kEnvRelease,              "Release", "EFrelease",              ReleaseMs,       0.667329F, Fine,   Yes,  &Engine::setEnvRelease,           nullptr)                      \
    ROW(kEnvRange,                "Range",   "EFrange",                Percent,         0.504156F, Fine,   Yes,  &Engine::setEnvRange,             nullptr)                      \
    ROW(kFilterFreqByLFODefeat,   "LfFrqSt", "LFrqSta",                OnOff,           0.0F,      Switch, Yes,  &Engine::setLfoToCutoffSwitch,    nullptr)                      \
    ROW(kFilterFreqByLFO,         "LfoFreq", "LFO-Frq",                Percent,         0.0F,      Fine,   Yes,  &Engine::setLfoToCutoff,          nullptr)                      \
    ROW(kGainByLFODefeat,         "LGainSt", "LGaiSta",                OnOff,           0.0F,      Switch, Yes,  &Engine::setLfoToGainSwitch,      nullptr)                      \
    ROW(kGainByLFO,               "LfoGain", "LFO-Gain",               BipolarPercent,  0.5F,      Fine,   Yes,  &Engine::setLfoToGain,            nullptr)                      \
    ROW(kFilterFreqByENVDefeat,   "EnFrqSt", "EFrqSta",                OnOff,           1.0F,      Switch, Yes,  &Engine::setEnvToCutoffSwitch,    nullptr)                      \
    ROW(kFilterFreqByENV,         "EnvFreq", "EF-Frq",                 BipolarPercent,  0.849953F, Fine,   Yes,  &Engine::setEnvToCutoff,          nullptr)                      \
    ROW(kGainByENVDefeat,         "EGainSt", "EGaiSta",                OnOff,           0.0F,      Switch, Yes,  &Engine::setEnvToGainSwitch,      nullptr)                      \
    ROW(kGainByENV,               "EnvGain", "EF-Gain",                BipolarPercent,  0.5F,      Fine,   Yes,  &Engine::setEnvToGain,            nullptr)                      \
    ROW(kFreqFollow,              "",        "",                       Empty,           0.0F,      Fine,   No,   nullptr,                          nullptr)                      \
    ROW(kLimSoftSatRouting,       "Route",   "Route",                  Routing,         0.0F,      Three,  Yes,  &Engine::setRouting,              nullptr)                      \
    ROW(kLimiterDefeat,           "LimStat", "Limiter Status",         OnOff,           1.0F,      Switch, Yes,  &Engine::setLimiterSwitch,        nullptr)                      \
    ROW(kLimiterTreshold,         "LimLvl",  "Limiter Level",          Percent,         0.5F,      Fine,   Yes,  &Engine::setLimiterLevel,         nullptr)                      \
    ROW(kSoftSatDefeat,           "SatStat", "SoftSat Status",         OnOff,           1.0F,      Switch, Yes,  &Engine::setSaturatorSwitch,      nullptr)                      \
    ROW(kSoftSatTreshold,         "SatLvl",  "SoftSat Level",          Percent,         0.5F,      Fine,   Yes,  &Engine::setSaturatorDrive,       nullptr)                      \
    ROW(kDryDefeat,               "DryStat", "DryStat",                OnOff,           0.0F,      Switch, Yes,  &Engine::setDrySwitch,            nullptr)                      \
    ROW(kDry,                     "Dry",     "Dry",                    LevelDb,         0.5F,      Fine,   Yes,  nullptr,                          &Effect::applyDrySource)      \
    ROW(kDryGlobal,               "",        "",                       Empty,           0.5F,      Fine,   No,   nullptr,                          &Effect::applyDrySource)      \
    ROW(kWetDefeat,               "WetStat", "WetStat",                OnOff,           1.0F,      Switch, Yes,  &Engine::setWetSwitch,            nullptr)                      \
    ROW(kWet,                     "Wet",     "Wet",                    LevelDb,         0.5F,      Fine,   Yes,  nullptr,                          &Effect::applyWetSource)      \
    ROW(kWetGlobal,               "",        "",                       Empty,           0.5F,      Fine,   No,   nullptr,                          &Effect::applyWetSource)      \
    ROW(kDryWetGlobal,            "DW_Glb",  "DW_Glb",                 LevelSource,     0.0F,      Switch, Yes,  nullptr,                          &Effect::applyBothSources)    \
    ROW(kModulationOnOff,         "AllMod",  "All Modulation Switch",  Modulation,      0.0F,      Switch, Yes,  &Engine::setModulation,           nullptr)                      \
    ROW(kParam3,                  "",        "",                       Empty,           0.0F,      Spare,  No,   nullptr,                          nullptr)                      \
    ROW(kFreqNoteScaleSwitch,     "Scale",   "Scale",                  NoteScale,       0.0F,      Switch, Yes,  nullptr,                          nullptr)
// clang-format on
