#include "desktop/windows/video_screen.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/key_codes.h"
#include "desktop/qt/keyboard_order.h"
#include "desktop/views/menus.h"
#include "desktop/views/pictures.h"

#include <QAction>
#include <QCloseEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QWindow>

namespace desktop {

namespace {

constexpr int largestIcon = 64; // pixels, enough for title bars

} // namespace

VideoWindowView::VideoWindowView(player::Form1& form) : form_(form) {
    setObjectName(qstring(form.VideoWindow.name));
    setWindowFlag(Qt::Window);
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
    form_.VideoWindow.setFocus = [this] {
        if (giveKeyboard(*this))
            raise();
    };
}

void VideoWindowView::follow() {
    if (reporting_)
        return;
    const controls::Window& video = form_.VideoWindow;
    setWindowTitle(qstring(video.caption));
    if (isHidden() == video.visible)
        video.visible ? show() : hide();
    const bool full = video.windowState == controls::WindowState::FullScreen;
    if (isVisible() && isFullScreen() != full)
        setWindowState(full ? Qt::WindowFullScreen : Qt::WindowNoState);
}

void VideoWindowView::show() {
    const controls::Window& video = form_.VideoWindow;
    if (shownIcon_ != video.icon.get()) {
        shownIcon_ = video.icon;
        setWindowIcon(loadIcon(shownIcon_, largestIcon));
    }
    // A hidden window has lost its frame and would reappear higher by its title bar. A newly created native
    // window appears at the right position.
    if (QWindow* const handle = windowHandle())
        handle->destroy();
    setWindowFlag(Qt::WindowStaysOnTopHint, video.topmost);
    resize(pixels(video.width), pixels(video.height));
    move(pixels(video.left), pixels(video.top));
    QWidget::show();
}

void VideoWindowView::reportPlace() {
    if (!isVisible() || windowState() != Qt::WindowNoState ||
        form_.VideoWindow.windowState != controls::WindowState::Normal)
        return;
    reporting_ = true;
    form_.VideoWindow.left = twips(frameGeometry().left());
    form_.VideoWindow.top = twips(frameGeometry().top());
    form_.VideoWindow.width = twips(width());
    form_.VideoWindow.height = twips(height());
    reporting_ = false;
}

void VideoWindowView::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        form_.VideoWindow.active = isActiveWindow();
}

void VideoWindowView::closeEvent(QCloseEvent* event) {
    event->ignore();
    form_.VideoWindow.Unload();
}

void VideoWindowView::keyPressEvent(QKeyEvent* event) {
    // Ignores repeats: a held Escape would pass through this window to the player and end the program.
    if (!runShortcutByPlace(*this, *event) && !event->isAutoRepeat())
        report(form_.VideoWindow.KeyDown, *event);
}

void VideoWindowView::mouseDoubleClickEvent(QMouseEvent*) {
    form_.VideoWindow.DblClick();
}

void VideoWindowView::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    reportPlace();
}

void VideoWindowView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    reportPlace();
}

VideoScreen::VideoScreen(player::Form1& form, QWidget& playerWindow, QWidget& skin)
    : form_(form), playerWindow_(playerWindow), skin_(skin), window_(form) {
    for (const QMenu* menu : playerWindow.findChildren<QMenu*>())
        window_.addActions(menu->actions());
    for (QWidget* const widget : {&playerWindow_, static_cast<QWidget*>(&window_)})
        widget->installEventFilter(this);
    form.VideoBox.observe([this] { follow(); });
    form.VideoWindow.observe([this] { follow(); });
    if (canvas_.id() != 0)
        form.WMP1.showPicturesIn(canvas_.id());
}

bool VideoScreen::eventFilter(QObject* watched, QEvent* event) {
    const auto leave = [&] {
        const QWindow* const handle = static_cast<QWidget*>(watched)->windowHandle();
        if (handle && handle->handle() && canvas_.isIn(handle->winId()))
            canvas_.takeOut();
    };
    switch (event->type()) {
    case QEvent::Hide:
        // If the window's flags change while it is hidden, Qt recreates the native window at the next show
        // without any event.
        leave();
        break;
    case QEvent::PlatformSurface:
        leave();
        followSoon();
        break;
    case QEvent::Show:
    case QEvent::Resize:
        followSoon();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void VideoScreen::followSoon() {
    QMetaObject::invokeMethod(
        this, [this] { follow(); }, Qt::QueuedConnection);
}

void VideoScreen::follow() {
    if (form_.VideoWindow.visible) {
        window_.follow(); // the native window must exist first
        putInto(window_, window_.rect());
        return;
    }
    if (form_.VideoBox.visible)
        putInto(playerWindow_, boxOnPlayer());
    else
        canvas_.takeOut();
    window_.follow();
}

void VideoScreen::putInto(QWidget& window, QRect place) {
    const QWindow* const handle = window.windowHandle();
    if (!window.isVisible() || !handle || !handle->handle())
        return;
    const double density = handle->devicePixelRatio();
    canvas_.showIn(handle->winId(),
                   QRect((QPointF(place.topLeft()) * density).toPoint(), place.size() * density));
}

// The video in its own aspect ratio, centred in its box: no black bars on the white skin.
QRect VideoScreen::boxOnPlayer() const {
    const QRect inSkin = placeOf(form_.VideoBox);
    const QRect box(skin_.mapTo(&playerWindow_, inSkin.topLeft()), inSkin.size());
    const platform::PictureSize picture = form_.WMP1.pictureSize();
    if (!picture.exists())
        return box;
    QRect shown(QPoint(0, 0),
                QSize(pixels(picture.width), pixels(picture.height)).scaled(box.size(), Qt::KeepAspectRatio));
    shown.moveCenter(box.center());
    return shown;
}

} // namespace desktop
