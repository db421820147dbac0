// What the keyboard and screen readers do with a control, and what they are told about it.
#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"
#include "desktop/views/accessible_views.h"
#include "desktop/views/control_views.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QPainter>
#include <cmath>

namespace desktop {

namespace {
constexpr double ringWidth = 2;  // pixels
constexpr double ringCorner = 3; // pixels
constexpr double ringInset = 12; // the inset is this part of the height
constexpr double pageSteps = 4;  // arrow steps of a page key

bool isPressed(controls::Role role) {
    return role == controls::Role::Button || role == controls::Role::Toggle || role == controls::Role::Link;
}

void tell(QAccessibleEvent&& event) {
    QAccessible::updateAccessibility(&event);
}

} // namespace

controls::Role ControlView::role() const {
    const controls::Role own = control_.accessible.role;
    return own == controls::Role::Kind ? kind() : own;
}

QString ControlView::spokenName() const {
    const QString name = qstring(control_.accessible.name);
    return name.isEmpty() ? qstring(control_.toolTip).trimmed() : name;
}

const controls::Accessible& ControlView::accessible() const {
    control_.accessible.refresh();
    return control_.accessible;
}

bool ControlView::isOperable() const {
    if (isPressed(role()))
        return takesMouse() && (control_.accessible.press || control_.Click);
    return role() == controls::Role::Slider && control_.enabled && control_.accessible.setValue;
}

void ControlView::press() {
    if (!isOperable() || !isPressed(role()))
        return;
    control_.accessible.press ? control_.accessible.press() : control_.Click();
}

void ControlView::setValue(double value) {
    if (!isOperable() || role() != controls::Role::Slider)
        return;
    control_.accessible.setValue(std::clamp(value, 0.0, std::max(0.0, control_.accessible.most())));
    tellValue();
}

void ControlView::followAccessible() {
    const bool operable = isOperable();
    // A view with a focus of its own, such as the credits, keeps it.
    if (operable != (focusPolicy() == Qt::TabFocus))
        setFocusPolicy(operable ? Qt::TabFocus : Qt::NoFocus);
    if (!QAccessible::isActive() || role() == controls::Role::Text || role() == controls::Role::Decoration)
        return;
    const controls::Accessible& now = control_.accessible;
    if (const QString name = spokenName(); name != told_.name) {
        told_.name = name;
        tell(QAccessibleEvent(this, QAccessible::NameChanged));
    }
    if (now.on != told_.on || operable != told_.operable) {
        QAccessible::State changed;
        changed.checked = now.on != told_.on;
        changed.disabled = operable != told_.operable;
        told_.on = now.on;
        told_.operable = operable;
        tell(QAccessibleStateChangeEvent(this, changed));
    }
    if (role() == controls::Role::Slider && !now.advances && now.value() != told_.value)
        tellValue();
}

void ControlView::tellValue() {
    told_.value = control_.accessible.value();
    if (!QAccessible::isActive())
        return;
    tell(QAccessibleValueChangeEvent(this, told_.value));
    tell(QAccessibleEvent(this, QAccessible::DescriptionChanged));
}

bool ControlView::event(QEvent* event) {
    const bool known = QWidget::event(event);
    if (event->type() == QEvent::Paint && hasFocus()) {
        // Neighbours on the skin overlap by up to two pixels.
        const double inset = std::clamp(height() / ringInset, ringWidth / 2, ringWidth / 2 + 2);
        const QRectF ring = QRectF(rect()).adjusted(inset, inset, -inset, -inset);
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        // White below dark: the ring is seen on dark pictures too.
        for (const QPen& pen : {QPen(Qt::white, 2 * ringWidth), QPen(palette::ink, ringWidth)}) {
            painter.setPen(pen);
            painter.drawRoundedRect(ring, ringCorner, ringCorner);
        }
    }
    return known;
}

void ControlView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    followAccessible(); // routines are set without a notification
}

void ControlView::keyPressEvent(QKeyEvent* event) {
    const bool plain = !(event->modifiers() & ~Qt::KeypadModifier);
    const int key = event->key();
    if (plain && role() == controls::Role::Slider && moveSlider(key))
        return;
    if (plain && isPressed(role())) {
        if (key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter) {
            if (!event->isAutoRepeat())
                press();
            return;
        }
        if (key == Qt::Key_Left || key == Qt::Key_Right) {
            focusNextPrevChild(key == Qt::Key_Right);
            return;
        }
    }
    QWidget::keyPressEvent(event);
}

bool ControlView::moveSlider(int key) {
    const controls::Accessible& slider = accessible();
    const double now = slider.value();
    switch (key) {
    case Qt::Key_Right:
    case Qt::Key_Up:
        setValue(now + slider.step);
        return true;
    case Qt::Key_Left:
    case Qt::Key_Down:
        setValue(now - slider.step);
        return true;
    case Qt::Key_PageUp:
        setValue(now + pageSteps * slider.step);
        return true;
    case Qt::Key_PageDown:
        setValue(now - pageSteps * slider.step);
        return true;
    case Qt::Key_Home:
        setValue(0);
        return true;
    case Qt::Key_End:
        setValue(slider.most());
        return true;
    default:
        return false;
    }
}

} // namespace desktop
