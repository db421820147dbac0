#include "desktop/qt/calm_windows.h"

#include <QByteArray>
#include <QGuiApplication>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace desktop {

namespace {

constexpr std::uint32_t mostStates = 64; // of one window
constexpr std::uint32_t removeState = 0;
constexpr std::uint32_t fromProgram = 1;

template <typename Reply>
using Owned = std::unique_ptr<Reply, decltype(&std::free)>;

} // namespace

CalmWindows::CalmWindows() : connection_(nullptr) {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    connection_ = x11 ? x11->connection() : nullptr; // the offscreen platform has no connection
    if (!connection_)
        return;
    state_ = atom("_NET_WM_STATE");
    demand_ = atom("_NET_WM_STATE_DEMANDS_ATTENTION");
    qApp->installNativeEventFilter(this);
}

CalmWindows::~CalmWindows() {
    if (connection_ && qApp)
        qApp->removeNativeEventFilter(this);
}

std::uint32_t CalmWindows::atom(const char* name) const {
    const auto asked = xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    const Owned<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, asked, nullptr),
                                               &std::free);
    return reply ? reply->atom : std::uint32_t(XCB_ATOM_NONE);
}

bool CalmWindows::nativeEventFilter(const QByteArray&, void* message, qintptr*) {
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    constexpr std::uint8_t sentByClient = 0x80;
    if ((event.response_type & ~sentByClient) != XCB_PROPERTY_NOTIFY)
        return false;
    const auto& changed = reinterpret_cast<const xcb_property_notify_event_t&>(event);
    if (changed.atom == state_ && changed.state == XCB_PROPERTY_NEW_VALUE && demands(changed.window))
        withdraw(changed.window);
    return false;
}

bool CalmWindows::demands(std::uint32_t window) const {
    const auto asked = xcb_get_property(connection_, 0, window, state_, XCB_ATOM_ATOM, 0, mostStates);
    const Owned<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, asked, nullptr),
                                                &std::free);
    if (!reply)
        return false;
    const auto* const states = static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
    const auto count = static_cast<std::size_t>(xcb_get_property_value_length(reply.get())) / sizeof *states;
    return std::find(states, states + count, demand_) != states + count;
}

void CalmWindows::withdraw(std::uint32_t window) const {
    const xcb_setup_t* const setup = xcb_get_setup(connection_);
    xcb_client_message_event_t wish{};
    wish.response_type = XCB_CLIENT_MESSAGE;
    wish.format = 32;
    wish.window = window;
    wish.type = state_;
    wish.data.data32[0] = removeState;
    wish.data.data32[1] = demand_;
    wish.data.data32[3] = fromProgram;
    xcb_send_event(connection_, 0, xcb_setup_roots_iterator(setup).data->root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&wish));
    xcb_flush(connection_);
}

} // namespace desktop
