#include "vstgui/lib/cdrawcontext.h"

#include "vstgui/lib/platform/common/fontengine.h"

#include <algorithm>
#include <cmath>

namespace VSTGUI {

CDrawContext::CDrawContext(const CRect& surfaceRect)
    : surfaceRect_(surfaceRect), fonts_(FontEngine::acquire()) {
    state_.clip = surfaceRect;
    state_.font = kSystemFont;
    state_.font->remember();
}

CDrawContext::~CDrawContext() {
    for (const State& saved : savedStates_)
        saved.font->forget();
    state_.font->forget();
    fonts_->forget();
}

void CDrawContext::moveTo(const CPoint& point) {
    state_.pen = point + state_.offset;
}

void CDrawContext::setLineWidth(CCoord width) {
    state_.lineWidth = width;
}

void CDrawContext::setDrawMode(CDrawMode mode) {
    state_.drawMode = mode;
}

void CDrawContext::setClipRect(const CRect& clip) {
    state_.clip = clip;
    state_.clip.offset(state_.offset.x, state_.offset.y);
    state_.clip.bound(surfaceRect_);
}

CRect& CDrawContext::getClipRect(CRect& clip) const {
    clip = state_.clip;
    return clip.offset(-state_.offset.x, -state_.offset.y);
}

void CDrawContext::resetClipRect() {
    state_.clip = surfaceRect_;
}

void CDrawContext::setFillColor(const CColor& color) {
    state_.fillColor = color;
}

void CDrawContext::setFrameColor(const CColor& color) {
    state_.frameColor = color;
}

void CDrawContext::setFontColor(const CColor& color) {
    state_.fontColor = color;
}

void CDrawContext::setFont(const CFontRef font, const CCoord& size, const int32_t& style) {
    if (!font)
        return;
    const CCoord newSize = size > 0 ? size : font->getSize();
    const int32_t newStyle = style != -1 ? style : font->getStyle();
    CFontRef drawn = font;
    // A copy: the font at hand may be shared by every view of every editor.
    if (newSize != font->getSize() || newStyle != font->getStyle())
        drawn = new CFontDesc(font->getName(), newSize, newStyle);
    else
        drawn->remember();
    state_.font->forget();
    state_.font = drawn;
}

CCoord CDrawContext::getStringWidth(UTF8StringPtr text) {
    return fonts_->textWidth(*state_.font, text);
}

CCoord CDrawContext::capHeight() const {
    return fonts_->capHeight(*state_.font, 1.0);
}

CCoord CDrawContext::drawnWidth(UTF8StringPtr text, bool antialias) const {
    return fonts_->drawnWidth(*state_.font, text, 1.0, antialias);
}

void CDrawContext::drawString(UTF8StringPtr text, const CRect& rect, const CHoriTxtAlign align,
                              bool antialias) {
    if (!text || !*text)
        return;
    const CRect outerClip = state_.clip;
    CRect textClip = rect;
    textClip.offset(state_.offset.x, state_.offset.y);
    state_.clip.bound(textClip);
    if (!state_.clip.isEmpty()) {
        // Capital letters stand in the middle; what reaches below the line does not count.
        CPoint baseline(rect.left, rect.bottom - (rect.height() - capHeight()) / 2);
        if (align == kCenterText)
            baseline.x += (rect.width() - drawnWidth(text, antialias)) / 2;
        else if (align == kRightText)
            baseline.x = std::floor(rect.right - drawnWidth(text, antialias)); // to its end
        drawText(text, baseline, antialias);
    }
    state_.clip = outerClip;
}

void CDrawContext::drawString(UTF8StringPtr text, const CPoint& baseline, bool antialias) {
    if (text && *text)
        drawText(text, baseline, antialias);
}

void CDrawContext::setGlobalAlpha(float alpha) {
    state_.globalAlpha = alpha > 0 ? std::min(alpha, 1.0F) : 0.0F; // NaN is transparent
}

void CDrawContext::saveGlobalState() {
    state_.font->remember();
    savedStates_.push_back(state_);
}

void CDrawContext::restoreGlobalState() {
    if (savedStates_.empty())
        return;
    state_.font->forget();
    state_ = savedStates_.back();
    savedStates_.pop_back();
}

void CDrawContext::setOffset(const CPoint& offset) {
    state_.offset = offset;
}

void CDrawContext::beginDraw() {}

void CDrawContext::endDraw() {}

} // namespace VSTGUI
