#include "vstgui/lib/platform/common/fontengine.h"

#include "vstgui/fonts/embeddedfonts.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MODULE_H
#include FT_OUTLINE_H
#include <pixman.h>

namespace VSTGUI {

namespace {

constexpr double kLargestEmPixels = 512.0;
constexpr std::size_t kGlyphBudgetBytes = 4U << 20U; // some 20 sizes with all their letters
constexpr uint32_t kQuarters = 4;                    // places of a letter within a pixel

void* allocate(FT_Memory, long sizeBytes) {
    return std::malloc(static_cast<std::size_t>(sizeBytes));
}

void release(FT_Memory, void* block) {
    std::free(block);
}

void* reallocate(FT_Memory, long, long newSizeBytes, void* block) {
    return std::realloc(block, static_cast<std::size_t>(newSizeBytes));
}

/// Read by the library alone, although its type does not say so.
FT_MemoryRec_ memoryFunctions{nullptr, allocate, release, reallocate};

/// The glyph slot's picture as an alpha image of its own; null when there is no memory.
pixman_image_t* imageOf(const FT_Bitmap& bitmap) {
    const auto width = static_cast<int>(std::max(1U, bitmap.width));
    const auto height = static_cast<int>(std::max(1U, bitmap.rows));
    pixman_image_t* image = pixman_image_create_bits(PIXMAN_a8, width, height, nullptr, 0);
    if (!image)
        return nullptr;
    auto* row = reinterpret_cast<uint8_t*>(pixman_image_get_data(image));
    const uint8_t* source = bitmap.buffer;
    for (unsigned y = 0; y < bitmap.rows; ++y) {
        for (unsigned x = 0; x < bitmap.width; ++x)
            row[x] = bitmap.pixel_mode != FT_PIXEL_MODE_MONO      ? source[x]
                     : (source[x / 8] & (0x80U >> (x % 8))) != 0U ? 0xFF
                                                                  : 0;
        row += pixman_image_get_stride(image);
        source += bitmap.pitch;
    }
    return image;
}

} // namespace

constinit PlainMutex FontEngine::mutex_;
constinit FontEngine* FontEngine::current_ = nullptr;

FontEngine* FontEngine::acquire() {
    const PlainLock lock(mutex_);
    if (current_)
        current_->remember();
    else
        current_ = new FontEngine;
    return current_;
}

/// Nobody may find the engine while it goes.
void FontEngine::forget() {
    const PlainLock lock(mutex_);
    CBaseObject::forget();
}

FontEngine::~FontEngine() {
    if (glyphs_)
        pixman_glyph_cache_destroy(glyphs_);
    if (library_)
        FT_Done_Library(library_); // and the faces
    current_ = nullptr;
}

FT_LibraryRec_* FontEngine::library() {
    // Not by FT_Init_FreeType: that would follow the environment's wishes on rendering.
    if (!library_ && FT_New_Library(&memoryFunctions, &library_) == 0)
        FT_Add_Default_Modules(library_);
    return library_;
}

FontFace& FontEngine::faceFor(const CFontDesc& font) {
    const int32_t style = font.getStyle();
    const std::size_t index = (style & kBoldFace ? 1U : 0U) | (style & kItalicFace ? 2U : 0U);
    if (!faces_[index])
        faces_[index] = std::make_unique<FontFace>(library(), embeddedFont(style));
    return *faces_[index];
}

FontEngine::Strike* FontEngine::strikeFor(const CFontDesc& font, double scale) {
    const double emPixels = font.getSize() * scale;
    FontFace& face = faceFor(font);
    if (!face.handle() || !(emPixels >= 1.0 && emPixels <= kLargestEmPixels))
        return nullptr;
    const auto sizeIn64ths = static_cast<int32_t>(std::lround(emPixels * 64.0));
    Strike& strike = strikes_[{&face, sizeIn64ths}];
    strike.face = &face;
    strike.sizeIn64ths = sizeIn64ths;
    return &strike;
}

CCoord FontEngine::textWidth(const CFontDesc& font, UTF8StringPtr text) {
    const PlainLock lock(mutex_);
    return widthOf(font, text);
}

CCoord FontEngine::widthOf(const CFontDesc& font, UTF8StringPtr text) {
    if (!(font.getSize() > 0))
        return 0;
    FontFace& face = faceFor(font);
    const int32_t units = face.walk(text, [](const FontFace::Letter&, int32_t) { return true; });
    return units * font.getSize() / face.unitsPerEm();
}

CCoord FontEngine::capHeight(const CFontDesc& font, double scale) {
    const PlainLock lock(mutex_);
    Strike* strike = strikeFor(font, scale);
    if (!strike)
        return 0;
    if (strike->capHeightPixels < 0) {
        FT_Face face = strike->face->handle();
        strike->capHeightPixels = 0;
        if (FT_Set_Char_Size(face, 0, strike->sizeIn64ths, 72, 72) == 0 &&
            FT_Load_Glyph(face, strike->face->letterFor(U'H').glyph, FT_LOAD_TARGET_LIGHT) == 0)
            strike->capHeightPixels =
                static_cast<int32_t>((face->glyph->metrics.horiBearingY + 32) / 64);
    }
    return strike->capHeightPixels / scale;
}

int32_t FontEngine::monoAdvance(Strike& strike, uint32_t glyph) {
    const auto [entry, isNew] = strike.monoAdvances.try_emplace(glyph, 0);
    FT_Face face = strike.face->handle();
    if (isNew && FT_Set_Char_Size(face, 0, strike.sizeIn64ths, 72, 72) == 0 &&
        FT_Load_Glyph(face, glyph, FT_LOAD_TARGET_MONO) == 0)
        entry->second = static_cast<int32_t>((face->glyph->advance.x + 32) / 64);
    return entry->second;
}

/// Visits each letter with its place in quarters of a pixel and returns the place of the end.
template <typename Visitor>
int32_t FontEngine::walkInQuarters(Strike& strike, const CFontDesc& font, UTF8StringPtr text,
                                   const TextPlace& place, Visitor&& visit) {
    constexpr double kRemotestQuarter = 1 << 24;
    const double quartersPerUnit =
        kQuarters * font.getSize() * place.scale / strike.face->unitsPerEm();
    const auto quartersOf = [&](int32_t units) {
        return static_cast<int32_t>(
            std::lround(std::min(units * quartersPerUnit, kRemotestQuarter)));
    };
    if (place.antialias)
        return quartersOf(strike.face->walk(text, [&](const auto& letter, int32_t penUnits) {
            return visit(letter, quartersOf(penUnits));
        }));

    int32_t pixels = 0;
    int32_t endUnits = 0; // of the letter before
    strike.face->walk(text, [&](const auto& letter, int32_t penUnits) {
        pixels += (quartersOf(penUnits - endUnits) + 2) >> 2; // kerning
        const bool goesOn = visit(letter, pixels * 4);
        pixels += monoAdvance(strike, letter.glyph);
        endUnits = penUnits + letter.advance;
        return goesOn && pixels < static_cast<int32_t>(kRemotestQuarter) / 4;
    });
    return pixels * 4;
}

CCoord FontEngine::drawnWidth(const CFontDesc& font, UTF8StringPtr text, double scale,
                              bool antialias) {
    const PlainLock lock(mutex_);
    Strike* strike = antialias ? nullptr : strikeFor(font, scale);
    if (!strike)
        return widthOf(font, text);
    TextPlace place;
    place.scale = scale;
    place.antialias = false;
    const auto seeAll = [](const FontFace::Letter&, int32_t) { return true; };
    return walkInQuarters(*strike, font, text, place, seeAll) / (4.0 * scale);
}

FontEngine::TextLine FontEngine::lineAt(const CFontDesc& font, double scale, int32_t middleUnits) {
    const FontFace& face = faceFor(font);
    const double pixelsPerUnit = font.getSize() * scale / face.unitsPerEm();
    TextLine line;
    line.thickness =
        std::max(1, static_cast<int32_t>(std::lround(face.lineThicknessUnits() * pixelsPerUnit)));
    line.top =
        static_cast<int32_t>(std::lround(-middleUnits * pixelsPerUnit - line.thickness / 2.0));
    return line;
}

FontEngine::TextLine FontEngine::underline(const CFontDesc& font, double scale) {
    const PlainLock lock(mutex_);
    TextLine line = lineAt(font, scale, faceFor(font).underlineUnits());
    line.top = std::max(line.top, 1); // clear of the letters
    return line;
}

FontEngine::TextLine FontEngine::strikethrough(const CFontDesc& font, double scale) {
    const PlainLock lock(mutex_);
    return lineAt(font, scale, faceFor(font).strikethroughUnits());
}

void FontEngine::drawText(pixman_image* target, pixman_image* source, const CFontDesc& font,
                          UTF8StringPtr text, const TextPlace& place) {
    const PlainLock lock(mutex_);
    Strike* strike = strikeFor(font, place.scale);
    dropGlyphsBeyondBudget();
    if (!strike || !glyphs_)
        return;

    std::vector<pixman_glyph_t> glyphs;
    glyphs.reserve(64);
    pixman_glyph_cache_freeze(glyphs_);
    const auto add = [&](const FontFace::Letter& letter, int32_t quarters) {
        const int32_t x = place.x + (quarters >> 2);
        if (letter.isBlank || x > place.rightmost)
            return x <= place.rightmost;
        const auto quarter = static_cast<uint32_t>(quarters) % kQuarters;
        if (const void* image = glyphImage(*strike, letter.glyph, quarter, place.antialias))
            glyphs.push_back({x, place.baseline, image});
        return true;
    };
    walkInQuarters(*strike, font, text, place, add);
    pixman_composite_glyphs_no_mask(PIXMAN_OP_OVER, source, target, 0, 0, 0, 0, glyphs_,
                                    static_cast<int>(glyphs.size()), glyphs.data());
    pixman_glyph_cache_thaw(glyphs_);
}

const void* FontEngine::glyphImage(Strike& strike, uint32_t glyph, uint32_t quarter,
                                   bool antialias) {
    const uintptr_t number = (uintptr_t{glyph} * kQuarters + quarter) * 2 + (antialias ? 1 : 0);
    void* key = reinterpret_cast<void*>(number + 1); // the cache takes any pointer but null
    if (const void* image = pixman_glyph_cache_lookup(glyphs_, &strike, key))
        return image;
    return rasterise(strike, glyph, quarter, antialias, key);
}

const void* FontEngine::rasterise(Strike& strike, uint32_t glyph, uint32_t quarter, bool antialias,
                                  void* key) {
    FT_Face face = strike.face->handle();
    const FT_Int32 hinting = antialias ? FT_LOAD_TARGET_LIGHT : FT_LOAD_TARGET_MONO;
    if (FT_Set_Char_Size(face, 0, strike.sizeIn64ths, 72, 72) != 0 ||
        FT_Load_Glyph(face, glyph, hinting) != 0)
        return nullptr;
    FT_GlyphSlot slot = face->glyph;
    FT_Outline_Translate(&slot->outline, static_cast<FT_Pos>(quarter * 64 / kQuarters), 0);
    if (FT_Render_Glyph(slot, antialias ? FT_RENDER_MODE_NORMAL : FT_RENDER_MODE_MONO) != 0)
        return nullptr;
    pixman_image_t* image = imageOf(slot->bitmap);
    if (!image)
        return nullptr;
    glyphBytes_ += std::size_t{slot->bitmap.rows} * slot->bitmap.width + sizeof(void*) * 16;
    const void* cached = pixman_glyph_cache_insert(glyphs_, &strike, key, -slot->bitmap_left,
                                                   slot->bitmap_top, image);
    pixman_image_unref(image); // the cache has copied it
    return cached;
}

void FontEngine::dropGlyphsBeyondBudget() {
    if (glyphs_ && glyphBytes_ > kGlyphBudgetBytes) {
        pixman_glyph_cache_destroy(glyphs_);
        glyphs_ = nullptr;
    }
    if (!glyphs_) {
        glyphs_ = pixman_glyph_cache_create();
        glyphBytes_ = 0;
    }
}

} // namespace VSTGUI
