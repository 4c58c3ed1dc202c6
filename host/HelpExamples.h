#pragma once

// Each subcommand's own examples, for the end of its help.

#include "host/CommandLine.h"

namespace pedl {

constexpr const char* examplesOf(Action action) {
    switch (action) {
    case Action::Render:
        return R"(
Examples:
  $ zmt-pedlfilter render riff.wav out.wav --program "Manual HPF 24dB/oct"
  $ zmt-pedlfilter render riff.wav out.flac --set "Filter Cutoff=1200" "Filter Slope=24 dB" 20=0.4
  $ zmt-pedlfilter render pad.wav out.wav --automate "Filter Cutoff=sweep.csv" --block 64 --tail 2
  $ zmt-pedlfilter render pad.wav out.wav --midi song.mid --link "Filter Cutoff=74"
  $ zmt-pedlfilter render pad.wav out.wav --bank mine.zmb --program 12 --set LFOsync=hostBPM --tempo 96
  $ zmt-pedlfilter render riff.wav out.wav --plugin /usr/lib/vst/other.so --set 0=0.25
  $ zmt-pedlfilter render *.wav --to filtered --format flac --bits 16 --tail auto
  $ sox riff.mp3 -t wav - | zmt-pedlfilter render - - | sox -t wav - out.mp3)";
    case Action::Show:
        return R"(
Examples:
  $ zmt-pedlfilter show --program "Auto Wah" --play riff.wav
  $ zmt-pedlfilter show --bank mine.zmb --scale 2
  $ zmt-pedlfilter show --plugin other.so --screenshot other.png)";
    case Action::Programs:
        return R"(
Examples:
  $ zmt-pedlfilter programs
  $ zmt-pedlfilter programs --plugin other.so --json)";
    case Action::Parameters:
        return R"(
Examples:
  $ zmt-pedlfilter params
  $ zmt-pedlfilter params --program "Auto Wah" --json)";
    case Action::Information:
        return R"(
Examples:
  $ zmt-pedlfilter info
  $ zmt-pedlfilter info --plugin /usr/lib/vst/other.so)";
    case Action::Convert:
        return R"(
Examples:
  $ zmt-pedlfilter convert bank.zmb bank.json
  $ zmt-pedlfilter convert bank.zmb wah.zmt --program "Auto Wah"
  $ zmt-pedlfilter convert bank.zmb --to programs
  $ zmt-pedlfilter convert programs/*.zmt bank.zmb
  $ zmt-pedlfilter convert project.chunk -)";
    case Action::Diff:
        return R"(
Examples:
  $ zmt-pedlfilter diff old.zmb new.zmb
  $ zmt-pedlfilter diff mine.zmt bank.json
  $ git show HEAD:bank.zmb | zmt-pedlfilter diff - bank.zmb)";
    case Action::Audition:
        return R"(
Examples:
  $ zmt-pedlfilter audition
  $ zmt-pedlfilter audition --program "Auto Wah" 35 --material riff.wav --out heard)";
    }
    return "";
}

} // namespace pedl
