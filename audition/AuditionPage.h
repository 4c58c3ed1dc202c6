#pragma once

#include "demo/ModulationTrace.h"
#include "demo/StereoSound.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace pedl::audition {

/// A sound that programs are played on.
struct PageMaterial {
    std::string name;
    std::string sound; ///< the file, from the page
    double seconds = 0.0;
};

/// What a program made of a material.
struct PageRendering {
    std::size_t material = 0;
    std::string sound; ///< the file, from the page
    demo::StereoSound output;
    demo::ModulationTrace trace;
};

struct PageProgram {
    int slot = 0;
    std::string name, family, purpose, turnFirst;
    std::string settings; ///< what differs from "Default", as the plug-in shows it
};

/// The one page on which a bank is heard and seen. Give it the materials, then each program with
/// its renderings; sounds are not kept.
class AuditionPage {
public:
    AuditionPage(std::string title, const std::vector<PageMaterial>& materials);
    ~AuditionPage();
    AuditionPage(const AuditionPage&) = delete;
    AuditionPage& operator=(const AuditionPage&) = delete;

    void add(const PageProgram& program, const std::vector<PageRendering>& renderings);

    [[nodiscard]] std::string html() const;

private:
    struct Data;
    std::unique_ptr<Data> data_;
};

} // namespace pedl::audition
