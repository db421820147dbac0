#include "desktop/windows/keys_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"
#include "desktop/views/list_row.h"

#include <QLineEdit>
#include <QListView>
#include <QPainter>
#include <QPushButton>

namespace desktop {

namespace {

constexpr QSize leastSize(340, 260); // pixels
constexpr int keyColumn = 120;       // pixels

// A key as it is printed on the user's keyboard, or a heading.
class KeyRow : public ListRow {
public:
    using ListRow::ListRow;

protected:
    bool isHeading(const QStringList& parts) const override { return parts.value(0).isEmpty(); }
    void paintParts(QPainter& painter, QRect place, const QStringList& parts,
                    const RowColors& colors) const override {
        paintKeyCap(painter, place, parts.value(0), colors);
        painter.setPen(colors.text);
        const QRect command = place.adjusted(keyColumn, 0, 0, 0);
        painter.drawText(command, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(parts.value(1), Qt::ElideRight, command.width()));
    }
};

} // namespace

KeysWindow::KeysWindow(outside::KeysWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    setMinimumSize(leastSize);
    // In tab order.
    search_ = addView(form.txtSearch, *this);
    search_->setClearButtonEnabled(true);
    QListView* const list = addView(form.List1, *this);
    framedList(*list);
    list->setUniformItemSizes(false);
    list->setItemDelegate(new KeyRow(list));
    new LabelView(form.lblSearch, this);
    print_ = addView(form.cmdPrint, *this);
    close_ = addView(form.cmdClose, *this);
    for (controls::Control* const control :
         std::initializer_list<controls::Control*>{&form.lblSearch, &form.cmdPrint, &form.cmdClose})
        control->observe([this] { align(); });
    begin();
}

void KeysWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

void KeysWindow::align() {
    const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
    const int line = search_->sizeHint().height();
    const int label = fontMetrics().horizontalAdvance(qstring(form_.lblSearch.caption)) + 2;
    const int textHeight = fontMetrics().height();
    putIn(form_.lblSearch, QRect(inside.left(), inside.top() + (line - textHeight) / 2, label, textHeight));
    putIn(form_.txtSearch,
          QRect(inside.left() + label + edge, inside.top(), inside.width() - label - edge, line));

    const QSize close = buttonSize(*close_);
    const QSize print = buttonSize(*print_);
    const int bottom = inside.bottom() + 1 - close.height();
    putIn(form_.cmdPrint, QRect({inside.left(), bottom}, print));
    putIn(form_.cmdClose, QRect({inside.right() + 1 - close.width(), bottom}, close));
    const int top = inside.top() + line + edge;
    putIn(form_.List1, QRect(inside.left(), top, inside.width(), bottom - edge - top));
}

} // namespace desktop
