#pragma once

#include "platform/key_event.h"

#include <QKeyEvent>

namespace desktop {

// Qt's key code. With Ctrl held, a non-Latin letter becomes the Latin letter of the same key: the user may
// have no Latin layout to switch to.
int latinKey(const QKeyEvent& event);

// The program's own key event; keyCode is 0 for a key that the program does not know.
platform::KeyEvent keyEvent(const QKeyEvent& event);

// Passes a key to a handler of the program and accepts the event.
template <typename Handler>
void report(const Handler& handler, QKeyEvent& event) {
    platform::KeyEvent key = keyEvent(event);
    handler(key);
    event.accept();
}

} // namespace desktop
