#include "host/XlibErrors.h"

#include "host/Messages.h"

#include <cstdio>
#include <dlfcn.h>
#include <unistd.h>

namespace pedl {

namespace {

// Xlib's types, as far as they are needed: its headers are not.
struct Display;
struct XErrorEvent;
using ErrorHandler = int (*)(Display*, XErrorEvent*);
using LossHandler = int (*)(Display*);

int onError(Display* /*display*/, XErrorEvent* /*error*/) {
    return 0; // what it returns is not looked at
}

/// Xlib gives no way back from here: it ends the process when this returns.
int onLoss(Display* /*display*/) {
    std::fputs("zmt-pedlfilter: the X server is gone, and the plug-in's window with it\n",
               messages());
    _exit(1);
}

} // namespace

void tameXlib() {
    void* const library = dlopen("libX11.so.6", RTLD_LAZY | RTLD_NOLOAD);
    if (library == nullptr)
        return;
    using SetErrorHandler = ErrorHandler (*)(ErrorHandler);
    using SetLossHandler = LossHandler (*)(LossHandler);
    if (const auto set = reinterpret_cast<SetErrorHandler>(dlsym(library, "XSetErrorHandler")))
        set(onError);
    if (const auto set = reinterpret_cast<SetLossHandler>(dlsym(library, "XSetIOErrorHandler")))
        set(onLoss);
    dlclose(library);
}

} // namespace pedl
