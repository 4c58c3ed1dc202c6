#include "resources/painter/PaintAll.h"

#include <cairo.h>

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstring>
#include <exception>
#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <thread>

namespace {

using namespace pedl::skin;

constexpr std::string_view kUsage =
    "usage: pedl-skin-painter [--threads N] FOLDER\n"
    "\n"
    "Draws every bitmap of the skin at scale 1 and 2 and writes it into FOLDER, for eyes:\n"
    "FOLDER/12179.png at scale 1, FOLDER/12179@2x.png at scale 2. Bitmaps that look the same\n"
    "are written once, under the first identifier of the skin's table.\n";

struct Options {
    std::filesystem::path folder;
    unsigned threads = std::max(1U, std::thread::hardware_concurrency());
};

Options parse(int count, char** arguments) {
    Options options;
    for (int i = 1; i < count; ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--threads" && i + 1 < count) {
            const std::string_view number = arguments[++i];
            const auto [end, error] =
                std::from_chars(number.data(), number.data() + number.size(), options.threads);
            if (error != std::errc{} || end != number.data() + number.size() ||
                options.threads == 0)
                throw std::invalid_argument("--threads: not a number of threads");
        } else if (argument.starts_with("-") || !options.folder.empty()) {
            throw std::invalid_argument(std::string(kUsage));
        } else {
            options.folder = argument;
        }
    }
    if (options.folder.empty())
        throw std::invalid_argument(std::string(kUsage));
    return options;
}

struct Destroy {
    void operator()(cairo_surface_t* surface) const { cairo_surface_destroy(surface); }
};

void writePng(const std::filesystem::path& path, const Picture& picture) {
    const std::unique_ptr<cairo_surface_t, Destroy> surface(
        cairo_image_surface_create(CAIRO_FORMAT_ARGB32, picture.width, picture.height));
    unsigned char* const data = cairo_image_surface_get_data(surface.get());
    if (data == nullptr)
        throw std::runtime_error(path.string() + ": no memory for the picture");
    for (int y = 0; y < picture.height; ++y)
        std::memcpy(data + static_cast<std::ptrdiff_t>(y) *
                               cairo_image_surface_get_stride(surface.get()),
                    picture.pixels.data() + static_cast<std::ptrdiff_t>(y) * picture.width,
                    static_cast<std::size_t>(picture.width) * sizeof(std::uint32_t));
    cairo_surface_mark_dirty(surface.get());
    if (cairo_surface_write_to_png(surface.get(), path.c_str()) != CAIRO_STATUS_SUCCESS)
        throw std::runtime_error(path.string() + ": cannot be written");
}

} // namespace

int main(int count, char** arguments) {
    try {
        const Options options = parse(count, arguments);
        std::filesystem::create_directories(options.folder);
        paintAll(options.threads, [&](Drawing drawing, int scale, const Picture& picture) {
            const std::string name = std::to_string(firstBitmapOf(drawing).id);
            writePng(options.folder / (name + (scale == 1 ? ".png" : "@2x.png")), picture);
        });
        return 0;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "pedl-skin-painter: %s\n", failure.what());
        return 1;
    }
}
