#include "desktop/windows/speakers_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"
#include "desktop/views/list_row.h"

#include <QKeySequence>
#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>

namespace desktop {

namespace {

constexpr QSize leastSize(380, 260); // pixels
constexpr int keyColumn = 60;        // pixels

// A row: the key, the name, the number of paragraphs.
class SpeakerRow : public ListRow {
public:
    using ListRow::ListRow;

protected:
    void paintParts(QPainter& painter, QRect place, const QStringList& parts,
                    const RowColors& colors) const override {
        painter.setPen(colors.faint);
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                         QKeySequence(parts.value(0)).toString(QKeySequence::NativeText));
        painter.setPen(colors.accent);
        painter.drawText(place, Qt::AlignRight | Qt::AlignVCenter, parts.value(2));
        place.adjust(keyColumn, 0, -painter.fontMetrics().horizontalAdvance(parts.value(2)) - rowMargin, 0);
        painter.setPen(colors.text);
        painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(parts.value(1), Qt::ElideRight, place.width()));
    }
};

} // namespace

SpeakersWindow::SpeakersWindow(editor::SpeakersWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    setMinimumSize(leastSize);
    // In tab order.
    QListView* const list = addView(form.List1, *this);
    framedList(*list);
    list->setItemDelegate(new SpeakerRow(list));
    new LabelView(form.lblEmpty, this);
    new LabelView(form.lblName, this);
    name_ = addView(form.txtName, *this);
    rename_ = addView(form.cmdRename, *this);
    new LabelView(form.lblKeys, this);
    close_ = addView(form.cmdClose, *this);
    for (controls::Control* const control : std::initializer_list<controls::Control*>{
             &form.lblName, &form.cmdRename, &form.lblKeys, &form.cmdClose})
        control->observe([this] { align(); });
    begin();
}

void SpeakersWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

void SpeakersWindow::align() {
    const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
    const QSize close = buttonSize(*close_);
    const QSize rename = buttonSize(*rename_);
    const int letters = fontMetrics().height();
    const int line = std::max(name_->sizeHint().height(), rename.height());
    const int label = fontMetrics().horizontalAdvance(qstring(form_.lblName.caption)) + 2;

    // The keys' label may need two lines.
    const int keysWidth = inside.width() - close.width() - edge;
    const int keysHeight =
        fontMetrics()
            .boundingRect(0, 0, keysWidth, 10 * letters, Qt::TextWordWrap, qstring(form_.lblKeys.caption))
            .height();
    const int last = std::max(close.height(), keysHeight);
    const int bottom = inside.bottom() + 1 - last;
    putIn(form_.lblKeys, QRect(inside.left(), bottom + (last - keysHeight) / 2, keysWidth, keysHeight));
    putIn(form_.cmdClose,
          QRect({inside.right() + 1 - close.width(), inside.bottom() + 1 - close.height()}, close));

    const int row = bottom - edge - line;
    const int nameLeft = inside.left() + label + edge;
    const int renameLeft = inside.right() + 1 - rename.width();
    putIn(form_.lblName, QRect(inside.left(), row + (line - letters) / 2, label, letters));
    putIn(form_.txtName, QRect(nameLeft, row, renameLeft - edge - nameLeft, line));
    putIn(form_.cmdRename, QRect({renameLeft, row + (line - rename.height()) / 2}, rename));

    const QRect list(inside.left(), inside.top(), inside.width(), row - edge - inside.top());
    putIn(form_.List1, list);
    putIn(form_.lblEmpty,
          QRect(list.left() + edge, list.top() + 2 * edge, list.width() - 2 * edge, 3 * letters));
}

} // namespace desktop
