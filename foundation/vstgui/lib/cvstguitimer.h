#pragma once

#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

/// Sends `kMsgTimer` to an object again and again.
///
/// Fires from the editor's idle, so no oftener than the host calls that. A timer that is late fires
/// once, the next time is counted from then. May be forgotten in its own message.
class CVSTGUITimer : public CBaseObject {
public:
    /// Not running yet. `timerObject` is not owned and must outlive the timer's running.
    /// @param fireTime  milliseconds
    CVSTGUITimer(CBaseObject* timerObject, int32_t fireTime = 100);

    virtual bool start(); // nothing when it runs: stop and start to begin anew
    virtual bool stop();
    virtual bool setFireTime(int32_t newFireTime); // keeps it running or stopped
    int32_t getFireTime() const { return fireTimeMs_; }

    static IdStringPtr kMsgTimer;
    CLASS_METHODS_NOCOPY(CVSTGUITimer, CBaseObject)

    /// Fires every timer of the process that is due, each once. Additions of this layer, called by
    /// the editor's idle and by tests.
    static void fireDueTimers();
    static bool isAnyRunning();

protected:
    ~CVSTGUITimer() override;

private:
    CBaseObject* object_;
    int32_t fireTimeMs_;
    uint64_t dueMs_ = 0;
    bool running_ = false;
    CVSTGUITimer* next_ = nullptr; // of those that run
};

} // namespace VSTGUI
