#pragma once

#include "vstgui/lib/platform/iplatformbitmap.h"

#include <map>
#include <memory>
#include <vector>

namespace pedl::test {

/// The pixel of a test strip's frame: which frame it is, and that of the double image.
constexpr uint32_t framePixel(uint32_t frame, uint32_t scale = 1) {
    return 0xFF400000U | (scale - 1) << 15 | frame;
}

struct Forget {
    void operator()(VSTGUI::CBaseObject* object) const { object->forget(); }
};
using Bitmap = std::unique_ptr<VSTGUI::CBitmap, Forget>;

/// A strip whose frames are plain `framePixel`s, at scale 1 and 2.
inline Bitmap strip(int32_t frames, int32_t width, int32_t frameHeight) {
    VSTGUI::setResourceLookup([](const VSTGUI::CResourceDescription& resource, int32_t scale,
                                 VSTGUI::ResourceImage& image) {
        static std::map<std::pair<int32_t, int32_t>, std::vector<uint32_t>> made;
        const int32_t id = resource.u.id;
        const int32_t columns = id / 100 % 1000 * scale, rows = id % 100 * scale;
        std::vector<uint32_t>& pixels = made[{id, scale}];
        if (pixels.empty())
            for (int32_t i = 0; i < id / 100000 * columns * rows; ++i)
                pixels.push_back(framePixel(static_cast<uint32_t>(i / (columns * rows)),
                                            static_cast<uint32_t>(scale)));
        image = {pixels.data(), columns, id / 100000 * rows};
        return true;
    });
    return Bitmap(new VSTGUI::CBitmap(frames * 100000 + width * 100 + frameHeight));
}

} // namespace pedl::test
