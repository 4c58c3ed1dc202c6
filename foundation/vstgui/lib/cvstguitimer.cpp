#include "vstgui/lib/cvstguitimer.h"

#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

IdStringPtr CVSTGUITimer::kMsgTimer = "a timer fired";

CVSTGUITimer::CVSTGUITimer(CBaseObject* timerObject, int32_t fireTime)
    : object_(timerObject), fireTimeMs_(fireTime) {}

CVSTGUITimer::~CVSTGUITimer() {
    CVSTGUITimer::stop();
}

bool CVSTGUITimer::start() {
    if (running_ || !object_)
        return false;
    dueMs_ = currentTickMs() + static_cast<uint64_t>(fireTimeMs_);
    running_ = true;
    EditorPump::add(*this);
    return true;
}

bool CVSTGUITimer::stop() {
    if (!running_)
        return false;
    running_ = false;
    EditorPump::remove(*this);
    return true;
}

bool CVSTGUITimer::setFireTime(int32_t newFireTime) {
    if (newFireTime <= 0)
        return false;
    fireTimeMs_ = newFireTime;
    if (running_) // stays its owner's, whoever calls this
        dueMs_ = currentTickMs() + static_cast<uint64_t>(fireTimeMs_);
    return true;
}

/// Called with a reference of the caller's. One that others have forgotten, stopped or started anew
/// since it was found due stays silent.
void CVSTGUITimer::fireAt(uint64_t nowMs) {
    const bool isForgotten = getNbReference() == 1;
    if (isForgotten || !running_ || dueMs_ > nowMs)
        return;
    dueMs_ = nowMs + static_cast<uint64_t>(fireTimeMs_);
    object_->notify(this, kMsgTimer);
}

void CVSTGUITimer::fireDueTimers() {
    EditorPump::fireDueTimersOfThisThread();
}

bool CVSTGUITimer::isAnyRunning() {
    return EditorPump::isAnyTimerRunning();
}

} // namespace VSTGUI
