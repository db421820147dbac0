#include "desktop/qt/x_errors.h"

#include <dlfcn.h>

namespace {

// As Xlib declares it; its headers are not needed for this alone.
using Handler = int (*)(void* display, void* event);

int goOn(void*, void*) {
    return 0;
}

} // namespace

// Overrides Xlib's function of this name for all libraries of the process, because symbols are looked up in
// the executable first. mpv restores Xlib's default handler whenever it closes its output, and errors arrive
// after that.
extern "C" Handler XSetErrorHandler(Handler handler) {
    static const auto next = [] {
        void* const xlib = ::dlopen("libX11.so.6", RTLD_LAZY);
        return xlib ? reinterpret_cast<Handler (*)(Handler)>(::dlsym(xlib, "XSetErrorHandler")) : nullptr;
    }();
    return next ? next(handler ? handler : goOn) : nullptr;
}

namespace desktop {

void surviveXErrors() {
    XSetErrorHandler(nullptr);
}

} // namespace desktop
