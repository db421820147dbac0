#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <bitset>
#include <deque>
#include <utility>

struct xcb_connection_t;

namespace desktop {

// Distinguishes the first press of a key from the repeats of a held key. The X server also repeats releases,
// which Qt recognises only if the next press has already arrived. Therefore the server is asked not to repeat
// releases, and repeated presses are marked here.
class KeyRepeats : public QObject, public QAbstractNativeEventFilter {
public:
    // Requires the QApplication; does nothing without an X server.
    KeyRepeats();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    // Clears the keys in held_ that the server reports as up.
    void forgetReleased();

    using Press = std::pair<quint32, quint64>; // X keycode, time in ms

    xcb_connection_t* connection_ = nullptr;
    std::bitset<256> held_;      // by X keycode
    std::deque<Press> repeated_; // recent ones; Qt delivers events later than the server
};

} // namespace desktop
