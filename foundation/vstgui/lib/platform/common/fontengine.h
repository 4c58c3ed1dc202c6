#pragma once

#include <array>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

#include "vstgui/lib/cfont.h"
#include "vstgui/lib/plainmutex.h"
#include "vstgui/lib/platform/common/fontface.h"

struct pixman_glyph_cache_t;
union pixman_image;

namespace VSTGUI {

/// The letters of the process: embedded faces and what was rasterised of them.
///
/// Whatever a font calls itself, its text is set in the embedded face of its style: the same pixels
/// on every machine. Letters are hinted lightly, that is vertically alone, and stand on quarters of
/// a pixel: at 11 pixels their horizontal strokes are sharp and their distances even. (Full hinting
/// gives sharper stems but distances that differ by a pixel from letter to letter.)
///
/// One object, which lives as long as somebody holds it; nothing is loaded before the first text.
///
/// Thread: any, several at a time. Each operation has the letters to itself while it lasts.
class FontEngine : public CBaseObject {
public:
    /// The process's engine, with one more reference.
    static FontEngine* acquire();

    /// Logical pixels, the same at every scale.
    CCoord textWidth(const CFontDesc& font, UTF8StringPtr text);

    /// The width as drawn at `scale`: letters without antialiasing have widths of their own, made
    /// of whole pixels.
    CCoord drawnWidth(const CFontDesc& font, UTF8StringPtr text, double scale, bool antialias);

    /// Height of the letter H as it is drawn at `scale`, logical pixels.
    CCoord capHeight(const CFontDesc& font, double scale);

    /// Letters and lines on whole pixels of a surface.
    struct TextPlace {
        int32_t x = 0; // where the first letter begins
        int32_t baseline = 0;
        int32_t rightmost = 0; // what begins to the right of it is not seen
        double scale = 1.0;
        bool antialias = true;
    };

    /// Composes a line of text with the colour of `source`, inside the clip of `target`.
    void drawText(pixman_image* target, pixman_image* source, const CFontDesc& font,
                  UTF8StringPtr text, const TextPlace& place);

    /// A line under or through a text, pixels of a surface.
    struct TextLine {
        int32_t top = 0; // below the baseline
        int32_t thickness = 1;
    };
    TextLine underline(const CFontDesc& font, double scale);
    TextLine strikethrough(const CFontDesc& font, double scale);

    /// Lends the library for outlines that are not letters: `draw` has it to itself, and gets null
    /// when there is no memory.
    template <typename Draw> void withLibrary(Draw&& draw) {
        const PlainLock lock(mutex_);
        draw(library());
    }

    void forget() override;
    CLASS_METHODS_NOCOPY(FontEngine, CBaseObject)

protected:
    FontEngine() = default;
    ~FontEngine() override;

private:
    /// A face at a size.
    struct Strike {
        FontFace* face = nullptr;
        int32_t sizeIn64ths = 0; // of a pixel
        int32_t capHeightPixels = -1;
        std::unordered_map<uint32_t, int32_t> monoAdvances; // by glyph, pixels
    };

    // The caller of what follows has the mutex.

    FT_LibraryRec_* library();
    CCoord widthOf(const CFontDesc& font, UTF8StringPtr text);
    FontFace& faceFor(const CFontDesc& font);
    /// Null when nothing is to be seen at that size.
    Strike* strikeFor(const CFontDesc& font, double scale);
    static int32_t monoAdvance(Strike& strike, uint32_t glyph);
    template <typename Visitor>
    int32_t walkInQuarters(Strike& strike, const CFontDesc& font, UTF8StringPtr text,
                           const TextPlace& place, Visitor&& visit);
    TextLine lineAt(const CFontDesc& font, double scale, int32_t middleUnits);
    const void* glyphImage(Strike& strike, uint32_t glyph, uint32_t quarter, bool antialias);
    const void* rasterise(Strike& strike, uint32_t glyph, uint32_t quarter, bool antialias,
                          void* key);
    void dropGlyphsBeyondBudget();

    FT_LibraryRec_* library_ = nullptr;
    std::array<std::unique_ptr<FontFace>, 4> faces_; // by bold and italic
    std::map<std::pair<FontFace*, int32_t>, Strike> strikes_;
    pixman_glyph_cache_t* glyphs_ = nullptr;
    std::size_t glyphBytes_ = 0;

    /// Guards the engine, its coming and its going: the library and the glyph cache know nothing of
    /// threads.
    static PlainMutex mutex_;
    static FontEngine* current_;
};

} // namespace VSTGUI
