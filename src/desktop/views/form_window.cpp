#include "desktop/views/form_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/key_codes.h"
#include "desktop/qt/keyboard_order.h"
#include "desktop/qt/window_hints.h"
#include "desktop/views/accessible_views.h"
#include "desktop/views/announcer.h"
#include "desktop/views/control_views.h"
#include "desktop/views/menus.h"
#include "desktop/views/pictures.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QEventLoop>
#include <QMenu>
#include <QMimeData>
#include <QThread>
#include <QTimer>
#include <QWindow>
#include <utility>

namespace desktop {

namespace {

constexpr int largestIconAtStart = 64; // pixels, enough for title bars
constexpr int frameAwaited = 50;       // ms between two queries for the frame of a new window
constexpr int frameTries = 40;
constexpr int frameSettles = 200; // ms
constexpr auto heldState = Qt::WindowMinimized | Qt::WindowMaximized | Qt::WindowFullScreen;

// The paths of the local files in dragged data, without web addresses and texts. Parsed here because QUrl
// would lose bytes of names that are not valid UTF-8.
std::vector<base::Text> localFiles(const QMimeData& dragged) {
    std::vector<base::Text> paths;
    for (const QByteArray& line : dragged.data(QStringLiteral("text/uri-list")).split('\n')) {
        QByteArray path = line.trimmed();
        if (!path.startsWith("file:"))
            continue;
        path.remove(0, 5);
        if (path.startsWith("//")) // with a host, which is this one
            path.remove(0, path.indexOf('/', 2));
        if (path.startsWith('/'))
            paths.push_back(base::fromUtf8(QByteArray::fromPercentEncoding(path).toStdString()));
    }
    return paths;
}

// The frame size of the last window of this kind; initially a guess.
QSize& usualFrame(FormWindow::Size size) {
    static QSize fixed(8, 30);
    static QSize sizable(8, 30);
    return size == FormWindow::Size::Fixed ? fixed : sizable;
}

} // namespace

FormWindow::FormWindow(controls::Window& form, Size size, Qt::WindowFlags buttons)
    : form_(form), size_(size), announcer_(new Announcer(*this)), frame_(usualFrame(size)) {
    prepareAccessibleViews();
    setObjectName(qstring(form.name));
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   buttons);
}

void FormWindow::begin() {
    form_.setFocus = [this] {
        if (giveKeyboard(*this))
            raise();
    };
    form_.focusControls = [this] { focusControls(); };
    form_.announce = [this](const base::Text& text) { announcer_->speak(qstring(base::TextView(text))); };
    form_.showModal = [this] { showModal(); };
    form_.PopupMenu = [this](controls::MenuItem& item) { popUp(item, QCursor::pos()); };
    adjustSize();
    form_.observe([this] { follow(); });
    follow();
    if (size_ == Size::Fixed)
        reportPlace();
}

// A menu for one time stays until the next one, because its command may run after it has closed.
void FormWindow::popUp(controls::MenuItem& item, const QPoint& place) {
    auto* menu = findChild<QMenu*>(qstring(item.name));
    if (!menu) {
        delete popup_;
        menu = popup_ = newMenu(item, *this);
    }
    menu->popup(place);
}

void FormWindow::completeIcon() {
    setWindowIcon(QIcon(qstring(form_.icon)));
}

void FormWindow::follow() {
    if (reporting_)
        return;
    setWindowTitle(qstring(form_.caption));
    setAcceptDrops(form_.acceptsDrops);
    followIcon();
    followTopmost();
    followPlace();
    followVisibility();
    if (form_.windowState == controls::WindowState::Minimised && !isMinimized())
        setWindowState(windowState() | Qt::WindowMinimized);
    else if (form_.windowState == controls::WindowState::Normal && isMinimized() && isVisible())
        setWindowState(windowState() & ~Qt::WindowMinimized);
    if (modal_ && !form_.visible)
        modal_->quit();
}

