#pragma once

#include <QAbstractNativeEventFilter>
#include <QObject>
#include <bitset>
#include <deque>
#include <utility>

namespace desktop {

// Tells the first press of a key from its repeats while it is held. The X server repeats releases as well,
// and Qt knows them from real ones only when the next press has arrived by then; so the server is asked not
// to repeat releases, and the presses are marked here.
class KeyRepeats : public QObject, public QAbstractNativeEventFilter {
public:
    // Begins when the application is there; does nothing without an X server.
    KeyRepeats();

    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

protected:
    bool eventFilter(QObject* receiver, QEvent* event) override;

private:
    using Press = std::pair<quint32, quint64>; // key by the server's number, time in ms

    std::bitset<256> held_;      // by the server's numbers
    std::deque<Press> repeated_; // lately; Qt hands events on later than the server does
};

} // namespace desktop
