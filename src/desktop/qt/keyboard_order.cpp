#include "desktop/qt/keyboard_order.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace desktop {

namespace {

// A window manager gives the keyboard to a window of its own choice when one has gone. The X server then
// ignores a request that carries an older time, while Qt may believe that it was granted. Qt learns the new
// time a moment later, hence the further requests, a few of them even after success.
constexpr int askAgainAfter = 40; // ms
constexpr int mostAsks = 25;
constexpr int asksAfterSuccess = 3;

QEvent::Type keyboardGiven() {
    static const auto type = static_cast<QEvent::Type>(QEvent::registerEventType());
    return type;
}

// Menus, open lists and tips borrow the keyboard from the window below them.
bool keepsKeyboard(const QWidget& widget) {
    return widget.isWindow() && widget.windowType() != Qt::Popup && widget.windowType() != Qt::ToolTip;
}

bool isBlocked(const QWidget& window) {
    const QWidget* const modal = QApplication::activeModalWidget();
    return modal && modal != &window && !modal->isAncestorOf(&window);
}

} // namespace

void giveKeyboard(QWidget& window) {
    QEvent given(keyboardGiven());
    QCoreApplication::sendEvent(&window, &given);
    window.activateWindow();
}

KeyboardOrder::KeyboardOrder() {
    returning_.setInterval(askAgainAfter);
    connect(&returning_, &QTimer::timeout, this, [this] { giveBack(); });
    qApp->installEventFilter(this);
}

bool KeyboardOrder::eventFilter(QObject* receiver, QEvent* event) {
    const QEvent::Type type = event->type();
    if (type == QEvent::MouseButtonPress && event->spontaneous())
        returning_.stop(); // the user chooses
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
    else
        moveToFront(*window);
    return false;
}

void KeyboardOrder::moveToFront(QWidget& window) {
    order_.erase(std::remove_if(order_.begin(), order_.end(),
                                [&](const QPointer<QWidget>& one) { return !one || one == &window; }),
                 order_.end());
    order_.insert(order_.begin(), &window);
}

void KeyboardOrder::windowActivated(QWidget& window) {
    if (!returning_.isActive() || !next()) {
        moveToFront(window);
    } else if (&window == next()) {
        asked_ = std::max(asked_, mostAsks - asksAfterSuccess);
        moveToFront(window);
    } else {
        QMetaObject::invokeMethod(
            this, [this] { giveBack(); }, Qt::QueuedConnection);
    }
}

// A new box gets the keyboard from the window manager; one that comes back may not.
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
    // What closes it may show the others first, or have a wish of its own.
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
    if (window && ++asked_ <= mostAsks)
        window->activateWindow();
    else
        returning_.stop();
}

// A key that the user has pressed by now was meant for the window that gets the keyboard back.
bool KeyboardOrder::handOver(QObject* receiver, QEvent& event) const {
    if (!returning_.isActive() || !event.spontaneous() || !receiver->isWindowType())
        return false;
    QWidget* const window = next();
    if (!window || !window->windowHandle() || window->windowHandle() == receiver)
        return false;
    const std::unique_ptr<QEvent> key(event.clone());
    QCoreApplication::sendEvent(window->windowHandle(), key.get());
    event.accept(); // or the menus of the other window would have it
    return true;
}

} // namespace desktop
