#pragma once

#include <cstdint>

#include "vstgui/lib/vstguibase.h"

namespace VSTGUI {

class CVSTGUITimer;

/// Whose turn it is: what one editor's idle serves, and nobody else's.
///
/// An `AEffGUIEditor` has one and shares it with its frame; a frame of another editor has its own.
/// A timer belongs to the pump in whose call it is started, see `CVSTGUITimer::start`.
///
/// Thread: a pump is called by one thread at a time, which may change; different pumps by different
/// threads at the same time.
class EditorPump : public CBaseObject {
public:
    EditorPump();

    /// Fires its timers that are due, each once.
    void fireDueTimers();

    /// A call of the pump's editor: while it lives, this is the calling thread's pump. Nests, and
    /// holds the pump.
    class Call {
    public:
        explicit Call(EditorPump& pump);
        ~Call();
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;

    private:
        EditorPump& pump_;
        uint64_t outerNumber_;
    };
    CLASS_METHODS_NOCOPY(EditorPump, CBaseObject)

protected:
    ~EditorPump() override;

private:
    friend class CVSTGUITimer;

    /// To whom a timer belongs: a pump, else the thread whose next pump it will be.
    struct Owner {
        EditorPump* pump = nullptr;
        uint64_t thread = 0;
        bool operator==(const Owner& other) const {
            return pump == other.pump && thread == other.thread;
        }
    };

    // For timers
    static void add(CVSTGUITimer& timer);
    static void remove(CVSTGUITimer& timer);
    static void fireDueTimersOf(const Owner& owner);
    static void fireDueTimersOfThisThread();
    static bool isAnyTimerRunning();

    static Owner ownerHere();
    static void giveTimers(const Owner& from, const Owner& to);

    uint64_t number_;     // no other's, not even when this one is gone
    uint64_t thread_ = 0; // that called it last
    EditorPump* next_ = nullptr;
};

} // namespace VSTGUI
