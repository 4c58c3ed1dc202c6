// Sleeping takes no time in a program that links this file: the program's definitions come before
// the C library's, for itself and for every library that it opens (it exports its symbols).
//
// A plug-in instance waits 100 ms for each program it selects; tests that make hundreds of
// instances would do nothing else.

#include <ctime>
#include <unistd.h>

#pragma GCC visibility push(default)

extern "C" {

int nanosleep(const timespec*, timespec*) {
    return 0;
}

int clock_nanosleep(clockid_t, int, const timespec*, timespec*) {
    return 0;
}

int usleep(useconds_t) {
    return 0;
}
}

#pragma GCC visibility pop
