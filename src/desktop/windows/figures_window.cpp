#include "desktop/windows/figures_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"
#include "desktop/views/list_looks.h"

#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>

namespace desktop {

namespace {

constexpr QSize leastSize(320, 240); // pixels

// A heading, or a name and its figure.
class FigureRow : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {0, QFontMetrics(option.font).height() + 2 * rowPadding};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& row) const override {
        const RowColors colors = paintRowGround(*painter, option, 0);
        const QStringList parts = row.data().toString().split(u'\t');
        QRect place = option.rect.adjusted(rowMargin, rowPadding, -rowMargin, -rowPadding);
        const bool isHeading = parts.size() < 2;
        QFont font = option.font;
        font.setBold(isHeading);
        painter->setFont(font);
        const QFontMetrics metrics = painter->fontMetrics();
        painter->setPen(colors.text);
        painter->drawText(place, Qt::AlignRight | Qt::AlignVCenter, parts.value(1));
        place.adjust(isHeading ? 0 : rowMargin, 0, -metrics.horizontalAdvance(parts.value(1)) - rowMargin, 0);
        painter->setPen(isHeading ? colors.accent : colors.text);
        painter->drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                          metrics.elidedText(parts.value(0), Qt::ElideRight, place.width()));
    }
};

} // namespace

FiguresWindow::FiguresWindow(aids::FiguresWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    setMinimumSize(leastSize);
    // In tab order.
    QListView* const list = addView(form.List1, *this);
    framedList(*list);
    list->setItemDelegate(new FigureRow(list));
    new LabelView(form.lblKept, this);
    close_ = addView(form.cmdClose, *this);
    form.lblKept.observe([this] { align(); });
    form.cmdClose.observe([this] { align(); });
    begin();
}

void FiguresWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

void FiguresWindow::align() {
    const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
    const QSize close = buttonSize(*close_);
    const int letters = fontMetrics().height();
    const int top = inside.bottom() + 1 - close.height();
    putIn(form_.cmdClose, QRect({inside.right() + 1 - close.width(), top}, close));
    putIn(form_.lblKept, QRect(inside.left(), top + (close.height() - letters) / 2,
                               inside.width() - close.width() - edge, letters));
    putIn(form_.List1, QRect(inside.left(), inside.top(), inside.width(), top - edge - inside.top()));
}

} // namespace desktop
