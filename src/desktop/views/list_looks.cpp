#include "desktop/views/list_looks.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"

#include <QKeySequence>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleOptionViewItem>

namespace desktop {

namespace {

constexpr QSize leastButton(92, 26); // pixels
constexpr int besideCaption = 14;    // pixels on each side of the caption
constexpr qreal capCorner = 3;       // pixels

} // namespace

RowColors paintRowGround(QPainter& painter, const QStyleOptionViewItem& option, int row) {
    const QPalette& colors = option.palette;
    if (option.state.testFlag(QStyle::State_Selected)) {
        painter.fillRect(option.rect, colors.highlight());
        const QColor light = colors.highlightedText().color();
        return {light, light, light};
    }
    painter.fillRect(option.rect, row % 2 == 1 ? colors.alternateBase() : colors.base());
    return {colors.text().color(), palette::teal, palette::grey};
}

void paintKeyCap(QPainter& painter, const QRect& place, const QString& keys, const RowColors& colors) {
    const QString shown = QKeySequence(keys).toString(QKeySequence::NativeText);
    const int width = painter.fontMetrics().horizontalAdvance(shown) + 2 * rowPadding;
    const QRectF cap(place.left() + 0.5, place.top() - 1.5, width, place.height() + 3);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette::rule);
    painter.drawRoundedRect(cap, capCorner, capCorner);
    painter.setPen(colors.text);
    painter.drawText(cap, Qt::AlignCenter, shown);
    painter.restore();
}

void frame(QFrame& box) {
    box.setFrameStyle(QFrame::Box | QFrame::Plain);
    QPalette framed = box.palette();
    framed.setColor(QPalette::WindowText, palette::rim);
    box.setPalette(framed);
}

void framedList(QListView& list) {
    list.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list.setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    frame(list);
}

QSize buttonSize(const QPushButton& button) {
    const int caption = button.fontMetrics().size(Qt::TextShowMnemonic, button.text()).width();
    return QSize(caption + 2 * besideCaption, 0).expandedTo(leastButton);
}

QString breakable(QString text) {
    // Not behind the "/" that a path begins with.
    static const QRegularExpression inside(QStringLiteral("(?<=[^\\s/])/"));
    return text.replace(inside, QStringLiteral("/\u200B"));
}

void putIn(controls::Control& control, const QRect& place) {
    control.left = twips(place.left());
    control.top = twips(place.top());
    control.width = twips(place.width());
    control.height = twips(place.height());
}

} // namespace desktop
