#include "watch/window_watch.h"

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <thread>

namespace bench {

namespace {

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
Reply<T> owned(T* reply) {
    return {reply, &std::free};
}

} // namespace

WindowWatch::WindowWatch() : display_(xcb_connect(nullptr, nullptr)) {
    if (xcb_connection_has_error(display_))
        throw std::runtime_error("no display");
    processId_ = atom("_NET_WM_PID");
    title_ = atom("_NET_WM_NAME");
    const std::uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(display_)).data->root;
    xcb_change_window_attributes(display_, root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(display_);
}

WindowWatch::~WindowWatch() {
    xcb_disconnect(display_);
}

xcb_window_t WindowWatch::waitMapped(Process& program, const std::string& title) {
    xcb_window_t found = XCB_NONE;
    program.waitUntil("its window", [&] {
        while (const auto event = owned(xcb_poll_for_event(display_))) {
            if ((event->response_type & 0x7FU) == XCB_MAP_NOTIFY && found == XCB_NONE)
                found = find(reinterpret_cast<const xcb_map_notify_event_t*>(event.get())->window, program,
                             title);
        }
        return found != XCB_NONE;
    });
    return found;
}

xcb_window_t WindowWatch::find(xcb_window_t within, const Process& program, const std::string& title) const {
    if (isWindow(within, program, title))
        return within;
    // The window manager has reparented it into a frame.
    const auto tree = owned(xcb_query_tree_reply(display_, xcb_query_tree(display_, within), nullptr));
    for (int i = 0; tree && i < xcb_query_tree_children_length(tree.get()); ++i) {
        if (const auto found = find(xcb_query_tree_children(tree.get())[i], program, title))
            return found;
    }
    return XCB_NONE;
}

void WindowWatch::waitLook(Process& program, xcb_window_t window, const Look& wanted) const {
    program.waitUntil("its usual look", [&] { return look(window) == wanted; });
}

void WindowWatch::waitGone(xcb_window_t window) {
    while (owned(
        xcb_get_window_attributes_reply(display_, xcb_get_window_attributes(display_, window), nullptr)))
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    while (owned(xcb_poll_for_event(display_))) {
    }
}

WindowWatch::Look WindowWatch::look(xcb_window_t window) const {
    const auto size = owned(xcb_get_geometry_reply(display_, xcb_get_geometry(display_, window), nullptr));
    if (!size)
        return {};
    const auto middle = static_cast<std::int16_t>(size->width / 2);
    const auto image = owned(xcb_get_image_reply(
        display_, xcb_get_image(display_, XCB_IMAGE_FORMAT_Z_PIXMAP, window, middle, 0, 1, size->height, ~0U),
        nullptr));
    if (!image)
        return {};
    const std::uint8_t* const pixels = xcb_get_image_data(image.get());
    return {pixels, pixels + xcb_get_image_data_length(image.get())};
}

bool WindowWatch::isWindow(xcb_window_t window, const Process& program, const std::string& title) const {
    std::uint32_t id = 0;
    const std::string bytes = property(window, processId_);
    if (bytes.size() != sizeof id)
        return false;
    std::memcpy(&id, bytes.data(), sizeof id);
    return static_cast<pid_t>(id) == program.id() && property(window, title_) == title;
}

std::string WindowWatch::property(xcb_window_t window, xcb_atom_t name) const {
    const auto reply = owned(xcb_get_property_reply(
        display_, xcb_get_property(display_, 0, window, name, XCB_GET_PROPERTY_TYPE_ANY, 0, 64), nullptr));
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            static_cast<std::size_t>(xcb_get_property_value_length(reply.get()))};
}

xcb_atom_t WindowWatch::atom(const std::string& name) const {
    const auto reply = owned(xcb_intern_atom_reply(
        display_, xcb_intern_atom(display_, 0, static_cast<std::uint16_t>(name.size()), name.data()),
        nullptr));
    return reply ? reply->atom : static_cast<xcb_atom_t>(XCB_NONE);
}

} // namespace bench
