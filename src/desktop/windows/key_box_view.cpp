#include "desktop/windows/key_box_view.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/key_codes.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"

#include <QKeyEvent>
#include <QKeySequence>

namespace desktop {

namespace {

constexpr Qt::KeyboardModifiers modifiers =
    Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;

bool isModifier(int key) {
    return (key >= Qt::Key_Shift && key < Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
           key == Qt::Key_Super_L || key == Qt::Key_Super_R;
}

// Keys that move through a dialog.
bool isOfDialog(const QKeyEvent& event) {
    const int key = event.key();
    return (event.modifiers() & modifiers & ~Qt::ShiftModifier) == Qt::NoModifier &&
           (key == Qt::Key_Tab || key == Qt::Key_Backtab || key == Qt::Key_Escape || key == Qt::Key_Return ||
            key == Qt::Key_Enter);
}

} // namespace

KeyBoxView::KeyBoxView(hands::KeyBox& box, QWidget& parent) : QLineEdit(&parent), box_(box) {
    setObjectName(qstring(box.name));
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setContextMenuPolicy(Qt::NoContextMenu);
    setAcceptDrops(false);
    box.setFocus = [this] { setFocus(); };
    box.observe([this] { follow(); });
    // A screen reader writes the combination.
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) {
        const QKeySequence keys = QKeySequence::fromString(text, QKeySequence::NativeText);
        if (!showing_ && keys.count() == 1 && keys[0].key() != Qt::Key_unknown)
            choose(keys.toString(QKeySequence::PortableText));
    });
    follow();
}

void KeyBoxView::follow() {
    followControl(box_, *this);
    setEnabled(box_.enabled);
    setPlaceholderText(qstring(box_.accessible.name));
    nameInput(*this, qstring(box_.accessible.name));
    show(QKeySequence(qstring(box_.keys)).toString(QKeySequence::NativeText));
}

void KeyBoxView::show(const QString& keys) {
    showing_ = true;
    if (text() != keys)
        setText(keys);
    showing_ = false;
}

void KeyBoxView::choose(const QString& keys) {
    if (desktop::text(keys) == box_.keys.get())
        return follow();
    box_.keys = desktop::text(keys);
    box_.Change();
    follow();
}

bool KeyBoxView::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride && !isOfDialog(static_cast<QKeyEvent&>(*event))) {
        event->accept();
        return true;
    }
    return QLineEdit::event(event);
}

void KeyBoxView::keyPressEvent(QKeyEvent* event) {
    if (isOfDialog(*event))
        return event->ignore();
    const int key = event->key();
    const Qt::KeyboardModifiers held = event->modifiers() & modifiers;
    if (held == Qt::NoModifier && (key == Qt::Key_Backspace || key == Qt::Key_Delete))
        return choose({});
    if (isModifier(key) || key == Qt::Key_unknown || key == 0)
        return;
    const int letter = latinKey(*event);
    choose(QKeySequence(QKeyCombination(held, static_cast<Qt::Key>(letter)))
               .toString(QKeySequence::PortableText));
}

void KeyBoxView::keyReleaseEvent(QKeyEvent* event) {
    if (isOfDialog(*event))
        event->ignore();
}

void KeyBoxView::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    box_.Focus(true);
}

void KeyBoxView::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    box_.Focus(false);
}

} // namespace desktop
