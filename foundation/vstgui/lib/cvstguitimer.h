#pragma once

#include "vstgui/lib/editorpump.h"
#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

/// Sends `kMsgTimer` to an object again and again.
///
/// Fires from one editor's idle, so no oftener than the host calls that. A timer that is late fires
/// once, the next time is counted from then. May be forgotten in its own message.
class CVSTGUITimer : public CBaseObject {
public:
    /// Not running yet. `timerObject` is not owned and must outlive the timer's running.
    /// @param fireTime  milliseconds
    CVSTGUITimer(CBaseObject* timerObject, int32_t fireTime = 100);

    /// Nothing when it runs: stop and start to begin anew.
    ///
    /// The timer is the editor's whose call is under way on this thread. Outside of any call it is
    /// the one's that this thread called last (its making and `open` count), and where there is
    /// none, or another thread calls that one by now, the one's that this thread calls next. With
    /// its editor gone it waits for that too.
    virtual bool start();
    virtual bool stop();
    virtual bool setFireTime(int32_t newFireTime); // keeps it running or stopped
    int32_t getFireTime() const { return fireTimeMs_; }

    static IdStringPtr kMsgTimer;
    CLASS_METHODS_NOCOPY(CVSTGUITimer, CBaseObject)

    /// What the idle of the editor does to which a timer started here would belong. Additions of
    /// this layer, for tests.
    static void fireDueTimers();
    static bool isAnyRunning(); // in the process

protected:
    ~CVSTGUITimer() override;

private:
    friend class EditorPump;

    void fireAt(uint64_t nowMs);

    CBaseObject* object_;
    int32_t fireTimeMs_;
    uint64_t dueMs_ = 0;
    bool running_ = false;

    // The pump's, as long as it runs
    EditorPump::Owner owner_;
    CVSTGUITimer* next_ = nullptr;
};

} // namespace VSTGUI
