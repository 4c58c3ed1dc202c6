#include "vstgui/lib/editorpump.h"

#include <vector>

#include "vstgui/lib/cvstguitimer.h"
#include "vstgui/lib/plainmutex.h"
#include "vstgui/lib/platform/iplatformframe.h"

namespace VSTGUI {

namespace {

/// Guards what follows, and of each timer and pump what is about the lists. Never held while
/// anybody else's code runs.
constinit PlainMutex lists;
constinit EditorPump* firstPump = nullptr;
constinit CVSTGUITimer* firstRunning = nullptr; // the one started last
constinit uint64_t lastPumpNumber = 0;
constinit uint64_t lastThreadNumber = 0;

/// What a thread is doing here. Plain numbers, so that nothing has to run when the thread or the
/// library ends: a pump of that number may be gone.
struct ThreadState {
    uint64_t thread = 0; // unlike the system's thread numbers, never used again
    uint64_t pump = 0;   // under way, else the one that was called last
    int32_t depth = 0;   // of calls
};
constinit thread_local ThreadState here;

uint64_t thisThread() {
    if (here.thread == 0)
        here.thread = ++lastThreadNumber;
    return here.thread;
}

} // namespace

EditorPump::EditorPump() {
    const PlainLock lock(lists);
    number_ = ++lastPumpNumber;
    next_ = firstPump;
    firstPump = this;
}

EditorPump::~EditorPump() {
    const PlainLock lock(lists);
    EditorPump** link = &firstPump;
    while (*link != this)
        link = &(*link)->next_;
    *link = next_;
    // Whose object lives on goes on firing, on the thread that it knows.
    giveTimers({this, 0}, {nullptr, thread_});
}

EditorPump::Call::Call(EditorPump& pump) : pump_(pump), outerNumber_(here.pump) {
    pump_.remember();
    const PlainLock lock(lists);
    pump_.thread_ = thisThread();
    here.pump = pump_.number_;
    ++here.depth;
    giveTimers({nullptr, here.thread}, {&pump_, 0});
}

EditorPump::Call::~Call() {
    if (--here.depth > 0)
        here.pump = outerNumber_;
    pump_.forget();
}

/// The pump whose call is under way on this thread or was its last one, unless another thread has
/// taken that editor over.
EditorPump::Owner EditorPump::ownerHere() {
    for (EditorPump* pump = firstPump; pump; pump = pump->next_)
        if (pump->number_ == here.pump && pump->thread_ == here.thread)
            return {pump, 0};
    return {nullptr, thisThread()};
}

void EditorPump::giveTimers(const Owner& from, const Owner& to) {
    for (CVSTGUITimer* timer = firstRunning; timer; timer = timer->next_)
        if (timer->owner_ == from)
            timer->owner_ = to;
}

void EditorPump::add(CVSTGUITimer& timer) {
    const PlainLock lock(lists);
    timer.owner_ = ownerHere();
    timer.next_ = firstRunning;
    firstRunning = &timer;
}

void EditorPump::remove(CVSTGUITimer& timer) {
    const PlainLock lock(lists);
    CVSTGUITimer** link = &firstRunning;
    while (*link != &timer)
        link = &(*link)->next_;
    *link = timer.next_;
    timer.next_ = nullptr;
}

void EditorPump::fireDueTimers() {
    const CBaseObjectGuard self(this);
    fireDueTimersOf({this, 0});
}

void EditorPump::fireDueTimersOfThisThread() {
    Owner owner;
    {
        const PlainLock lock(lists);
        owner = ownerHere();
    }
    fireDueTimersOf(owner);
}

/// Those due are collected first: a message may start, stop and forget timers, its own too.
void EditorPump::fireDueTimersOf(const Owner& owner) {
    const uint64_t nowMs = currentTickMs();
    std::vector<CVSTGUITimer*> due;
    {
        const PlainLock lock(lists);
        for (CVSTGUITimer* timer = firstRunning; timer; timer = timer->next_) {
            if (!(timer->owner_ == owner) || timer->dueMs_ > nowMs)
                continue;
            timer->remember();
            due.push_back(timer);
        }
    }
    for (auto timer = due.rbegin(); timer != due.rend(); ++timer) { // the one started first
        (*timer)->fireAt(nowMs);
        (*timer)->forget();
    }
}

bool EditorPump::isAnyTimerRunning() {
    const PlainLock lock(lists);
    return firstRunning != nullptr;
}

} // namespace VSTGUI
