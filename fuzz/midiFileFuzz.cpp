// MIDI-settings files, broken ones too, through the reader that serves paths, user defaults and
// memories.

#include "fuzz/FileFuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    pedl::fuzz::loadAsFile(pedl::FileKind::MidiSettings, data, size);
    return 0;
}