void FormWindow::followVisibility() {
    if (isHidden() != form_.visible)
        return;
    // Before the event loop runs, nothing is shown: the start may still move or hide the window, and a window
    // manager that has not placed it yet would position it wrongly.
    if (!form_.visible)
        hide();
    else if (QThread::currentThread()->loopLevel() == 0)
        QMetaObject::invokeMethod(
            this, [this] { showInPlace(); }, Qt::QueuedConnection);
    else
        showInPlace();
}

void FormWindow::showInPlace() {
    if (!form_.visible)
        return;
    QWindow* const handle = windowHandle();
    // A hidden window has lost its frame, and Qt takes a new position for that of the contents: the window
    // would reappear higher by its title bar.
    const bool resized = size_ == Size::Sizable && size() != place_.size() - frame_;
    if (handle && resized)
        handle->destroy(); // a newly created native window appears at the right position
    else if (handle && form_.windowState == controls::WindowState::Normal)
        beginUnminimised(*handle);
    takeSize();
    move(place_.topLeft());
    if (handle && !resized)
        handle->setFramePosition(place_.topLeft());
    show();
}

void FormWindow::takeSize() {
    if (size_ == Size::Sizable)
        resize((place_.size() - frame_).expandedTo(QSize(1, 1)));
}

void FormWindow::followIcon() {
    if (shownIcon_ == form_.icon.get())
        return;
    shownIcon_ = form_.icon;
    // Nearly all windows have the same icon: the first one of them reads it.
    for (const QWidget* const other : QApplication::topLevelWidgets()) {
        const auto* const window = dynamic_cast<const FormWindow*>(other);
        if (window && window != this && window->shownIcon_ == shownIcon_) {
            setWindowIcon(window->windowIcon());
            return;
        }
    }
    setWindowIcon(loadIcon(shownIcon_, largestIconAtStart));
}

void FormWindow::followTopmost() {
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) == form_.topmost)
        return;
    // Set on the native window: changing the widget's flags would hide the window briefly. The widget's flags
    // are updated too, because they tell whether there is a change.
    overrideWindowFlags(windowFlags().setFlag(Qt::WindowStaysOnTopHint, form_.topmost));
    if (QWindow* const handle = windowHandle())
        handle->setFlag(Qt::WindowStaysOnTopHint, form_.topmost);
}

void FormWindow::followPlace() {
    // Compare with the last requested or reported position, not with the actual one, which is undefined until
    // the window manager has placed the window.
    const QRect wanted = placeOf(form_);
    const QRect before = std::exchange(place_, wanted);
    if (wanted.topLeft() != before.topLeft())
        move(wanted.topLeft());
    if (wanted.size() != before.size() && isVisible())
        takeSize();
}

void FormWindow::reportPlace() {
    place_.moveTopLeft(frameGeometry().topLeft());
    reporting_ = true;
    form_.left = twips(place_.left());
    form_.top = twips(place_.top());
    reporting_ = false;
    // A window that has just been shown has no frame yet.
    if (const QSize told = frameGeometry().size() - size(); !told.isNull())
        learnFrame(told);
    else
        reportSize();
}

void FormWindow::reportSize() {
    if (correcting_)
        return;
    place_.setSize(size() + frame_);
    reporting_ = true;
    form_.width = twips(place_.width());
    form_.height = twips(place_.height());
    reporting_ = false;
}

void FormWindow::learnFrame(QSize told) {
    const QSize more = told - std::exchange(frame_, told);
    usualFrame(size_) = told;
    const bool wrong = !std::exchange(frameKnown_, true) && !more.isNull();
    if (wrong) {
        // Deferred: the window manager's pending events refer to the initial positions of the new windows and
        // would undo the correction.
        correcting_ = size_ == Size::Sizable;
        QTimer::singleShot(frameSettles, this, [this, more] { correctGuess(more); });
    }
    reportSize();
}

