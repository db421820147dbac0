#include "desktop/video_screen.h"

#include "desktop/conversions.h"
#include "desktop/key_codes.h"

#include <QAction>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <cstdlib>
#include <xcb/xcb.h>

namespace desktop {

namespace {

// Waits until the X server has carried out what Qt has asked of it. The player speaks to the server on a
// connection of its own, on which a window that was only asked for does not exist yet.
void waitForServer() {
    const auto* const x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    // The platform without a screen knows of X11 too, but has no connection.
    xcb_connection_t* const connection = x11 ? x11->connection() : nullptr;
    if (connection)
        std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

} // namespace

VideoSurface::VideoSurface(player::Form1& form) : form_(form) {
    setObjectName(QStringLiteral("VideoSurface"));
    setFlags(Qt::FramelessWindowHint);
}

void VideoSurface::mouseDoubleClickEvent(QMouseEvent*) {
    (form_.VideoWindow.visible ? form_.VideoWindow.DblClick : form_.VideoBox.DblClick)();
}

VideoWindowView::VideoWindowView(player::Form1& form, VideoSurface& surface)
    : form_(form), surface_(surface) {
    setObjectName(qstring(form.VideoWindow.name));
    setWindowFlag(Qt::Window);
    QPalette black = palette();
    black.setColor(QPalette::Window, Qt::black);
    setPalette(black);
}

void VideoWindowView::follow() {
    const controls::Window& video = form_.VideoWindow;
    setWindowTitle(qstring(video.caption));
    if (isHidden() == video.visible) {
        if (video.visible) {
            setWindowFlag(Qt::WindowStaysOnTopHint, video.topmost);
            resize(pixels(video.width), pixels(video.height));
            move(pixels(video.left), pixels(video.top));
        }
        setVisible(video.visible);
    }
    const bool full = video.windowState == controls::WindowState::FullScreen;
    if (isVisible() && isFullScreen() != full)
        setWindowState(full ? Qt::WindowFullScreen : Qt::WindowNoState);
}

void VideoWindowView::closeEvent(QCloseEvent* event) {
    event->ignore();
    form_.VideoWindow.Unload();
}

void VideoWindowView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        report(form_.VideoWindow.KeyDown, *event);
    else
        QWidget::keyPressEvent(event);
}

void VideoWindowView::resizeEvent(QResizeEvent*) {
    if (surface_.parent() == windowHandle())
        surface_.setGeometry(QRect(QPoint(0, 0), size()));
}

VideoScreen::VideoScreen(player::Form1& form, QWidget& playerWindow, QWidget& skin)
    : form_(form), playerWindow_(playerWindow), skin_(skin), surface_(new VideoSurface(form)),
      window_(form, *surface_) {
    for (const QMenu* menu : playerWindow.findChildren<QMenu*>())
        window_.addActions(menu->actions());
    form.VideoBox.observe([this] { follow(); });
    form.VideoWindow.observe([this] { follow(); });
    // It has no parent until there is a picture: the native window of the player is made anew when it is
    // shown, and would take the surface with it.
    const WId id = surface_->winId();
    waitForServer();
    form.WMP1.showPicturesIn(id);
}

VideoScreen::~VideoScreen() {
    surface_->setParent(nullptr);
    delete surface_;
}

void VideoScreen::follow() {
    if (form_.VideoWindow.visible) {
        window_.follow(); // its native window has to be there first
        if (surface_->parent() != window_.windowHandle()) {
            surface_->setParent(window_.windowHandle());
            surface_->setGeometry(QRect(QPoint(0, 0), window_.size()));
        }
    } else if (form_.VideoBox.visible) {
        surface_->setParent(playerWindow_.windowHandle());
        surface_->setGeometry(boxOnPlayer());
    }
    window_.follow();
    surface_->setVisible(form_.VideoWindow.visible || form_.VideoBox.visible);
}

// The picture in its own proportions, in the middle of its box: no bars on the white skin.
QRect VideoScreen::boxOnPlayer() const {
    const QRect box(
        skin_.mapTo(&playerWindow_, QPoint(pixels(form_.VideoBox.left), pixels(form_.VideoBox.top))),
        QSize(pixels(form_.VideoBox.width), pixels(form_.VideoBox.height)));
    const platform::PictureSize picture = form_.WMP1.pictureSize();
    if (!picture.exists())
        return box;
    QRect shown(QPoint(0, 0), QSize(picture.width, picture.height).scaled(box.size(), Qt::KeepAspectRatio));
    shown.moveCenter(box.center());
    return shown;
}

} // namespace desktop
