#include "desktop/views/list_looks.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"

#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QRegularExpression>
#include <QStyleOptionViewItem>

namespace desktop {

namespace {

constexpr QSize leastButton(92, 26); // pixels
constexpr int besideCaption = 14;    // pixels on each side of the caption

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
