#include "host/AuditionCommand.h"

#include "convert/DocumentReader.h"
#include "demo/Material.h"
#include "demo/OwnSound.h"
#include "demo/ProgramPlay.h"
#include "demo/page/SoundPage.h"
#include "foundation/text/NameMatch.h"
#include "foundation/text/PrintableText.h"
#include "host/ProgressBar.h"
#include "parameters/ParameterCatalogue.h"
#include "presets/FactoryNotes.h"
#include "presets/FactoryPrograms.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <system_error>

namespace pedl {

namespace {

using demo::PageEntry;
using demo::PageMaterial;
using demo::PageRendering;
using demo::SoundPage;
namespace fs = std::filesystem;

/// A program of the user's own says not what it is for: it is heard on these.
constexpr std::array<std::string_view, 3> kForAnyProgram{"riff", "drums", "pad"};

/// The materials in use: the user's, or our own, made when they are first wanted.
class Materials {
public:
    Materials(std::vector<fs::path> files, fs::path folder)
        : files_(std::move(files)), folder_(std::move(folder)) {
        if (isOwn())
            for (const std::string& name : demo::materialNames())
                take(name, demo::material(name));
        for (const fs::path& file : files_) {
            demo::OwnSound own = demo::readOwnSound(file);
            take(own.stem, std::move(own.sound));
            notes_.insert(notes_.end(), own.notes.begin(), own.notes.end());
        }
    }

    /// Whether these are our own.
    [[nodiscard]] bool isOwn() const { return files_.empty(); }
    [[nodiscard]] const std::vector<PageMaterial>& forPage() const { return page_; }
    [[nodiscard]] const std::vector<std::string>& notes() const { return notes_; }
    [[nodiscard]] const demo::StereoSound& sound(std::size_t index) const { return sounds_[index]; }

    /// The material that a factory program is made for, or those for programs of unknown purpose;
    /// all that the user named.
    [[nodiscard]] std::vector<std::size_t> forProgram(std::string_view own) const {
        std::vector<std::size_t> indices;
        for (std::size_t i = 0; i < page_.size(); ++i) {
            const bool isForAny =
                std::ranges::find(kForAnyProgram, page_[i].name) != kForAnyProgram.end();
            if (!isOwn() || page_[i].name == own || (own.empty() && isForAny))
                indices.push_back(i);
        }
        return indices;
    }

private:
    void take(const std::string& name, demo::StereoSound sound) {
        const std::string file = "dry-" + std::to_string(page_.size()) + ".wav";
        demo::writeSound((folder_ / file).string(), sound, demo::WavFormat::Short);
        page_.push_back({name, file, sound.lengthSeconds()});
        sounds_.push_back(std::move(sound));
    }

