#include "desktop/windows/notices_window.h"

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

constexpr QSize leastSize(360, 200); // pixels
constexpr int gap = 14;              // pixels between the columns
constexpr int lineFlow = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;

class NoticeRow : public QStyledItemDelegate {
public:
    explicit NoticeRow(QListView& list) : QStyledItemDelegate(&list), list_(list) {}

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex& row) const override {
        const QFontMetrics metrics(list_.font());
        const QString sentence = breakable(row.data().toString().section(u'\t', 1));
        const int room = list_.viewport()->width() - 2 * rowMargin - timeWidth(metrics) - gap;
        return {0, metrics.boundingRect(QRect(0, 0, room, 0), lineFlow, sentence).height() + 2 * rowPadding};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& row) const override {
        const RowColors colors = paintRowGround(*painter, option, row.row());
        const QString text = row.data().toString();
        QRect place = option.rect.adjusted(rowMargin, rowPadding, -rowMargin, -rowPadding);
        painter->setFont(option.font);
        painter->setPen(colors.accent);
        painter->drawText(place, lineFlow, text.section(u'\t', 0, 0));
        place.setLeft(place.left() + timeWidth(QFontMetrics(option.font)) + gap);
        painter->setPen(colors.text);
        painter->drawText(place, lineFlow, breakable(text.section(u'\t', 1)));
    }

private:
    static int timeWidth(const QFontMetrics& metrics) {
        return metrics.horizontalAdvance(QStringLiteral("0000-00-00 00:00"));
    }

    QListView& list_;
};

} // namespace

NoticesWindow::NoticesWindow(safety::NoticesWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    setMinimumSize(leastSize);
    QListView* const list = addView(form.List1, *this);
    framedList(*list);
    list->setUniformItemSizes(false);
    list->setResizeMode(QListView::Adjust);
    list->setItemDelegate(new NoticeRow(*list));
    new LabelView(form.lblEmpty, this);
    close_ = addView(form.cmdClose, *this);
    form.cmdClose.observe([this] { align(); });
    begin();
}

void NoticesWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

void NoticesWindow::align() {
    const QSize button = buttonSize(*close_);
    const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
    const QRect list(inside.topLeft(), QSize(inside.width(), inside.height() - button.height() - edge));
    putIn(form_.List1, list);
    putIn(form_.lblEmpty, QRect(list.left() + 1, list.top() + 2 * edge, list.width() - 2, button.height()));
    putIn(form_.cmdClose,
          QRect(inside.bottomRight() + QPoint(1, 1) - QPoint(button.width(), button.height()), button));
}

} // namespace desktop
