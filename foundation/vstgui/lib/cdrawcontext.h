#pragma once

#include <vector>

#include "vstgui/lib/ccolor.h"
#include "vstgui/lib/cfont.h"
#include "vstgui/lib/cpoint.h"
#include "vstgui/lib/crect.h"

namespace VSTGUI {

class CBitmap;
class FontEngine;

enum CHoriTxtAlign { kLeftText = 0, kCenterText, kRightText };

enum CLineStyle { kLineSolid = 0, kLineOnOffDash };

enum CDrawMode { kAliasing = 0, kAntiAliasing, kCopyMode = kAliasing, kAntialias = kAntiAliasing };

enum CDrawStyle { kDrawStroked = 0, kDrawFilled, kDrawFilledAndStroked };

/// Draws on a surface.
///
/// Coordinates, the clip's too, are logical pixels from `getOffset`, which containers move to their
/// own corner. Starts with a white frame and font, a black fill, `kSystemFont`, line width 1,
/// aliased, clipped to the surface.
class CDrawContext : public CBaseObject {
public:
    virtual void moveTo(const CPoint& point);
    virtual void lineTo(const CPoint& point) = 0;
    /// A filled one covers left to right, right excluded; a stroked one lies inside that area.
    virtual void drawRect(const CRect& rect, const CDrawStyle style = kDrawStroked) = 0;
    virtual void drawPolygon(const CPoint* points, int32_t count,
                             const CDrawStyle style = kDrawStroked) = 0;
    virtual void drawBitmap(CBitmap* bitmap, const CRect& dest, const CPoint& offset = CPoint(0, 0),
                            float alpha = 1.f) = 0;
    /// Makes the area transparent.
    virtual void clearRect(const CRect& rect) = 0;

    virtual void setLineWidth(CCoord width);
    virtual void setDrawMode(CDrawMode mode);
    virtual void setClipRect(const CRect& clip); // cut to the surface
    CRect& getClipRect(CRect& clip) const;
    virtual void resetClipRect();
    virtual void setFillColor(const CColor& color);
    virtual void setFrameColor(const CColor& color);
    virtual void setFontColor(const CColor& color);

    /// A `size` above 0 and a `style` other than -1 replace those of the font, in a private copy.
    virtual void setFont(const CFontRef font, const CCoord& size = 0, const int32_t& style = -1);
    const CFontRef& getFont() const { return state_.font; }
    CCoord getStringWidth(UTF8StringPtr text);
    /// One line, capital letters centred vertically, clipped to `rect`.
    void drawString(UTF8StringPtr text, const CRect& rect, const CHoriTxtAlign align = kCenterText,
                    bool antialias = true);
    void drawString(UTF8StringPtr text, const CPoint& baseline, bool antialias = true);

    virtual void setGlobalAlpha(float alpha); // multiplies that of everything drawn
    float getGlobalAlpha() const { return state_.globalAlpha; }
    virtual void saveGlobalState();
    virtual void restoreGlobalState();
    virtual void setOffset(const CPoint& offset); // from the surface's corner, not added up
    const CPoint& getOffset() const { return state_.offset; }
    virtual void beginDraw();
    virtual void endDraw();

protected:
    CDrawContext(const CRect& surfaceRect);
    ~CDrawContext() override;
    CDrawContext(const CDrawContext&) = delete;
    CDrawContext& operator=(const CDrawContext&) = delete;

    struct State {
        CFontRef font = nullptr; // remembered
        CColor fillColor = CColor(0, 0, 0, 255);
        CColor frameColor;
        CColor fontColor;
        CCoord lineWidth = 1;
        CDrawMode drawMode = kAliasing;
        CRect clip; // from the surface's corner
        CPoint offset;
        CPoint pen;
        float globalAlpha = 1.0F;
    };

    /// Draws one line of text with the current state; `baseline` as all coordinates.
    virtual void drawText(UTF8StringPtr /*text*/, const CPoint& /*baseline*/, bool /*antialias*/) {}

    /// Height of capital letters in the current font as they are drawn here, logical pixels.
    virtual CCoord capHeight() const;
    /// Width of a text as it is drawn here; letters without antialiasing have other widths.
    virtual CCoord drawnWidth(UTF8StringPtr text, bool antialias) const;

    const CRect surfaceRect_;
    FontEngine* const fonts_; // remembered
    State state_;
    std::vector<State> savedStates_;
};

} // namespace VSTGUI
