// The plug-in scanners of real hosts load the library, ask what it is and unload it. They run
// where those hosts are installed.

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>

namespace pedl::test {

namespace {

constexpr const char* kArdourScanner = "/usr/lib/ardour7/ardour-vst-scanner";
constexpr const char* kQtractorScanner = "/usr/lib/x86_64-linux-gnu/qtractor/qtractor_plugin_scan";

struct Outcome {
    int status = -1;
    std::string output; ///< both streams
};

Outcome run(const std::string& command) {
    Outcome outcome;
    FILE* pipe = popen(("(" + command + ") 2>&1").c_str(), "r");
    for (int byte = std::fgetc(pipe); byte != EOF; byte = std::fgetc(pipe))
        outcome.output += static_cast<char>(byte);
    outcome.status = pclose(pipe);
    return outcome;
}

bool isMissing(const char* scanner) {
    return !std::filesystem::exists(scanner);
}

} // namespace

TEST(Scanner, ArdourFindsAnEffectWithTwoInputsAndOutputs) {
    if (isMissing(kArdourScanner))
        GTEST_SKIP() << "not installed: " << kArdourScanner << " (package ardour)";
    // The scanner keeps its findings in the user's cache; here that is a folder of the test's.
    const std::string home = testing::TempDir() + "zmt-pedlfilter-scanner";
    const Outcome outcome = run("HOME=" + home + " XDG_CACHE_HOME=" + home + "/cache" +
                                " LD_LIBRARY_PATH=/usr/lib/ardour7 timeout 60 " + kArdourScanner +
                                " -f -v " PEDL_PLUGIN_PATH);
    std::filesystem::remove_all(home);

    EXPECT_EQ(outcome.status, 0) << outcome.output;
    for (const char* expected :
         {"name=\"ZMT pedlFilter\"", "category=\"Effect\"", "n_inputs=\"2\" n_outputs=\"2\"",
          "is_instrument=\"0\"", "can_process_replace=\"1\""})
        EXPECT_NE(outcome.output.find(expected), std::string::npos) << expected << " missing in\n"
                                                                    << outcome.output;
}

TEST(Scanner, QtractorListsTheEffect) {
    if (isMissing(kQtractorScanner))
        GTEST_SKIP() << "not installed: " << kQtractorScanner << " (package qtractor)";
    const Outcome outcome =
        run("echo VST:" PEDL_PLUGIN_PATH " | QT_QPA_PLATFORM=offscreen timeout 60 " +
            std::string(kQtractorScanner));

    EXPECT_EQ(outcome.status, 0) << outcome.output;
    // Kind, name, audio and MIDI channels in and out; the number of controls follows.
    EXPECT_NE(outcome.output.find("VST|ZMT pedlFilter|2:2|"), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.output.find("|0x5a4d7046"), std::string::npos) << outcome.output;
}

} // namespace pedl::test
