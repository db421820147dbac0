#include "desktop/qt/key_repeats.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <algorithm>
#include <cstdlib>
#include <memory>

// The C header has a member named `explicit`.
#if defined(__clang__)
#pragma clang diagnostic ignored "-Wkeyword-macro"
#endif
#define explicit explicitMember
#include <xcb/xkb.h>
#undef explicit

namespace desktop {

namespace {

constexpr std::size_t rememberedPresses = 100;

// True for a shortcut whose command repeats while the key is held.
bool isRepeatingShortcut(const QKeyEvent& event) {
    const QWidget* const window = QApplication::activeWindow();
    const QList<QAction*> actions =
        window ? window->findChildren<QAction*>() + window->actions() : QList<QAction*>();
    return std::any_of(actions.begin(), actions.end(), [&](const QAction* action) {
        return action->autoRepeat() && action->shortcut() == QKeySequence(event.keyCombination());
    });
}

} // namespace

KeyRepeats::KeyRepeats() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    connection_ = x11 ? x11->connection() : nullptr;
    if (!connection_)
        return;
    constexpr auto flag = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT;
    const auto cookie = xcb_xkb_per_client_flags(connection_, XCB_XKB_ID_USE_CORE_KBD, flag, flag, 0, 0, 0);
    // A server without this feature keeps repeating releases.
    xcb_discard_reply(connection_, cookie.sequence);
    qApp->installNativeEventFilter(this);
    qApp->installEventFilter(this);
    // A key pressed here may be released in another program.
    connect(qApp, &QGuiApplication::applicationStateChanged, this, [this] { held_.reset(); });
}

bool KeyRepeats::nativeEventFilter(const QByteArray&, void* message, qintptr*) {
    const auto& event = *static_cast<const xcb_generic_event_t*>(message);
    const auto kind = event.response_type & 0x7FU;
    if (kind == XCB_FOCUS_IN)
        forgetReleased();
    if (kind != XCB_KEY_PRESS && kind != XCB_KEY_RELEASE)
        return false;
    const auto& key = reinterpret_cast<const xcb_key_press_event_t&>(event);
    if (kind == XCB_KEY_PRESS && held_.test(key.detail))
        repeated_.emplace_back(key.detail, key.time);
    held_.set(key.detail, kind == XCB_KEY_PRESS);
    if (repeated_.size() > rememberedPresses)
        repeated_.pop_front();
    return false;
}

// The release of a key that closes a window may reach no window of ours. Its next press would then count as a
// repeat.
void KeyRepeats::forgetReleased() {
    if (held_.none())
        return;
    const std::unique_ptr<xcb_query_keymap_reply_t, decltype(&std::free)> down(
        xcb_query_keymap_reply(connection_, xcb_query_keymap(connection_), nullptr), &std::free);
    for (std::size_t key = 0; down && key < held_.size(); ++key) {
        if ((down->keys[key / 8] >> key % 8 & 1U) == 0)
            held_.reset(key);
    }
}

// Replaces a repeated press by a copy that is marked as a repeat.
bool KeyRepeats::eventFilter(QObject* receiver, QEvent* event) {
    const bool isPress = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
    if (!isPress || !event->spontaneous() || !receiver->isWindowType())
        return false;
    auto& key = static_cast<QKeyEvent&>(*event);
    const Press press(key.nativeScanCode(), key.timestamp());
    if (key.isAutoRepeat() || std::find(repeated_.begin(), repeated_.end(), press) == repeated_.end())
        return false;
    QKeyEvent repeat(key.type(), key.key(), key.modifiers(), key.nativeScanCode(), key.nativeVirtualKey(),
                     key.nativeModifiers(), key.text(), true, static_cast<quint16>(key.count()));
    repeat.setTimestamp(key.timestamp());
    repeat.setAccepted(key.isAccepted());
    QCoreApplication::sendEvent(receiver, &repeat);
    // If nobody accepts this event, Qt looks for a matching shortcut without knowing that the key is held.
    key.setAccepted(repeat.isAccepted() ||
                    (key.type() == QEvent::ShortcutOverride && !isRepeatingShortcut(key)));
    return true;
}

} // namespace desktop
