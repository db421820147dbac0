#pragma once

#include "platform/key_event.h"

#include <QKeyEvent>

namespace desktop {

// The key by Qt's number. With Ctrl a letter of another script is the Latin one of its place: a user may have
// no Latin layout to change to.
int latinKey(const QKeyEvent& event);

// The key as the program numbers it; code 0 for one that it has no number for.
platform::KeyEvent keyEvent(const QKeyEvent& event);

// Tells a handler of the program of the key; accepts it when the handler may act on it.
template <typename Handler>
void report(const Handler& handler, QKeyEvent& event) {
    platform::KeyEvent key = keyEvent(event);
    handler(key);
    event.accept();
}

} // namespace desktop
