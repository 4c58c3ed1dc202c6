#include "vstgui/lib/cvstguitimer.h"

#include <vector>

#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

IdStringPtr CVSTGUITimer::kMsgTimer = "a timer fired";

namespace {

CVSTGUITimer* firstRunning = nullptr; // of the process; the user-interface thread's

} // namespace

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
    next_ = firstRunning;
    firstRunning = this;
    return true;
}

bool CVSTGUITimer::stop() {
    if (!running_)
        return false;
    running_ = false;
    CVSTGUITimer** link = &firstRunning;
    while (*link != this)
        link = &(*link)->next_;
    *link = next_;
    next_ = nullptr;
    return true;
}

bool CVSTGUITimer::setFireTime(int32_t newFireTime) {
    if (newFireTime <= 0)
        return false;
    fireTimeMs_ = newFireTime;
    if (CVSTGUITimer::stop())
        CVSTGUITimer::start();
    return true;
}

/// Those due are collected first: a message may start, stop and forget timers, its own too.
void CVSTGUITimer::fireDueTimers() {
    const uint64_t nowMs = currentTickMs();
    std::vector<CVSTGUITimer*> due;
    for (CVSTGUITimer* timer = firstRunning; timer; timer = timer->next_) {
        if (timer->dueMs_ > nowMs)
            continue;
        timer->remember();
        due.insert(due.begin(), timer); // the list has the latest started first
    }
    for (CVSTGUITimer* timer : due) {
        const bool isForgotten = timer->getNbReference() == 1; // by all but this loop
        if (!isForgotten && timer->running_ && timer->dueMs_ <= nowMs) {
            timer->dueMs_ = nowMs + static_cast<uint64_t>(timer->fireTimeMs_);
            timer->object_->notify(timer, kMsgTimer);
        }
        timer->forget();
    }
}

bool CVSTGUITimer::isAnyRunning() {
    return firstRunning != nullptr;
}

} // namespace VSTGUI
