#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <chrono>
#include <memory>
#include <optional>

struct xcb_connection_t;

namespace desktop {

// Reads what another program offers by a selection of the X server, such as the clipboard, on a connection of
// its own. Qt's own reading waits for up to five seconds, and as often as it asks; this one waits for a
// moment and then leaves an owner that does not answer alone for a while.
class XSelection {
public:
    // Of one of these names: "CLIPBOARD", "PRIMARY".
    explicit XSelection(QByteArray name);
    ~XSelection();

    // The bytes in the first of these forms that the owner offers: none when it offers none of them, does not
    // answer in time, or offers more than `limit` bytes.
    struct Held {
        QByteArray form;
        QByteArray bytes;
    };
    std::optional<Held> read(const QList<QByteArray>& forms, qsizetype limit);

private:
    using Clock = std::chrono::steady_clock;
    using Atom = std::uint32_t;
    struct Closer {
        void operator()(xcb_connection_t* connection) const;
    };

    bool open();
    Atom atom(const QByteArray& name);
    Atom owner();
    // The selection in one form; none when the owner refuses. Throws NoAnswer.
    std::optional<QByteArray> convert(Atom target, std::chrono::milliseconds patience, qsizetype limit);
    QByteArray takeProperty(Atom& type);
    QByteArray takePieces(qsizetype limit);
    // Waits for an event for which `wanted` is true.
    template <typename Event, typename Wanted>
    Event waitFor(std::uint8_t kind, std::chrono::milliseconds patience, Wanted&& wanted);

    QByteArray name_;
    std::unique_ptr<xcb_connection_t, Closer> connection_;
    QHash<QByteArray, Atom> atoms_;
    std::uint32_t window_ = 0;
    Atom deafOwner_ = 0; // did not answer, until then
    Clock::time_point deafUntil_;
};

} // namespace desktop
