#include "desktop/windows/quiet_line_view.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"
#include "desktop/views/list_looks.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QMouseEvent>
#include <QPainter>

namespace desktop {

namespace {

constexpr int longestLine = 520; // pixels
constexpr int bar = 4;           // pixels of the coloured bar on the left
constexpr int beside = 12;       // pixels between text and edges, left and right
constexpr int above = 8;         // pixels above and below the text
constexpr QColor rim(0x9F, 0xC6, 0xCA);
constexpr int lineFlow = Qt::AlignLeft | Qt::AlignVCenter | Qt::TextWordWrap;

// Qt's default role, window, would be announced as a window to which the user has switched.
QAccessibleInterface* alertOf(const QString&, QObject* object) {
    auto* const view = dynamic_cast<QuietLineView*>(object);
    return view ? new QAccessibleWidget(view, QAccessible::AlertMessage) : nullptr;
}

} // namespace

QuietLineView::QuietLineView(safety::QuietLineWindow& form)
    : QWidget(nullptr, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                           Qt::WindowDoesNotAcceptFocus),
      form_(form) {
    setObjectName(qstring(form.name));
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_X11DoNotAcceptFocus);
    setFocusPolicy(Qt::NoFocus);
    QAccessible::installFactory(&alertOf);
    form_.observe([this] { follow(); });
    follow();
}

void QuietLineView::follow() {
    if (const QString caption = qstring(form_.caption); caption != shown_) {
        shown_ = caption;
        setWindowTitle(caption);
        setAccessibleName(caption);
        fit();
        update();
        if (isVisible())
            announce();
    }
    setGeometry(placeOf(form_));
    if (isHidden() == form_.visible) {
        setVisible(form_.visible);
        if (form_.visible)
            announce();
    }
}

void QuietLineView::fit() {
    const QSize text =
        fontMetrics().boundingRect(QRect(0, 0, longestLine, 0), lineFlow, breakable(shown_)).size();
    form_.width = twips(text.width() + bar + 2 * beside);
    form_.height = twips(text.height() + 2 * above);
    form_.Resize();
}

void QuietLineView::announce() {
    // Some screen readers wait for one event, some for the other.
    for (const QAccessible::Event event : {QAccessible::ObjectShow, QAccessible::Alert}) {
        QAccessibleEvent told(this, event);
        QAccessible::updateAccessibility(&told);
    }
}

void QuietLineView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(rect(), rim);
    painter.fillRect(rect().adjusted(1, 1, -1, -1), palette::ground);
    painter.fillRect(QRect(0, 0, bar, height()), palette::teal);
    painter.setPen(palette().color(QPalette::WindowText));
    painter.drawText(rect().adjusted(bar + beside, above, -beside, -above), lineFlow, breakable(shown_));
}

void QuietLineView::mouseReleaseEvent(QMouseEvent* event) {
    if (rect().contains(event->position().toPoint()))
        form_.Click();
}

} // namespace desktop
