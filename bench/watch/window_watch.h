#pragma once

#include "watch/process.h"

#include <cstdint>
#include <string>
#include <vector>
#include <xcb/xcb.h>

namespace bench {

// Sees from outside, as another client of the same display, when a program's window is there. All programs
// are watched in this one way, whatever they are built with.
class WindowWatch {
public:
    WindowWatch();
    WindowWatch(const WindowWatch&) = delete;
    WindowWatch& operator=(const WindowWatch&) = delete;
    ~WindowWatch();

    // How a window looks: the pixels of its middle column, through the menu bar and what lies below it.
    using Look = std::vector<std::uint8_t>;

    // Waits for the program's window of this title to be mapped. Nothing is missed that happened before the
    // call.
    xcb_window_t waitMapped(Process& program, const std::string& title);
    // Waits until the window has this look.
    void waitLook(Process& program, xcb_window_t window, const Look& wanted) const;
    // Waits until the display has forgotten the window.
    void waitGone(xcb_window_t window);

    // Empty while the window is not on the screen.
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
