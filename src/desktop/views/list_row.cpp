#include "desktop/views/list_row.h"

#include <QPainter>

namespace desktop {

namespace {

constexpr int spaceAbove = 8; // pixels above a heading

QStringList partsOf(const QModelIndex& row) {
    return row.data().toString().split(u'\t');
}

} // namespace

QSize ListRow::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& row) const {
    const int height = QFontMetrics(option.font).height() + 2 * rowPadding;
    return {0, isHeading(partsOf(row)) ? height + spaceAbove : height};
}

void ListRow::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& row) const {
    const QStringList parts = partsOf(row);
    const QRect place = option.rect.adjusted(rowMargin, rowPadding, -rowMargin, -rowPadding);
    painter->setFont(option.font);
    if (!isHeading(parts))
        return paintParts(*painter, place, parts, paintRowGround(*painter, option, row.row()));
    QFont bold = option.font;
    bold.setBold(true);
    painter->setFont(bold);
    painter->setPen(option.palette.color(QPalette::Highlight));
    painter->drawText(place, Qt::AlignLeft | Qt::AlignBottom, parts.value(1));
}

} // namespace desktop
