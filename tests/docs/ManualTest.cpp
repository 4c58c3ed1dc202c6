// The operation manual against what it describes: parameters, controls, and its own file of HTML.

#include "editor/ControlLayout.h"
#include "parameters/ParameterCatalogue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <string_view>

namespace pedl {
namespace {

std::string contents(const char* path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The table's row that holds `what`, from its line's begin to its end; empty when there is none.
std::string rowWith(const std::string& text, const std::string& what) {
    const std::size_t found = text.find(what);
    if (found == std::string::npos)
        return {};
    const std::size_t begin = text.rfind('\n', found) + 1;
    return text.substr(begin, text.find('\n', found) - begin);
}

/// Whether `row` says `words` as a whole, not as a part of a longer number or word.
bool says(std::string row, std::string_view words) {
    std::replace_if(
        row.begin(), row.end(), [](char c) { return c == '|' || c == ','; }, ' ');
    while (words.ends_with(' '))
        words.remove_suffix(1);
    return (" " + row + " ").find(" " + std::string(words) + " ") != std::string::npos;
}

TEST(Manual, NamesEveryParameterOfTheHostWithItsRange) {
    const std::string manual = contents(PEDL_MANUAL_SOURCE);
    for (const ParameterRow& parameter : kParameterRows) {
        if (parameter.shortName.empty())
            continue;
        const std::string row = rowWith(manual, "| `" + std::string(parameter.shortName) + "` |");
        EXPECT_NE(row, "") << parameter.shortName;
        for (const float end : {0.0F, 1.0F}) {
            const DisplayText text = parameterText(parameter.index, end);
            EXPECT_TRUE(says(row, text.view())) << text.view() << " in " << row;
        }
    }
}

/// How the manual calls what is on the face and no parameter of the host.
// clang-format off
const std::map<std::int32_t, std::string> kCalled{
    {kEfLEDMeter, "EF lamp"}, {kLfoLEDMeter_L, "L and R lamps"}, {kLfoLEDMeter_R, "L and R lamps"},
    {kLimiterLEDMeter, "LIM lamp"}, {kSoftSatLED, "SOFT SAT lamp"},
    {kWetLEDMeter, "DRY lamp, WET lamp"}, {kDryLEDMeter, "DRY lamp, WET lamp"},
    {kFreezStatusLED, "FREEZE lamp"}, {kPowerLED, "BYPASS lamp"},
    {kFilterFreqSlider, "Cut-off scale"}, {kLFOEncoder, "LFO RATE dial"},
    {kCutoffEncoder, "CUT-OFF dial"}, {kDisplayMode_Cutoff, "CUT-OFF, lamp"},
    {kDisplayMode_LFORate, "LFO RATE, lamp"}, {kSynchroTempoFromHost, "Display"},
    {kDryWetMix, "MIX"}, {kInverseInputLink, "LINK"}, {kModulationLockLabel, "Lock"},
    {kAbout, "Name plate"}, {kPresetNameEdit, "Name field"}, {kPresetMenu, "Menu arrow ▾"},
    {kPresetPrevNext, "◂ ▸ beside the name"}, {kBankLoad, "BANK, load"}, {kBankSave, "BANK, save"},
    {kBankDefault, "BANK, the word"}, {kPresetLoad, "PRESET, load"}, {kPresetSave, "PRESET, save"},
    {kPresetDefault, "PRESET, the word"}, {kSlotARecall, "A, recall"}, {kSlotASave, "A, store"},
    {kSlotBRecall, "B, recall"}, {kSlotBSave, "B, store"}, {kMidiCCDisplay, "CC"},
    {kMidiChannel, "CH"}, {kMidiLearn, "LEARN"}, {kMidiSettingsLoad, "MIDI, load"},
    {kMidiSettingsSave, "MIDI, save"}, {kMidiSettingsDefault, "MIDI, the word"},
    {kMidiForget, "FORGET"}, {kMidiReset, "RESET"}, {kMidiActivityLED, "MIDI IN lamp"},
    {kManual, "MANUAL"}, {kHintLabel, "Hint line"}, {kHintsOnOff, "?"},
};
// clang-format on

TEST(Manual, ExplainsEveryControlOfTheFace) {
    const std::string manual = contents(PEDL_MANUAL_SOURCE);
    std::set<std::int32_t> tags;
    for (const ControlRow& row : kPanelRows)
        tags.insert(row.tag);
    for (const ControlRow& row : kBarRows)
        tags.insert(row.tag);
    for (const std::int32_t tag : tags) {
        if (isParameter(tag)) {
            EXPECT_FALSE(shortParameterName(tag).empty())
                << tag; // else the test above passes it over
            continue;
        }
        const auto called = kCalled.find(tag);
        ASSERT_NE(called, kCalled.end()) << tag << " is new: what does the manual call it?";
        EXPECT_NE(rowWith(manual, "\n| **" + called->second + "** | "), "") << called->second;
    }
}

TEST(Manual, IsOneFileWhoseLinksAllLeadIntoIt) {
    const std::string page = contents(PEDL_MANUAL_HTML);
    if (page.empty())
        GTEST_SKIP() << "built without pandoc";
    for (const char* const outside : {"http:", "https:", "src=\"//", "<link", "<script"})
        EXPECT_EQ(page.find(outside), std::string::npos) << outside;

    const std::string link = "href=\"";
    std::size_t links = 0;
    for (auto at = page.find(link); at != std::string::npos; at = page.find(link, at), ++links) {
        at += link.size();
        const std::string target = page.substr(at, page.find('"', at) - at);
        EXPECT_TRUE(target.starts_with('#') &&
                    page.find("id=\"" + target.substr(1) + "\"") != std::string::npos)
            << target;
    }
    EXPECT_GT(links, 40U);
}

} // namespace
} // namespace pedl
