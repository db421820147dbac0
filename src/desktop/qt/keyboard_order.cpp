#include "desktop/qt/keyboard_order.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace desktop {

namespace {

// After a window has closed, a window manager gives the focus to a window of its own choice. The X server
// then ignores a request that carries an older time, while Qt may believe that it was granted. Qt learns the
// new time a moment later; hence the repeated requests, a few of them even after success.
constexpr int askAgainAfter = 40; // ms
constexpr int mostAsks = 25;
constexpr int succeeded = mostAsks - 3; // number of asks from which on the request counts as granted

QEvent::Type keyboardGiven() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

// Menus, open lists and tool tips only borrow the focus from the window below.
bool keepsKeyboard(const QWidget& widget) {
    return widget.isWindow() && widget.windowType() != Qt::Popup && widget.windowType() != Qt::ToolTip;
}

bool isBlocked(const QWidget& window) {
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal && modal != &window && !modal->isAncestorOf(&window);
}

} // namespace

bool giveKeyboard(QWidget& window) {
    QEvent given(keyboardGiven());
    QCoreApplication::sendEvent(&window, &given);
    if (!given.isAccepted())
        return false;
    // Qt would keep the request until the window appears, when it may concern another one; and a window that
    // appears gets the focus anyway.
    if (window.isVisible())
        window.activateWindow();
    return true;
}

KeyboardOrder::KeyboardOrder() {
    returning_.setInterval(askAgainAfter);
    connect(&returning_, &QTimer::timeout, this, [this] { giveBack(); });
    qApp->installEventFilter(this);
}

bool KeyboardOrder::eventFilter(QObject* receiver, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress && event->spontaneous())
        returning_.stop(); // the user chooses a window
    if (type == QEvent::KeyPress || type == QEvent::KeyRelease || type == QEvent::ShortcutOverride)
        return handOver(receiver, *event);
    if (type != QEvent::WindowActivate && type != QEvent::Show && type != QEvent::Hide &&
        type != keyboardGiven())
        return false;
    auto* const window = qobject_cast<QWidget*>(receiver);
    if (!window || !keepsKeyboard(*window))
        return false;
    if (type == QEvent::WindowActivate)
        windowActivated(*window);
    else if (type == QEvent::Show)
        windowShown(*window);
    else if (type == QEvent::Hide)
        windowHidden(*window);
    else if (ownsKeyboard())
        moveToFront(*window);
    else
        event->ignore();
    return type == keyboardGiven();
}

bool KeyboardOrder::ownsKeyboard() const {
    return !hadKeyboard_ || returning_.isActive() ||
           QGuiApplication::applicationState() == Qt::ApplicationActive;
}

void KeyboardOrder::moveToFront(QWidget& window) {
    order_.erase(std::remove_if(order_.begin(), order_.end(),
                                [&](const QPointer<QWidget>& one) { return !one || one == &window; }),
                 order_.end());
    order_.insert(order_.begin(), &window);
}

void KeyboardOrder::windowActivated(QWidget& window) {
    hadKeyboard_ = true;
    if (!returning_.isActive() || !next()) {
        moveToFront(window);
    } else if (&window == next()) {
        asked_ = std::max(asked_, succeeded);
        moveToFront(window);
    } else {
        QMetaObject::invokeMethod(
            this, [this] { giveBack(); }, Qt::QueuedConnection);
    }
}

// The window manager gives the focus to a new dialog, but not always to one that is shown again.
void KeyboardOrder::windowShown(QWidget& window) {
    const bool isNew = std::find(order_.begin(), order_.end(), &window) == order_.end();
    if (window.isModal() || (isNew && !window.testAttribute(Qt::WA_ShowWithoutActivating)))
        moveToFront(window);
}

void KeyboardOrder::windowHidden(const QWidget& window) {
    const bool hadKeyboard = !order_.empty() && order_.front() == &window &&
                             QGuiApplication::applicationState() == Qt::ApplicationActive;
    if (!hadKeyboard)
        return;
    asked_ = 0;
    returning_.start();
    // Deferred: the code that closes this window may first show others, or request the focus for one.
    QMetaObject::invokeMethod(
        this, [this] { giveBack(); }, Qt::QueuedConnection);
}

QWidget* KeyboardOrder::next() const {
    const auto found = std::find_if(order_.begin(), order_.end(), [](const QPointer<QWidget>& one) {
        return one && one->isVisible() && !one->isMinimized() && !isBlocked(*one);
    });
    return found == order_.end() ? nullptr : found->data();
}

void KeyboardOrder::giveBack() {
    if (!returning_.isActive())
        return;
    QWidget* const window = next();
    // The window may have been active before the asking began, and then no event tells the success. After it,
    // the user may go on to another program, which must not lose the keyboard.
    if (window && window->isActiveWindow())
        asked_ = std::max(asked_, succeeded);
    const bool isElsewhere =
        asked_ >= succeeded && QGuiApplication::applicationState() != Qt::ApplicationActive;
    if (window && !isElsewhere && ++asked_ <= mostAsks)
        window->activateWindow();
    else
        returning_.stop();
}

// Redirects keys to the window that is getting the focus back: the user meant them for it.
bool KeyboardOrder::handOver(QObject* receiver, QEvent& event) const {
    if (!returning_.isActive() || !event.spontaneous() || !receiver->isWindowType())
        return false;
    QWidget* const window = next();
    if (!window || !window->windowHandle() || window->windowHandle() == receiver)
        return false;
    const std::unique_ptr<QEvent> key(event.clone());
    QCoreApplication::sendEvent(window->windowHandle(), key.get());
    event.accept(); // otherwise the menus of the other window would handle it
    return true;
}

} // namespace desktop
