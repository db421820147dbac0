#include "desktop/qt/window_hints.h"

#include <QGuiApplication>
#include <QWindow>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <xcb/xcb.h>

namespace desktop {

namespace {

// Layout of the WM_HINTS property, in 32-bit units.
constexpr std::size_t hintLength = 9;
constexpr std::size_t flags = 0;
constexpr std::size_t initialState = 2;
constexpr std::uint32_t stateHint = 2; // flag: the initial state is set
constexpr std::uint32_t normalState = 1;

} // namespace

void beginUnminimised(const QWindow& window) {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // The offscreen platform also has this interface, but no connection.
    xcb_connection_t* const connection = x11 ? x11->connection() : nullptr;
    if (!connection)
        return;
    const auto id = static_cast<xcb_window_t>(window.winId());
    const auto asked =
        xcb_get_property(connection, 0, id, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 0, hintLength);
    const std::unique_ptr<xcb_get_property_reply_t, decltype(&std::free)> reply(
        xcb_get_property_reply(connection, asked, nullptr), &std::free);
    std::array<std::uint32_t, hintLength> hints{};
    if (!reply || xcb_get_property_value_length(reply.get()) != static_cast<int>(sizeof hints))
        return;
    std::memcpy(hints.data(), xcb_get_property_value(reply.get()), sizeof hints);
    hints[flags] |= stateHint;
    hints[initialState] = normalState;
    xcb_change_property(connection, XCB_PROP_MODE_REPLACE, id, XCB_ATOM_WM_HINTS, XCB_ATOM_WM_HINTS, 32,
                        hintLength, hints.data());
}

} // namespace desktop
