// pedl-demo-material FOLDER: writes riff.wav, drums.wav, pad.wav, bass.wav, voice.wav, funk.wav and
// chords.wav there.

#include "demo/Material.h"

#include <exception>
#include <filesystem>
#include <iostream>
#include <string>

int main(int argumentCount, char** arguments) try {
    using namespace pedl::demo;
    if (argumentCount != 2) {
        std::cerr << "usage: pedl-demo-material FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    std::filesystem::create_directories(folder);
    for (const std::string& name : materialNames())
        writeSound(folder / (name + ".wav"), material(name));
    writeSound(folder / "chords.wav", ringingChords());
    return 0;
} catch (const std::exception& error) {
    std::cerr << "pedl-demo-material: " << error.what() << '\n';
    return 1;
}
