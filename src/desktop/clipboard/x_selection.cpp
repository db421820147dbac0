#include "desktop/clipboard/x_selection.h"

#include <algorithm>
#include <cstdlib>
#include <poll.h>
#include <xcb/xcb.h>

namespace desktop {

namespace {

using std::chrono::milliseconds;

// Timeouts that a user does not take for a hang. Listing its formats costs the owner nothing; producing one
// may.
constexpr milliseconds untilForms{300};
constexpr milliseconds untilBytes{700};
constexpr milliseconds untilPiece{500};
constexpr milliseconds untilAll{3000};
constexpr qsizetype slowest = 5000; // bytes per ms: allows large transfers more time
constexpr milliseconds deafFor{5000};

constexpr std::uint32_t wholeProperty = 0x1FFFFFFF; // units of four bytes

// Thrown if the owner of the selection does not answer, or answers wrongly.
struct NoAnswer {};

template <typename Reply>
std::unique_ptr<Reply, decltype(&std::free)> owned(Reply* reply) {
    return {reply, &std::free};
}

} // namespace

void XSelection::Closer::operator()(xcb_connection_t* connection) const {
    xcb_disconnect(connection);
}

XSelection::XSelection(QByteArray name) : name_(std::move(name)) {}

XSelection::~XSelection() = default;

bool XSelection::open() {
    if (connection_ && !xcb_connection_has_error(connection_.get()))
        return true;
    connection_.reset(xcb_connect(nullptr, nullptr));
    atoms_.clear();
    if (xcb_connection_has_error(connection_.get()))
        return false;
    const xcb_screen_t* const screen = xcb_setup_roots_iterator(xcb_get_setup(connection_.get())).data;
    const std::uint32_t events = XCB_EVENT_MASK_PROPERTY_CHANGE;
    window_ = xcb_generate_id(connection_.get());
    xcb_create_window(connection_.get(), XCB_COPY_FROM_PARENT, window_, screen->root, 0, 0, 1, 1, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, XCB_CW_EVENT_MASK, &events);
    return true;
}

XSelection::Atom XSelection::atom(const QByteArray& name) {
    Atom& known = atoms_[name];
    if (known == XCB_ATOM_NONE) {
        const auto cookie =
            xcb_intern_atom(connection_.get(), 0, static_cast<std::uint16_t>(name.size()), name.data());
        if (const auto reply = owned(xcb_intern_atom_reply(connection_.get(), cookie, nullptr)))
            known = reply->atom;
    }
    return known;
}

XSelection::Atom XSelection::owner() {
    const auto cookie = xcb_get_selection_owner(connection_.get(), atom(name_));
    const auto reply = owned(xcb_get_selection_owner_reply(connection_.get(), cookie, nullptr));
    return reply ? reply->owner : Atom{XCB_WINDOW_NONE};
}

template <typename Event, typename Wanted>
Event XSelection::waitFor(std::uint8_t kind, milliseconds patience, Wanted&& wanted) {
    const auto end = Clock::now() + patience;
    while (true) {
        while (const auto event = owned(xcb_poll_for_event(connection_.get()))) {
            if ((event->response_type & 0x7FU) != kind)
                continue;
            const Event& found = *reinterpret_cast<const Event*>(event.get());
            if (wanted(found))
                return found;
        }
        const auto left = std::chrono::ceil<milliseconds>(end - Clock::now()).count();
        pollfd server{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
        if (left <= 0 || xcb_connection_has_error(connection_.get()) ||
            poll(&server, 1, static_cast<int>(left)) < 0)
            throw NoAnswer();
    }
}

QByteArray XSelection::takeProperty(Atom& type) {
    const auto cookie = xcb_get_property(connection_.get(), 1, window_, atom("QUILLMERE_SELECTION"),
                                         XCB_GET_PROPERTY_TYPE_ANY, 0, wholeProperty);
    const auto reply = owned(xcb_get_property_reply(connection_.get(), cookie, nullptr));
    if (!reply)
        throw NoAnswer();
    type = reply->type;
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

// A large selection arrives in pieces (INCR protocol), the next one after each deletion of the property; an
// empty piece ends the transfer.
QByteArray XSelection::takePieces(qsizetype limit) {
    const auto begin = Clock::now();
    QByteArray all;
    while (Clock::now() - begin < untilAll + milliseconds(all.size() / slowest) && all.size() <= limit) {
        waitFor<xcb_property_notify_event_t>(XCB_PROPERTY_NOTIFY, untilPiece, [&](const auto& event) {
            return event.state == XCB_PROPERTY_NEW_VALUE && event.atom == atom("QUILLMERE_SELECTION");
        });
        Atom type = XCB_ATOM_NONE;
        const QByteArray piece = takeProperty(type);
        if (piece.isEmpty())
            return all;
        all += piece;
    }
    throw NoAnswer();
}

std::optional<QByteArray> XSelection::convert(Atom target, milliseconds patience, qsizetype limit) {
    xcb_convert_selection(connection_.get(), window_, atom(name_), target, atom("QUILLMERE_SELECTION"),
                          XCB_CURRENT_TIME);
    xcb_flush(connection_.get());
    const auto answer = waitFor<xcb_selection_notify_event_t>(
        XCB_SELECTION_NOTIFY, patience, [&](const auto& event) { return event.target == target; });
    if (answer.property == XCB_ATOM_NONE)
        return std::nullopt;
    Atom type = XCB_ATOM_NONE;
    QByteArray bytes = takeProperty(type);
    return type == atom("INCR") ? takePieces(limit) : bytes;
}

std::optional<XSelection::Held> XSelection::read(const QList<QByteArray>& forms, qsizetype limit) {
    if (!open())
        return std::nullopt;
    const Atom asked = owner();
    if (asked == XCB_WINDOW_NONE || (asked == deafOwner_ && Clock::now() < deafUntil_))
        return std::nullopt;
    try {
        const QByteArray list = convert(atom("TARGETS"), untilForms, limit).value_or(QByteArray());
        const auto* const offered = reinterpret_cast<const Atom*>(list.constData());
        const auto* const end = offered + list.size() / static_cast<qsizetype>(sizeof(Atom));
        for (const QByteArray& form : forms) {
            if (std::find(offered, end, atom(form)) == end)
                continue;
            if (const auto bytes = convert(atom(form), untilBytes, limit); bytes && bytes->size() <= limit)
                return Held{form, *bytes};
            return std::nullopt;
        }
    } catch (const NoAnswer&) {
        // A late answer must not be mistaken for the answer to a later request.
        connection_.reset();
        deafOwner_ = asked;
        deafUntil_ = Clock::now() + deafFor;
    }
    return std::nullopt;
}

} // namespace desktop
