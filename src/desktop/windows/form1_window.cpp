#include "desktop/windows/form1_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/menus.h"
#include "desktop/windows/video_screen.h"

#include <QApplication>
#include <QMouseEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

namespace desktop {

namespace {

// The skin with all controls on it; reports mouse moves between the controls.
class SkinView : public Ground {
public:
    SkinView(player::Form1& form, QWidget* parent) : Ground(parent), form_(form) {
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
    // All are owned by their Qt parent; the last one added is on top.
    void add(controls::Control& control) { new ControlView(control, this); }
    void add(controls::Picture& picture) { new PictureView(picture, this); }
    void add(controls::Fill& fill) { new FillView(fill, this); }
    void add(controls::PictureButton& button) { new PictureButtonView(button, this); }
    void add(controls::Label& label) { new LabelView(label, this); }

    player::Form1& form_;
};

controls::Box areaOf(const controls::Control& window) {
    const QRect place = placeOf(window);
    const auto shown = [&](const QScreen* screen) {
        const QRect part = screen->geometry() & place;
        return part.width() * part.height();
    };
    const QList<QScreen*> screens = QGuiApplication::screens();
    // The first screen if the window is on none.
    const QScreen* const screen = *std::max_element(screens.begin(), screens.end(),
                                                    [&](auto* a, auto* b) { return shown(a) < shown(b); });
    const QRect area = screen->availableGeometry();
    return {twips(area.left()), twips(area.top()), twips(area.width()), twips(area.height())};
}

std::vector<controls::Box> occupied() {
    std::vector<controls::Box> boxes;
    for (const QWidget* const window : QApplication::topLevelWidgets()) {
        const QRect frame = window->frameGeometry();
        if (window->isVisible() && !window->isMinimized() && window->windowType() != Qt::ToolTip)
            boxes.push_back(
                {twips(frame.left()), twips(frame.top()), twips(frame.width()), twips(frame.height())});
    }
    return boxes;
}

} // namespace

Form1Window::Form1Window(player::Form1& form)
    : FormWindow(form, Size::Fixed, Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);

    // No control on the skin accepts the focus: without this, the menu bar would keep it.
    setFocusPolicy(Qt::StrongFocus);
    setFocus();

    auto* const menuBar = new MenuBar(form.menuBar, this);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->setMenuBar(menuBar);
    auto* const skin = new SkinView(form, this);
    layout->addWidget(skin);

    const QSize available = screen()->availableSize();
    form.screen.width = twips(available.width());
    form.screen.height = twips(available.height());
    form.screen.areaOf = areaOf;
    form.screen.occupied = occupied;
    form.screen.observe([this] { followPointer(); });
    adjustSize();
    video_ = std::make_unique<VideoScreen>(form, *this, *skin);
    begin();
}

Form1Window::~Form1Window() = default;

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

} // namespace desktop
