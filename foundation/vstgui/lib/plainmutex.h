#pragma once

#include <pthread.h>

#include <mutex>

namespace VSTGUI {

/// Guards what all editors of the process share. For variables of the process: made by the
/// compiler, never destroyed.
///
/// `std::mutex` throws where this cannot fail, and with that brings the C++ runtime's error texts
/// into the library, whose constructors would run when a host loads it.
class PlainMutex {
public:
    void lock() { pthread_mutex_lock(&mutex_); }
    void unlock() { pthread_mutex_unlock(&mutex_); }

private:
    pthread_mutex_t mutex_ = PTHREAD_MUTEX_INITIALIZER;
};

using PlainLock = std::lock_guard<PlainMutex>;

} // namespace VSTGUI
