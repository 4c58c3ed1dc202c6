#pragma once

// The longer texts of the command's help, from which its man pages are made as well.

namespace pedl {

constexpr const char* kExamples = R"(
Examples:
  $ zmt-pedlfilter render riff.wav out.wav --program "Manual HPF 24dB/oct"
  $ zmt-pedlfilter render riff.wav out.flac --set "Filter Cutoff=1200" "Filter Slope=24 dB" 20=0.4
  $ zmt-pedlfilter render pad.wav out.wav --automate "Filter Cutoff=sweep.csv" --block 64 --tail 2
  $ zmt-pedlfilter render pad.wav out.wav --midi song.mid --link "Filter Cutoff=74" --set LFOsync=hostBPM
  $ zmt-pedlfilter render *.wav --to filtered --format flac
  $ zmt-pedlfilter show --program "Auto Wah" --play riff.wav
  $ zmt-pedlfilter params --program 5 --json
  $ zmt-pedlfilter convert bank.zmb bank.json
  $ zmt-pedlfilter convert bank.zmb bank.zmb --slot 12=wah.zmt
  $ zmt-pedlfilter diff old.zmb bank.json
  $ zmt-pedlfilter diff bank.zmb --program 12 "Auto Wah"

`zmt-pedlfilter SUBCOMMAND --help` tells the rest. Without --plugin, ZMTpedlFilter.so is looked for
beside the command, in ../plugin and ../lib/vst from there, and where hosts look for plug-ins: in the
folders that VST_PATH names (with colons between them), ~/.vst, /usr/local/lib/vst and /usr/lib/vst.
There the name alone will do for --plugin too. ZMT pedlFilter reads the user's defaults as it does in
any host.

Exit status:
  0    all went well; for diff, there is no difference
  1    a file, the plug-in, the display or a value was wrong, with one line on standard error; for
       diff, there is a difference
  2    the command line was wrong; for diff, a file cannot be read or nothing can be compared
  128  and the signal's number: interrupted)";

constexpr const char* kRenderNotes = R"(
`render IN OUT` processes one file, `render IN ... --to FOLDER` many, each with an instance of the
plug-in of its own, into files with their names. One that fails is told of and does not keep the
others from it.

PARAMETER is an index from `zmt-pedlfilter params`, or a name: upper and lower case are alike, and
the full name ("Filter Cutoff"), its unmistakable beginning and "cutoff" will do. Of several programs
with the same name --program takes the first and says so. VALUE after a name is a
text that the parameter shows ("1200", "24 dB", "off"). A number may have its unit, or another of the
same quantity ("1.2 kHz", "1.2k", "0.3 s"); any other is refused. The beginning of a word will do
("host" for "hostBPM"), "1/4" is "1:4" and "-inf" is "-oo". A number after an index is the
normalised value, 0 to 1.

--bank, --program, --preset, --midi-settings, --set and --link take effect in this order, wherever they
stand, then curves and MIDI. Files are for ZMT pedlFilter alone; `zmt-pedlfilter convert` makes them.

A curve is a text file with lines "seconds,value", joined by straight lines of the normalised value.
A value is a number from 0 to 1, or a text that the parameter shows, with its unit ("2.5,1.2 kHz",
"3,off"); after a first line "seconds,text" plain numbers are such texts too. Lines that begin with #
and a first line of other words are skipped. It is read at the start of every block, so
a smaller --block follows it more closely.

A MIDI file (format 0 or 1) begins with IN. All its channel messages reach the plug-in, each at its
frame; the tempo, the time signature and the place in the song follow it. Blocks are cut where it
has something due, so what MIDI does is independent of --block. Controllers move what they are linked
to, by --link for one. Where the file has no tempo yet, --tempo is the tempo.

What is likely not what you meant is told on standard error, a line each, and refused with --strict: a
MIDI file that moves nothing, a curve that ends before the sound, a file that is shorter than its head
says, input beyond full scale, output that was cut off there, repairs of stored files.

IN is mono or stereo at 44100 to 192000 Hz, in any format that libsndfile reads. OUT is stereo: 32-bit
float for .wav (and without an ending), .aiff, .caf, .w64 and .rf64, 24 bits for .flac, Vorbis for
.ogg. --bits 16 and 24 round to integers, without dither. Title, artist and what else IN says of
itself are kept where OUT has room for them. OUT appears whole or not at all; an existing file is
replaced only by a finished render. It is what the plug-in gives: a latency that `zmt-pedlfilter info`
shows is not taken out.

"-" as IN takes WAV or AIFF from a pipe as it comes, "-" as OUT gives .wav (or --format aiff, flac,
ogg) as it is made; what is told of it goes to standard error.

--tail auto ends OUT where all that follows is below -100 dBFS.)";

constexpr const char* kShowNotes = R"(
The window closes by its button, by Ctrl-C, or after --seconds. Every VST 2.4 library that has an
editor will do; --bank, --program, --preset, --midi-settings, --set and --link are as with `render`.

FILE of --play is what `render` reads, at its own rate. It is held in memory and heard through JACK,
PulseAudio or ALSA, the first that takes that rate; where there is none it runs unheard, so that
meters move all the same. What happens is told on standard error.

--screenshot waits until the editor has painted; with --play a second, or --seconds. The picture has
the size of the window, all of which must be on the screen. Where DISPLAY names no X server, Xvfb
serves for it, if it is installed.

--scale sets ZMT_EDITOR_SCALE in the environment, which ZMTpedlFilter.so reads in any host.)";

constexpr const char* kConvertStart = R"(
What IN is shows in its contents, whatever it is called: a program, bank or MIDI-settings file, old
ones and those of big-endian machines too, a host chunk, or the text form of one of them. The ending
of OUT says what it becomes:

)";

constexpr const char* kConvertEnd = R"(
`convert bank.zmb --to FOLDER` takes a bank apart into its 140 programs, "000 Default.zmt" and so on;
`convert FOLDER/*.zmt bank.zmb` joins them again. Several programs make a bank, from slot 0 on.

--slot 12=wah.zmt puts the program of a file into slot 12 of what was read; everything else stays.
MIDI settings hold no programs, so they become .zmm, .chunk or .json only. A bank file that is made
of a host chunk leaves its MIDI links out, with a warning. With a bank or a host chunk as OUT,
--program makes that program the current one.

In the text form a parameter is {"value": 0 to 1, "text": what the plug-in shows}. The value counts:
a text that is not the value's is warned about. Without a value the text is looked up as --set does
it. What is missing is the factory's. OUT is replaced whole or not at all and may be IN itself, which
puts its texts right.)";

constexpr const char* kDiffNotes = R"(
A and B are anything that convert reads; one of them can be "-", standard input. A program is compared with the current one of a bank;
--program compares two of A's own. Each line names slot, program and parameter, with both texts;
values with the same text are given as numbers.

Exit status:
  0    there is no difference
  1    there is one
  2    a file cannot be read, nothing can be compared or the command line is wrong)";

} // namespace pedl
