#pragma once

#include <QByteArray>
#include <QHash>
#include <QList>
#include <chrono>
#include <memory>
#include <optional>

struct xcb_connection_t;

namespace desktop {

// Reads X selections of other programs, such as the clipboard, on its own connection to the X server. Qt
// waits up to five seconds for each request; this class waits at most a few hundred milliseconds for each
// step, and then does not ask an unresponsive owner again for a while.
class XSelection {
public:
    // `name` is "CLIPBOARD" or "PRIMARY".
    explicit XSelection(QByteArray name);
    ~XSelection();

    // The data in the first of `forms` that the owner offers. Empty if it offers none of them, does not
    // answer in time, or has more than `limit` bytes.
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
    // The selection converted to one format; empty if the owner refuses. Throws NoAnswer.
    std::optional<QByteArray> convert(Atom target, std::chrono::milliseconds patience, qsizetype limit);
    QByteArray takeProperty(Atom& type);
    QByteArray takePieces(qsizetype limit);
    // Waits for an event of this kind for which `wanted` returns true. Throws NoAnswer after `patience`.
    template <typename Event, typename Wanted>
    Event waitFor(std::uint8_t kind, std::chrono::milliseconds patience, Wanted&& wanted);

    QByteArray name_;
    std::unique_ptr<xcb_connection_t, Closer> connection_;
    QHash<QByteArray, Atom> atoms_;
    std::uint32_t window_ = 0;
    Atom deafOwner_ = 0; // did not answer; is not asked again until deafUntil_
    Clock::time_point deafUntil_;
};

} // namespace desktop
