#include "desktop/windows/picture_canvas.h"

#include <QGuiApplication>
#include <array>
#include <cstdlib>
#include <utility>
#include <xcb/xcb.h>

namespace desktop {

namespace {

xcb_window_t make(xcb_connection_t* connection, xcb_window_t parent) {
    const xcb_window_t window = xcb_generate_id(connection);
    // Override-redirect: the window manager ignores it, even while it is in no window of the program.
    constexpr std::uint32_t values[] = {0, 1};
    xcb_create_window(connection, XCB_COPY_FROM_PARENT, window, parent, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT,
                      XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    return window;
}

// Waits until the X server has processed all requests. The player uses another connection, on which the new
// window does not exist before that.
void waitForServer(xcb_connection_t* connection) {
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace

PictureCanvas::PictureCanvas() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // The offscreen platform also has this interface, but no connection.
    connection_ = x11 ? x11->connection() : nullptr;
    if (!connection_)
        return;
    root_ = xcb_setup_roots_iterator(xcb_get_setup(connection_)).data->root;
    outer_ = make(connection_, root_);
    inner_ = make(connection_, outer_);
    xcb_map_window(connection_, inner_);
    waitForServer(connection_);
}

PictureCanvas::~PictureCanvas() {
    if (!connection_)
        return;
    xcb_destroy_window(connection_, outer_);
    xcb_flush(connection_);
}

void PictureCanvas::showIn(std::uint64_t window, QRect place) {
    if (!connection_ || place.isEmpty())
        return;
    const auto parent = static_cast<xcb_window_t>(window);
    if (parent == parent_ && place == place_)
        return;
    const bool moved = std::exchange(parent_, parent) != parent;
    const bool resized = std::exchange(place_, place).size() != place.size();
    if (moved) {
        xcb_unmap_window(connection_, outer_);
        xcb_reparent_window(connection_, outer_, parent, static_cast<std::int16_t>(place.x()),
                            static_cast<std::int16_t>(place.y()));
    }
    const std::array<std::uint32_t, 4> outer{
        static_cast<std::uint32_t>(place.x()), static_cast<std::uint32_t>(place.y()),
        static_cast<std::uint32_t>(place.width()), static_cast<std::uint32_t>(place.height())};
    xcb_configure_window(connection_, outer_,
                         XCB_CONFIG_WINDOW_X | XCB_CONFIG_WINDOW_Y | XCB_CONFIG_WINDOW_WIDTH |
                             XCB_CONFIG_WINDOW_HEIGHT,
                         outer.data());
    if (resized)
        xcb_configure_window(connection_, inner_, XCB_CONFIG_WINDOW_WIDTH | XCB_CONFIG_WINDOW_HEIGHT,
                             outer.data() + 2);
    if (moved)
        xcb_map_window(connection_, outer_);
    xcb_flush(connection_);
}

void PictureCanvas::takeOut() {
    if (parent_ == 0)
        return;
    parent_ = 0;
    xcb_unmap_window(connection_, outer_);
    xcb_reparent_window(connection_, outer_, root_, 0, 0);
    xcb_flush(connection_);
}

} // namespace desktop
