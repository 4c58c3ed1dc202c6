// Draws the skin and packs it for the library to embed, when the project is built.
// Usage: pack-skin FILE

#include "resources/SkinTable.h"
#include "resources/packed/SkinPacker.h"
#include "resources/painter/PaintAll.h"

#include <cstdio>
#include <exception>
#include <fstream>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

namespace pedl::skin {

namespace {

Tolerance toleranceOf(Drawing drawing) {
    switch (drawing) {
    case Drawing::Background: // smooth ground beside fine print, on the screen all the time
        return {0, 1};
    case Drawing::PowerSwitch: // its ring throws light of one colour on metal of another
        return {1, 1};
    case Drawing::BarGround: // kept for skins that want it, shown by no control
        return {2, 3};
    default:
        return {1, 2};
    }
}

DrawnStrip stripOf(Drawing drawing, int scale, Picture picture) {
    const SkinBitmap& first = firstBitmapOf(drawing);
    if (picture.width != first.width * scale || picture.height != first.height() * scale)
        throw std::logic_error("the painter draws another size than the table has");
    DrawnStrip strip;
    for (const SkinBitmap& bitmap : kSkinBitmaps)
        if (bitmap.drawing == drawing)
            strip.ids.push_back(static_cast<std::uint32_t>(bitmap.id));
    strip.scale = scale;
    strip.width = picture.width;
    strip.height = first.frameHeight * scale;
    strip.frames = first.frames;
    strip.tolerance = toleranceOf(drawing);
    strip.pixels = std::move(picture.pixels);
    return strip;
}

std::vector<DrawnStrip> drawAll(unsigned threads) {
    std::vector<DrawnStrip> strips;
    std::mutex mutex;
    paintAll(threads, [&](Drawing drawing, int scale, Picture picture) {
        DrawnStrip strip = stripOf(drawing, scale, std::move(picture));
        const std::lock_guard lock(mutex);
        strips.push_back(std::move(strip));
    });
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