    std::vector<fs::path> files_;
    fs::path folder_;
    std::vector<PageMaterial> page_;
    std::vector<demo::StereoSound> sounds_;
    std::vector<std::string> notes_;
};

/// What differs from "Default", as the plug-in shows it.
std::string settingsOf(const ProgramRecord& program) {
    std::string settings;
    for (std::int32_t index = 0; index < kNumParams; ++index) {
        const float value = program.normalised[static_cast<std::size_t>(index)];
        const std::string_view name = shortParameterName(index);
        if (name.empty() || value == kParameterRows[static_cast<std::size_t>(index)].defaultValue)
            continue;
        settings += (settings.empty() ? "" : " · ") + std::string(name) + " " +
                    std::string(parameterText(index, value).view());
    }
    return settings;
}

Result<std::vector<ProgramRecord>> programsOf(const std::optional<fs::path>& bank) {
    if (!bank)
        return factoryDocument().programs;
    Result<Document> document = readDocument(bank->string());
    if (!document.ok())
        return document.problem().of("--bank");
    if (document.value().programs.empty())
        return Problem{"--bank: " + bank->string() + ": holds no programs"};
    return std::move(document.value().programs);
}

/// The slots that are wanted, in order. Of all programs those that are like an earlier one are
/// left out: a bank has many that are "Init".
Result<std::vector<std::size_t>> wantedSlots(const std::vector<ProgramRecord>& programs,
                                             const std::vector<std::string>& wanted) {
    std::vector<std::size_t> slots;
    std::vector<std::string> names;
    for (std::size_t slot = 0; slot < programs.size(); ++slot) {
        names.emplace_back(nameText(programs[slot].name));
        const auto isLike = [&](std::size_t other) {
            return programs[other].name == programs[slot].name &&
                   programs[other].normalised == programs[slot].normalised;
        };
        if (wanted.empty() && std::ranges::none_of(slots, isLike))
            slots.push_back(slot);
    }
    for (const std::string& text : wanted) {
        const Result<FoundName> found = findNumbered(text, names, "program", "the bank");
        if (!found.ok())
            return found.problem().of("--program");
        slots.push_back(static_cast<std::size_t>(found.value().index));
    }
    return slots;
}

PageEntry described(std::size_t slot, const ProgramRecord& program, std::string& own) {
    PageEntry page{static_cast<int>(slot), printableText(nameText(program.name)), {}, {}, {},
                   settingsOf(program)};
    const bool isFactory =
        slot < kFactoryNotes.size() &&
        program.normalised == factoryProgram(static_cast<std::int32_t>(slot)).normalised;
    if (!isFactory)
        return page;
    const FactoryNotes& notes = kFactoryNotes[slot];
    page.family = notes.family;
    page.purpose = notes.purpose;
    page.turnFirst = notes.turnFirst;
    own = notes.material;
    return page;
}

std::string renderAll(const AuditionRequest& request, const std::vector<ProgramRecord>& programs,
                      const std::vector<std::size_t>& slots) {
    const Materials materials(request.materials, request.out);
    const std::string title =
        request.bank ? printableText(request.bank->filename().string()) : "factory programs";
    SoundPage page({.title = title, .notes = materials.notes()}, materials.forPage());
    ProgressBar progress(true);
    std::size_t sounds = 0;
    for (std::size_t i = 0; i < slots.size(); ++i) {
        progress.show(static_cast<double>(i) / static_cast<double>(slots.size()));
        const ProgramRecord& program = programs[slots[i]];
        std::string own;
        const PageEntry told = described(slots[i], program, own);
        std::vector<PageRendering> renderings;
        for (const std::size_t material : materials.forProgram(own)) {
            demo::PlayedProgram played = demo::playProgram(program, materials.sound(material), {});
            const std::string file =
                "wet-" + std::to_string(slots[i]) + "-" + std::to_string(material) + ".wav";
            demo::writeSound((request.out / file).string(), played.output, demo::WavFormat::Short);
            renderings.push_back(
                {material, file, {}, std::move(played.output), std::move(played.trace)});
            ++sounds;
        }
        page.add(told, renderings);
    }
    const fs::path index = request.out / "index.html";
    page.write(index);
    std::string told;
    for (const std::string& note : materials.notes())
        told += note + "\n";
    return told + index.string() + ": " + std::to_string(slots.size()) + " programs, " +
           std::to_string(sounds) + " sounds\n";
}

} // namespace

Result<std::string> renderAudition(const AuditionRequest& request) {
    const Result<std::vector<ProgramRecord>> programs = programsOf(request.bank);
    if (!programs.ok())
        return programs.problem();
    const Result<std::vector<std::size_t>> slots = wantedSlots(programs.value(), request.programs);
    if (!slots.ok())
        return slots.problem();
    std::error_code error;
    fs::create_directories(request.out, error);
    if (error)
        return Problem{request.out.string() + ": cannot be made: " + error.message()};
    try {
        return renderAll(request, programs.value(), slots.value());
    } catch (const std::runtime_error& failed) { // a sound that cannot be read or written
        return Problem{failed.what()};
    }
}

} // namespace pedl