// Corrects a window that was laid out for a frame smaller by `more`.
void FormWindow::correctGuess(QSize more) {
    correcting_ = false;
    if (size_ == Size::Fixed)
        form_.FrameKnown(twips(more.width()), twips(more.height()));
    else if (form_.windowState == controls::WindowState::Normal)
        takeSize();
    else
        reportSize();
}

// Some window managers report the frame only after the last event of showing the window. Checks again `tries`
// times.
void FormWindow::awaitFrame(int tries) {
    QTimer::singleShot(frameAwaited, this, [this, tries] {
        if (frameKnown_ || !isVisible())
            return;
        const QMargins frame = windowHandle()->frameMargins();
        if (!frame.isNull())
            learnFrame({frame.left() + frame.right(), frame.top() + frame.bottom()});
        else if (tries > 1)
            awaitFrame(tries - 1);
    });
}

void FormWindow::reportState() {
    reporting_ = true;
    form_.windowState = isMinimized()    ? controls::WindowState::Minimised
                        : isMaximized()  ? controls::WindowState::Maximised
                        : isFullScreen() ? controls::WindowState::FullScreen
                                         : controls::WindowState::Normal;
    reporting_ = false;
    form_.Resize();
}

void FormWindow::showModal() {
    setWindowModality(Qt::ApplicationModal);
    QEventLoop loop;
    modal_ = &loop;
    form_.visible = true;
    loop.exec();
    modal_ = nullptr;
    setWindowModality(Qt::NonModal);
}

void FormWindow::focusControls() {
    giveKeyboard(*this);
    for (QWidget* view = nextInFocusChain(); view != this; view = view->nextInFocusChain()) {
        if (dynamic_cast<const ControlView*>(view) && view->focusPolicy() == Qt::TabFocus &&
            view->isVisible() && view->window() == this)
            return view->setFocus(Qt::ShortcutFocusReason);
    }
}

void FormWindow::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange &&
        (static_cast<const QWindowStateChangeEvent&>(*event).oldState() & heldState) !=
            (windowState() & heldState))
        reportState();
    if (event->type() == QEvent::ActivationChange) {
        form_.active = isActiveWindow();
        form_.active ? form_.Activate() : form_.Deactivate();
    }
}

void FormWindow::closeEvent(QCloseEvent* event) {
    // The program decides whether the window closes.
    event->ignore();
    form_.Unload();
}

void FormWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(*event->mimeData()).empty())
        event->acceptProposedAction();
}

void FormWindow::dropEvent(QDropEvent* event) {
    const std::vector<base::Text> paths = localFiles(*event->mimeData());
    if (paths.empty())
        return;
    event->acceptProposedAction();
    form_.Drop(paths);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::NoModifier) {
        if (!event->isAutoRepeat())
            form_.NextGroup();
        return;
    }
    // Ignores repeats: an Escape that has closed a dialog and is still held would end the program.
    if (!runShortcutByPlace(*this, *event) && !event->isAutoRepeat())
        report(form_.KeyDown, *event);
}

void FormWindow::keyReleaseEvent(QKeyEvent* event) {
    if (!event->isAutoRepeat())
        report(form_.KeyUp, *event);
}

void FormWindow::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (isVisible())
        reportPlace();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isVisible())
        reportPlace();
    if (size_ == Size::Sizable)
        form_.Resize();
}

void FormWindow::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    reportPlace();
    if (!frameKnown_)
        awaitFrame(frameTries);
    connect(windowHandle(), &QWindow::screenChanged, this, &FormWindow::keepSize, Qt::UniqueConnection);
}

// On a screen of another density, the native window keeps its number of pixels, which would then cut it off.
void FormWindow::keepSize() {
    const QSize kept = size();
    QTimer::singleShot(0, this, [this, kept] {
        if (form_.windowState == controls::WindowState::Normal && size() != kept)
            resize(kept);
    });
}

} // namespace desktop
