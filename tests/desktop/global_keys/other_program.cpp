#include "other_program.h"

#include <cstdlib>
#include <xcb/xtest.h>
#include <xkbcommon/xkbcommon-x11.h>

PrivateServer::PrivateServer(const QStringList& options) {
    server.setStandardErrorFile(QProcess::nullDevice());
    server.start(QStringLiteral(XVFB),
                 QStringLiteral("-displayfd 1 -nolisten tcp -noreset").split(u' ') + options);
    server.waitForReadyRead(20'000);
    qputenv("DISPLAY", ":" + server.readLine().trimmed());
}

PrivateServer::~PrivateServer() {
    server.terminate();
    server.waitForFinished();
}

OtherProgram::OtherProgram() : x_(xcb_connect(nullptr, nullptr)), window_(xcb_generate_id(x_)) {
    xkb_x11_setup_xkb_extension(x_, 1, 0, XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, nullptr,
                                nullptr);
    const std::uint32_t events = XCB_EVENT_MASK_KEY_PRESS;
    const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(x_)).data->root;
    xcb_create_window(x_, 0, window_, root, 0, 0, 9, 9, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, 0,
                      XCB_CW_EVENT_MASK, &events);
    xcb_map_window(x_, window_);
    xcb_set_input_focus(x_, XCB_INPUT_FOCUS_PARENT, window_, XCB_CURRENT_TIME);
    xcb_flush(x_);
}

OtherProgram::~OtherProgram() {
    xcb_disconnect(x_);
}

std::u32string& OtherProgram::typed() {
    while (xcb_generic_event_t* const event = xcb_poll_for_event(x_)) {
        if ((event->response_type & 0x7F) == XCB_KEY_PRESS) {
            const auto& key = *reinterpret_cast<xcb_key_press_event_t*>(event);
            xkb_context* const context = xkb_context_new(XKB_CONTEXT_NO_FLAGS);
            xkb_keymap* const map = xkb_x11_keymap_new_from_device(
                context, x_, xkb_x11_get_core_keyboard_device_id(x_), XKB_KEYMAP_COMPILE_NO_FLAGS);
            xkb_state* const state = xkb_state_new(map);
            xkb_state_update_mask(state, key.state & 0xFFU, 0, 0, 0, 0, key.state >> 13U & 3U);
            if (const char32_t character = xkb_state_key_get_utf32(state, key.detail))
                typed_ += character;
            xkb_state_unref(state);
            xkb_keymap_unref(map);
            xkb_context_unref(context);
        }
        std::free(event);
    }
    return typed_;
}

void OtherProgram::press(std::initializer_list<int> codes, bool down) const {
    for (const int code : codes)
        xcb_test_fake_input(x_, down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, static_cast<std::uint8_t>(code), 0, 0,
                            0, 0, 0);
    xcb_flush(x_);
}

void OtherProgram::tap(std::initializer_list<int> held, int key) const {
    press(held, true);
    press({key}, true);
    press({key}, false);
    press(held, false);
}
