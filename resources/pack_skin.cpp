// Draws the skin and packs it for the library to embed, when the project is built.
// Usage: pack-skin FILE

#include "resources/SkinTable.h"
#include "resources/packed/Parallel.h"
#include "resources/packed/SkinPacker.h"
#include "resources/painter/Painter.h"

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>

namespace pedl::skin {

namespace {

/// One frame to be drawn, and where its pixels go.
struct Job {
    Drawing drawing;
    int frame;
    DrawnStrip* strip;

    [[nodiscard]] std::size_t pixels() const {
        return static_cast<std::size_t>(strip->width) * static_cast<std::size_t>(strip->height);
    }
};

Tolerance toleranceOf(Drawing drawing) {
    switch (drawing) {
    case Drawing::Background: // on the screen all the time, smooth ground beside fine print
        return {0, 1};
    case Drawing::About: // seldom seen
        return {1, 2};
    default:
        return {1, 1};
    }
}

DrawnStrip emptyStrip(Drawing drawing, int scale) {
    const SkinBitmap& first = firstBitmapOf(drawing);
    DrawnStrip strip;
    for (const SkinBitmap& bitmap : kSkinBitmaps)
        if (bitmap.drawing == drawing)
            strip.ids.push_back(static_cast<std::uint32_t>(bitmap.id));
    strip.scale = scale;
    strip.width = first.width * scale;
    strip.height = first.frameHeight * scale;
    strip.frames = first.frames;
    strip.tolerance = toleranceOf(drawing);
    strip.pixels.resize(static_cast<std::size_t>(strip.width) *
                        static_cast<std::size_t>(strip.height) *
                        static_cast<std::size_t>(strip.frames));
    return strip;
}

void draw(const Job& job) {
    const Picture picture = paintFrame(job.drawing, job.frame, job.strip->scale);
    if (picture.width != job.strip->width || picture.height != job.strip->height ||
        picture.pixels.size() != job.pixels())
        throw std::logic_error("the painter draws another size than the table has");
    std::copy(picture.pixels.begin(), picture.pixels.end(),
              job.strip->pixels.begin() +
                  static_cast<std::ptrdiff_t>(static_cast<std::size_t>(job.frame) * job.pixels()));
}

std::vector<DrawnStrip> drawAll(unsigned threads) {
    constexpr int kDrawings = static_cast<int>(Drawing::kCount);
    std::vector<DrawnStrip> strips;
    strips.reserve(2 * static_cast<std::size_t>(kDrawings)); // jobs point into it
    std::vector<Job> jobs;
    for (int index = 0; index < kDrawings; ++index)
        for (const int scale : {2, 1}) {
            const auto drawing = static_cast<Drawing>(index);
            DrawnStrip& strip = strips.emplace_back(emptyStrip(drawing, scale));
            for (int frame = 0; frame < strip.frames; ++frame)
                jobs.push_back({drawing, frame, &strip});
        }
    // The large ones first: the last threads to end have small ones.
    std::stable_sort(jobs.begin(), jobs.end(),
                     [](const Job& a, const Job& b) { return a.pixels() > b.pixels(); });
    inParallel(jobs.size(), threads, [&](std::size_t index) { draw(jobs[index]); });
    return strips;
}

void write(const std::vector<std::uint8_t>& bytes, const std::string& path) {
    std::ofstream file(path, std::ios::binary);
    file.exceptions(std::ios::failbit | std::ios::badbit);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    file.close();
}

} // namespace

void packTo(const std::string& path) {
    const unsigned threads = std::thread::hardware_concurrency();
    write(packSkin(drawAll(threads), threads), path);
}

} // namespace pedl::skin

int main(int count, char** arguments) {
    if (count != 2) {
        std::fprintf(stderr, "usage: pack-skin FILE\n");
        return 2;
    }
    try {
        pedl::skin::packTo(arguments[1]);
    } catch (const std::exception& problem) {
        std::fprintf(stderr, "pack-skin: %s\n", problem.what());
        return 1;
    }
    return 0;
}
