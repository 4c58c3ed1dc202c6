#include "controls/CZMParamDisplay.h"

#include "parameters/ListPosition.h"
#include "vstgui/lib/cvstguitimer.h"

#include <algorithm>
#include <utility>

namespace pedl {

using namespace VSTGUI;

namespace {

constexpr int32_t kWheelPauseMs = 50;

} // namespace

CZMParamDisplay::CZMParamDisplay(const CRect& viewSize, CBitmap* background, int32_t styleBits)
    : BalancedEdits(viewSize, background, styleBits) {}

CZMParamDisplay::CZMParamDisplay(const CZMParamDisplay& other)
    : BalancedEdits(other), stepCount(other.stepCount) {}

CZMParamDisplay::~CZMParamDisplay() {
    discardTimer();
}

void CZMParamDisplay::discardTimer() {
    if (CVSTGUITimer* const timer = std::exchange(wheelTimer, nullptr))
        timer->forget();
}

bool CZMParamDisplay::turnWheel(const CPoint& /*where*/, float distance,
                                const CButtonState& /*buttons*/) {
    if (!getMouseEnabled())
        return false;
    if (wheelTimer != nullptr)
        return true;
    const CBaseObjectGuard self(this);
    const int32_t step = listPosition(value, stepCount) + (distance >= 0.0F ? 1 : -1);
    value = listValue(std::clamp(step, 0, stepCount - 1), stepCount);
    wheelTimer = new CVSTGUITimer(this, kWheelPauseMs);
    wheelTimer->start();
    beginEdit();
    valueChanged();
    endEdit();
    return true;
}

CMessageResult CZMParamDisplay::notify(CBaseObject* sender, IdStringPtr message) {
    if (wheelTimer == nullptr || sender != wheelTimer || message != CVSTGUITimer::kMsgTimer)
        return CParamDisplay::notify(sender, message);
    discardTimer();
    return kMessageNotified;
}

} // namespace pedl
