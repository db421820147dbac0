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

// Overrides the function of Xlib's extensions in the same way: pictures of videos do not go through shared
// memory. mpv waits without limit for the server's message that a shared picture was drawn, and loses it when
// the window manager redirects the window at that moment; the video then stays black. Without shared memory,
// a picture is a request like any other.
extern "C" int XShmQueryExtension(void*) {
    return 0;
}

namespace desktop {

void surviveXErrors() {
    XSetErrorHandler(nullptr);
}

} // namespace desktop
