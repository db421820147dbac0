#pragma once

#include "watch/process.h"

#include <cstdint>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace bench {

// Observes from outside, as another X client, when a program's window appears. All programs are measured the
// same way, whatever toolkit they use.
class WindowWatch {
public:
    WindowWatch();
    WindowWatch(const WindowWatch&) = delete;
    WindowWatch& operator=(const WindowWatch&) = delete;
    ~WindowWatch();

    // The look of a window: the pixels of its middle column, which crosses the menu bar and the contents.
    using Look = std::vector<std::uint8_t>;

    // Waits until the program's window with this title is mapped, even if that happened before the call.
    xcb_window_t waitMapped(Process& program, const std::string& title);
    // Waits until the window has this look.
    void waitLook(Process& program, xcb_window_t window, const Look& wanted) const;
    // Waits until the window is destroyed.
    void waitGone(xcb_window_t window);

    // Empty while the window is not visible.
    Look look(xcb_window_t window) const;

private:
    xcb_window_t find(xcb_window_t within, const Process& program, const std::string& title) const;
    bool isWindow(xcb_window_t window, const Process& program, const std::string& title) const;
    std::string property(xcb_window_t window, xcb_atom_t name) const;
    xcb_atom_t atom(const std::string& name) const;

    xcb_connection_t* display_;
    xcb_atom_t processId_;
    xcb_atom_t title_;
};

} // namespace bench
