#include "editor/NoticeView.h"

#include "editor/ControlLayout.h"
#include "vstgui/lib/cdrawcontext.h"

#include <utility>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr double kWidth = 280, kHeight = 64, kLine = 16;
constexpr CColor kGround(12, 8, 5, 240);
constexpr CColor kRim(195, 154, 85, 255);
constexpr CColor kCaption(255, 226, 166, 255);
constexpr CColor kText(231, 220, 188, 255);

} // namespace

NoticeView::NoticeView(const CRect& place, std::string caption, std::string text)
    : CView(place), caption_(std::move(caption)), text_(std::move(text)) {
    setTransparency(true);
}

void NoticeView::show(CFrame& frame, std::string caption, std::string text) {
    for (int32_t i = frame.getNbViews() - 1; i >= 0; --i)
        if (frame.getView(i)->isTypeOf("NoticeView"))
            frame.removeView(frame.getView(i));
    const CPoint corner((kFaceWidth - kWidth) / 2, (kFaceHeight - kHeight) / 2);
    auto* const notice =
        new NoticeView(CRect(corner, CPoint(kWidth, kHeight)), std::move(caption), std::move(text));
    frame.addView(notice);
}

void NoticeView::draw(CDrawContext* context) {
    const CRect ground = getViewSize();
    context->setFillColor(kGround);
    context->setFrameColor(kRim);
    context->drawRect(ground, kDrawFilledAndStroked);
    CRect line = ground;
    line.inset(8, 0);
    line.top += (kHeight - (caption_.empty() ? 1 : 2) * kLine) / 2;
    line.bottom = line.top + kLine;
    context->setFont(kNormalFontSmall);
    if (!caption_.empty()) {
        context->setFontColor(kCaption);
        context->drawString(caption_.c_str(), line, kCenterText);
        line.offset(0, kLine);
    }
    context->setFontColor(kText);
    context->drawString(text_.c_str(), line, kCenterText);
    setDirty(false);
}

CMouseEventResult NoticeView::onMouseDown(CPoint& /*where*/, const CButtonState& /*buttons*/) {
    const CBaseObjectGuard held(this);
    if (CFrame* const frame = getFrame())
        frame->removeView(this);
    return kMouseDownEventHandledButDontNeedMovedOrUpEvents;
}

} // namespace pedl
