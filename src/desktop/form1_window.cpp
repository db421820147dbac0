#include "desktop/form1_window.h"

#include "desktop/control_views.h"
#include "desktop/conversions.h"
#include "desktop/menus.h"
#include "desktop/pictures.h"
#include "desktop/video_screen.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMimeData>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

namespace desktop {

namespace {

constexpr int escapeKey = 27;
constexpr int largestIconAtStart = 64; // pixels, enough for title bars

// The paths of the local files among what is dragged; web addresses and texts are none.
std::vector<base::Text> localFiles(const QMimeData& dragged) {
    std::vector<base::Text> paths;
    for (const QUrl& url : dragged.urls()) {
        if (url.isLocalFile())
            paths.push_back(text(url.toLocalFile()));
    }
    return paths;
}

// The menu bar with one line below it: the style draws it item by item, with gaps on fine screens.
class MenuBar : public QMenuBar {
public:
    using QMenuBar::QMenuBar;

protected:
    void paintEvent(QPaintEvent* event) override {
        QMenuBar::paintEvent(event);
        QPainter painter(this);
        painter.fillRect(QRect(0, height() - 1, width(), 1), QColor(0xE3, 0xE8, 0xEB));
    }
};

// The skin with all controls on it; it reports the mouse beside them.
class SkinView : public QWidget {
public:
    SkinView(player::Form1& form, QWidget* parent) : QWidget(parent), form_(form) {
        setObjectName(QStringLiteral("skin"));
        setMouseTracking(true);
        setFixedSize(pixels(player::Form1::clientWidth), pixels(player::Form1::clientHeight));
        form.forEachControl([this](auto& control) { add(control); });
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        const auto held = static_cast<int>(event->buttons().toInt() & 7U);
        form_.MouseMove({held, twips(event->position().x()), twips(event->position().y())});
    }

private:
    // Qt's parent owns them all; the one added last lies on top.
    void add(controls::Control& control) { new ControlView(control, this); }
    void add(controls::Picture& picture) { new PictureView(picture, this); }
    void add(controls::Fill& fill) { new FillView(fill, this); }
    void add(controls::PictureButton& button) { new PictureButtonView(button, this); }
    void add(controls::Label& label) { new LabelView(label, this); }

    player::Form1& form_;
};

} // namespace

Form1Window::Form1Window(player::Form1& form) : form_(form) {
    setObjectName(qstring(form.name));
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint);
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);
    setWindowIcon(loadIcon(form.icon.get(), largestIconAtStart));

    auto* const menuBar = new MenuBar(this);
    buildMenus(*menuBar, form.menuBar);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setMenuBar(menuBar);
    auto* const skin = new SkinView(form, this);
    layout->addWidget(skin);

    const QSize available = screen()->availableSize();
    form.screen.width = twips(available.width());
    form.screen.height = twips(available.height());
    form.screen.observe([this] { followPointer(); });
    form.observe([this] { follow(); });
    form.setFocus = [this] {
        raise();
        activateWindow();
    };
    adjustSize();
    video_ = std::make_unique<VideoScreen>(form, *this, *skin);
    follow();
    reportPlace();
}

Form1Window::~Form1Window() = default;

void Form1Window::completeIcon() {
    setWindowIcon(QIcon(qstring(form_.icon)));
}

void Form1Window::follow() {
    if (reporting_)
        return;
    setWindowTitle(qstring(form_.caption));
    setAcceptDrops(form_.acceptsDrops);
    if (windowFlags().testFlag(Qt::WindowStaysOnTopHint) != form_.topmost) {
        // Through the window's own handle: the widget's way of it would hide the window for a moment. The widget has
        // to know all the same, for it is what tells whether there is something to change.
        overrideWindowFlags(windowFlags().setFlag(Qt::WindowStaysOnTopHint, form_.topmost));
        if (QWindow* const handle = windowHandle())
            handle->setFlag(Qt::WindowStaysOnTopHint, form_.topmost);
    }
    const QPoint corner(pixels(form_.left), pixels(form_.top));
    if (corner != frameGeometry().topLeft())
        move(corner);
    if (isHidden() == form_.visible)
        setVisible(form_.visible);
}

void Form1Window::followPointer() {
    const bool shouldWait = form_.screen.mousePointer == controls::Pointer::Hourglass;
    if (waiting_ == shouldWait)
        return;
    waiting_ = shouldWait;
    if (waiting_)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

void Form1Window::reportPlace() {
    reporting_ = true;
    form_.left = twips(frameGeometry().left());
    form_.top = twips(frameGeometry().top());
    form_.width = twips(frameGeometry().width());
    form_.height = twips(frameGeometry().height());
    reporting_ = false;
}

void Form1Window::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::WindowStateChange)
        return;
    reporting_ = true;
    form_.windowState = isMinimized() ? controls::WindowState::Minimised : controls::WindowState::Normal;
    reporting_ = false;
    form_.Resize();
}

void Form1Window::closeEvent(QCloseEvent* event) {
    // The exit sequence ends the process, or the user cancelled it: either way this window does not close by
    // itself.
    event->ignore();
    form_.Unload();
}

void Form1Window::dragEnterEvent(QDragEnterEvent* event) {
    if (!localFiles(*event->mimeData()).empty())
        event->acceptProposedAction();
}

void Form1Window::dropEvent(QDropEvent* event) {
    const std::vector<base::Text> paths = localFiles(*event->mimeData());
    if (paths.empty())
        return;
    event->acceptProposedAction();
    form_.Drop(paths);
}

void Form1Window::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Escape)
        form_.KeyDown(escapeKey);
    else
        QWidget::keyPressEvent(event);
}

void Form1Window::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    if (isVisible())
        reportPlace();
}

void Form1Window::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (isVisible())
        reportPlace();
}

void Form1Window::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    reportPlace();
}

} // namespace desktop
