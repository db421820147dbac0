#include "desktop/windows/form2_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"
#include "desktop/text/rich_text_edit.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"
#include "desktop/views/menus.h"

#include <QApplication>
#include <QComboBox>
#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace desktop {

namespace {
const QColor hoverColor(0x80, 0x80, 0x80);
const QColor darkPage(0x1B, 0x20, 0x2B);
const QColor quietText(0x9A, 0xA3, 0xB0);
const QColor lightText(0xE6, 0xEA, 0xF0);
constexpr double corner = 4; // pixels

// The line below the buttons.
class RuleView : public ControlView {
public:
    using ControlView::ControlView;

protected:
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), palette::rule); }
};

// The outline of the button under the mouse; transparent to mouse events.
class MarkView : public ControlView {
public:
    MarkView(controls::Control& control, QWidget* parent) : ControlView(control, parent) {
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }

protected:
    void follow() override {
        ControlView::follow();
        setAttribute(Qt::WA_TransparentForMouseEvents);
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(hoverColor);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
    }
};

// The sheet behind the text.
class SheetView : public ControlView {
public:
    SheetView(editor::Form2& form, QWidget* parent) : ControlView(form.Label1, parent), form_(form) {
        form_.observe([this] { update(); });
    }

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.fillRect(rect(), palette::rule);
        painter.fillRect(rect().adjusted(1, 1, -1, -1), form_.darkPage ? darkPage : Qt::white);
    }

private:
    editor::Form2& form_;
};

// The client area with all controls on it; reports mouse moves between the controls.
class EditorSurface : public Ground {
public:
    EditorSurface(editor::Form2& form, QWidget* parent) : Ground(parent), form_(form) {
        setObjectName(QStringLiteral("surface"));
        setMouseTracking(true);
        // A window that is cut off at the screen's edge can still be grabbed.
        setMinimumSize(leastWidth, leastHeight);
        // All are owned by their Qt parent; the last one added is on top.
        new PictureView(form.Image1, this);
        new RuleView(form.Line1, this);
        new SheetView(form, this);
        for (controls::Label& letter : form.Label3)
            new LabelView(letter, this);
        new MarkView(form.Shape1, this);
        for (controls::Control& button : form.Label2)
            new ControlView(button, this);
        addView(form.Combo1, *this)->setMaxVisibleItems(listLength);
        addView(form.Combo2, *this)->setMaxVisibleItems(listLength);
    }

    QSize sizeHint() const override {
        return {pixels(editor::Form2::clientWidth), pixels(editor::Form2::clientHeight)};
    }

protected:
    void mouseMoveEvent(QMouseEvent* event) override {
        const auto held = static_cast<int>(event->buttons().toInt() & 7U);
        form_.MouseMove({held, twips(event->position().x()), twips(event->position().y())});
    }

private:
    static constexpr int leastWidth = 120; // pixels
    static constexpr int leastHeight = 20; // pixels
    static constexpr int listLength = 21;  // visible entries of an open list: all sizes at once

    editor::Form2& form_;
};

} // namespace

Form2Window::Form2Window(editor::Form2& form, RichTextEdit& text)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), text_(text) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setMenuBar(new MenuBar(form.menuBar, this));
    auto* const surface = new EditorSurface(form, this);
    layout->addWidget(surface);

    text_.setParent(surface);
    text_.setObjectName(qstring(form.RTBPlace.name));
    text_.setFrameShape(QFrame::NoFrame);
    const auto placeText = [this, &form] {
        text_.setGeometry(placeOf(form.RTBPlace));
        text_.setPlaceholderText(qstring(form.RTBPlace.hint));
        text_.setAccessibleName(qstring(form.RTBPlace.accessible.name));
    };
    const auto colorPage = [this, &form] {
        QPalette page = QApplication::palette();
        if (form.darkPage) {
            page.setColor(QPalette::Base, darkPage);
            page.setColor(QPalette::Text, lightText);
            page.setColor(QPalette::PlaceholderText, quietText);
        }
        if (page != text_.palette())
            text_.setPalette(page);
    };
    form.observe([this, &form] { text_.setZoom(form.zoom); });
    form.observe(colorPage);
    colorPage();
    text_.setZoom(form.zoom);
    form.RTBPlace.observe(placeText);
    placeText();
    text_.show();
    text_.setFocus();
    form.PopupAtCaret = [this](controls::MenuItem& item) {
        popUp(item, text_.viewport()->mapToGlobal(text_.cursorRect().bottomLeft()));
    };
    begin();
}

void Form2Window::keyPressEvent(QKeyEvent* event) {
    // A focused control leaves some keys unhandled, such as Escape; the window must not handle them either.
    QWidget* const focused = QApplication::focusWidget();
    if (event->key() == Qt::Key_Escape && dynamic_cast<ControlView*>(focused))
        text_.setFocus();
    else if (isAncestorOf(focused) && event->key() != Qt::Key_F10)
        event->accept();
    else
        FormWindow::keyPressEvent(event);
}

void Form2Window::showEvent(QShowEvent* event) {
    FormWindow::showEvent(event);
    // While the window is hidden, Qt moves the focus to another control.
    text_.setFocus();
}

Form2Window::~Form2Window() {
    text_.setParent(nullptr);
}

} // namespace desktop
