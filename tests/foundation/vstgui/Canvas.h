#pragma once

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/common/pixmansurface.h"

#include <algorithm>
#include <string>
#include <vector>

namespace pedl::test {

/// A small transparent surface to draw on, whose pixels are told as rows of text.
class Canvas {
public:
    Canvas(double width, double height, double scale = 1.0)
        : surface_(width, height, scale), context_(VSTGUI::createPixmanContext(surface_)) {}
    ~Canvas() { context_->forget(); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    VSTGUI::CDrawContext* operator->() { return context_; }
    VSTGUI::CDrawContext* context() { return context_; }
    VSTGUI::PixmanSurface& surface() { return surface_; }
    uint32_t at(int x, int y) const { return surface_.pixelAt(x, y); }
    uint32_t alphaAt(int x, int y) const { return at(x, y) >> 24; }

    /// '.' transparent, '#' opaque, '+' between.
    std::vector<std::string> picture() const {
        std::vector<std::string> rows;
        for (int y = 0; y < surface_.heightPixels(); ++y) {
            std::string& row = rows.emplace_back();
            for (int x = 0; x < surface_.widthPixels(); ++x)
                row += alphaAt(x, y) == 0 ? '.' : alphaAt(x, y) == 255 ? '#' : '+';
        }
        return rows;
    }

    struct Ink {
        int left, top, right, bottom; // right and bottom outside
    };
    /// The smallest rectangle around what is not transparent; left above right when nothing is.
    Ink ink(uint32_t leastAlpha = 1) const {
        Ink box{surface_.widthPixels(), surface_.heightPixels(), 0, 0};
        for (int y = 0; y < surface_.heightPixels(); ++y)
            for (int x = 0; x < surface_.widthPixels(); ++x)
                if (alphaAt(x, y) >= leastAlpha)
                    box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
                           std::max(box.bottom, y + 1)};
        return box;
    }

private:
    VSTGUI::PixmanSurface surface_;
    VSTGUI::CDrawContext* context_;
};

using Rows = std::vector<std::string>;

} // namespace pedl::test
