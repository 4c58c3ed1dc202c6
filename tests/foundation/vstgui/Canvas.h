#pragma once

#include "vstgui/lib/cdrawcontext.h"
#include "vstgui/lib/platform/common/pixmansurface.h"

#include <string>
#include <vector>

namespace pedl::test {

using Rows = std::vector<std::string>;

/// A small transparent surface to draw on, whose pixels are told as rows of text.
class Canvas {
public:
    Canvas(double width, double height, double scale = 1.0)
        : surface(width, height, scale), context_(VSTGUI::createPixmanContext(surface)) {}
    ~Canvas() { context_->forget(); }
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    VSTGUI::CDrawContext* operator->() { return context_; }
    VSTGUI::CDrawContext* context() { return context_; }
    uint32_t at(int x, int y) const { return surface.pixelAt(x, y); }

    /// '.' transparent, '#' opaque, '+' between.
    Rows picture() const {
        Rows rows;
        for (int y = 0; y < surface.heightPixels(); ++y) {
            std::string& row = rows.emplace_back();
            for (int x = 0; x < surface.widthPixels(); ++x) {
                const uint32_t alpha = at(x, y) >> 24;
                row += alpha == 0 ? '.' : alpha == 255 ? '#' : '+';
            }
        }
        return rows;
    }

    VSTGUI::PixmanSurface surface;

private:
    VSTGUI::CDrawContext* context_;
};

} // namespace pedl::test
