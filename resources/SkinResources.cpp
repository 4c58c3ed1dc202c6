#include "resources/SkinResources.h"

#include "vstgui/lib/platform/iplatformbitmap.h"

// Laid down by embeddedskin.S; hidden, so that its address needs no look-up.
#pragma GCC visibility push(hidden)
extern "C" {
extern const std::byte pedlSkin[], pedlSkinEnd[];
}
#pragma GCC visibility pop

namespace pedl::skin {

namespace {

const PictureRow& pictureAt(const void* packed) {
    return *static_cast<const PictureRow*>(packed);
}

constexpr VSTGUI::PackedFormat kFormat{
    [](const void* packed, std::int32_t frame) -> std::int32_t {
        return embeddedSkin().basisOf(pictureAt(packed), frame);
    },
    [](const void* packed, std::int32_t frame, std::uint32_t* pixels, const std::uint32_t* basis) {
        embeddedSkin().unpack(pictureAt(packed), frame, pixels, basis);
    }};

bool lookUp(const VSTGUI::CResourceDescription& resource, std::int32_t scale,
            VSTGUI::ResourceImage& image) {
    if (resource.type != VSTGUI::CResourceDescription::kIntegerType)
        return false;
    const PackedSkin skin = embeddedSkin();
    const PictureRow* const picture = skin.find(static_cast<std::uint32_t>(resource.u.id), scale);
    if (!picture)
        return false;
    image.widthPixels = picture->width;
    image.heightPixels = picture->height * picture->frames;
    image.packed = &skin.firstLike(*picture);
    image.format = &kFormat;
    image.frames = picture->frames;
    return true;
}

} // namespace

PackedSkin embeddedSkin() {
    return PackedSkin({pedlSkin, pedlSkinEnd});
}

void useEmbeddedSkin() {
    VSTGUI::setResourceLookup(lookUp);
}

} // namespace pedl::skin
