// Hands every file of the folders that it is given to the fuzz target it is linked with, once, in
// the order of their names. So the corpus is a test of every build, without libFuzzer.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> filesIn(const char* folder) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
        if (entry.is_regular_file())
            files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

void replay(const std::filesystem::path& file) {
    std::printf("%s\n", file.c_str());
    std::fflush(stdout); // the last name is the culprit when the process ends here
    std::ifstream stream(file, std::ios::binary);
    const std::vector<char> bytes(std::istreambuf_iterator<char>(stream), {});
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

} // namespace

int main(int count, char** folders) {
    std::size_t replayed = 0;
    for (int i = 1; i < count; ++i)
        for (const std::filesystem::path& file : filesIn(folders[i])) {
            replay(file);
            ++replayed;
        }
    std::printf("%zu inputs\n", replayed);
    return replayed > 0 ? 0 : 1; // a missing corpus tests nothing
}
