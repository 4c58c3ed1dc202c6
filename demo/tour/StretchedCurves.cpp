#include "demo/tour/StretchedCurves.h"

#include <fstream>
#include <iomanip>
#include <stdexcept>
#include <string>

namespace pedl::demo {

namespace {

namespace fs = std::filesystem;

void stretchCurve(const fs::path& from, const fs::path& to, double times) {
    std::ifstream curve(from);
    std::ofstream stretched(to);
    stretched << std::setprecision(10);
    for (std::string line; std::getline(curve, line);) {
        const std::size_t comma = line.find(',');
        const bool isPoint = !line.empty() && line[0] >= '0' && line[0] <= '9';
        if (isPoint && comma != std::string::npos)
            stretched << std::stod(line) * times << line.substr(comma) << '\n';
        else
            stretched << line << '\n';
    }
    if (!curve.eof() || !stretched.flush())
        throw std::runtime_error(from.string() + ": cannot be copied to " + to.string());
}

} // namespace

void stretchCurves(const fs::path& from, const fs::path& to, double times) {
    fs::create_directories(to);
    for (const fs::directory_entry& file : fs::directory_iterator(from))
        if (file.path().extension() == ".csv")
            stretchCurve(file.path(), to / file.path().filename(), times);
}

} // namespace pedl::demo
