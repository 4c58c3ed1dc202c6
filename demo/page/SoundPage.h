#pragma once

#include "demo/ModulationTrace.h"
#include "demo/StereoSound.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace pedl::demo {

/// What a page calls things.
struct PageWords {
    std::string title;
    std::string entries = "programs"; ///< what it lists
    std::string number = "slot";      ///< what stands before an entry's number
    std::vector<std::string> notes{}; ///< what is to be known of the sounds, a line each
};

/// A sound that is heard dry.
struct PageMaterial {
    std::string name;
    std::string sound; ///< the file, from the page
    double seconds = 0.0;
};

/// What became of a material.
struct PageRendering {
    std::size_t material = 0;
    std::string sound;   ///< the file, from the page
    std::string picture; ///< a file with a larger one, from the page; may be none
    StereoSound output;
    ModulationTrace trace;
};

/// A program, or whatever else makes sounds.
struct PageEntry {
    int number = 0;
    std::string name, family, purpose, turnFirst;
    std::string settings; ///< what it is made of
};

/// The one page on which sounds are heard, dry and wet, and seen. Give it the materials, then each
/// entry with its renderings; sounds are not kept. Texts and names of files may hold anything.
class SoundPage {
public:
    SoundPage(const PageWords& words, const std::vector<PageMaterial>& materials);
    ~SoundPage();
    SoundPage(const SoundPage&) = delete;
    SoundPage& operator=(const SoundPage&) = delete;

    void add(const PageEntry& entry, const std::vector<PageRendering>& renderings);

    /// Writes it whole or not at all. Throws std::runtime_error with the path and the reason.
    void write(const std::filesystem::path& file) const;

private:
    struct Data;
    std::unique_ptr<Data> data_;
};

} // namespace pedl::demo
