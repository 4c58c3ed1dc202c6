#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "resources/packed/PackedRows.h"

namespace pedl::skin {

/// The part of a strip's frames where anything is: premultiplied ARGB words, frame after frame.
struct StripContent {
    int width = 0;
    int height = 0;
    int frames = 1;
    Tolerance tolerance;
    std::vector<std::uint32_t> pixels;

    [[nodiscard]] std::size_t framePixels() const {
        return static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    }
    [[nodiscard]] const std::uint32_t* frame(int index) const {
        return pixels.data() + static_cast<std::size_t>(index) * framePixels();
    }
    /// Whether no eye could tell them apart.
    [[nodiscard]] bool looksLike(const StripContent& other) const;
};

struct PackedFrame {
    int basis = -1;
    std::vector<std::uint8_t> bytes;
};

struct PackedStrip {
    bool isOpaque = false;
    std::vector<std::uint8_t> odds;
    std::vector<PackedFrame> frames;
};

PackedStrip packStrip(const StripContent& content);

} // namespace pedl::skin
