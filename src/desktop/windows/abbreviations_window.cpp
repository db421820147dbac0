#include "desktop/windows/abbreviations_window.h"

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

constexpr QSize leastSize(460, 360); // pixels
constexpr int shortColumn = 120;     // pixels

// A row: the short form and the text.
class AbbreviationRow : public ListRow {
public:
    using ListRow::ListRow;

protected:
    void paintParts(QPainter& painter, QRect place, const QStringList& parts,
                    const RowColors& colors) const override {
        const QFontMetrics metrics = painter.fontMetrics();
        const auto write = [&](const QString& text, const QColor& color, int width) {
            painter.setPen(color);
            painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                             metrics.elidedText(text, Qt::ElideRight, width));
        };
        write(parts.value(0), colors.accent, shortColumn - rowMargin);
        place.adjust(shortColumn, 0, 0, 0);
        write(parts.value(1), colors.text, place.width());
    }
};

} // namespace

AbbreviationsWindow::AbbreviationsWindow(aids::AbbreviationsWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    setMinimumSize(leastSize);
    // In tab order.
    new LabelView(form.lblSearch, this);
    addView(form.txtSearch, *this);
    QListView* const list = addView(form.List1, *this);
    framedList(*list);
    list->setItemDelegate(new AbbreviationRow(list));
    for (controls::Label* const label : {&form.lblEmpty, &form.lblShort, &form.lblText})
        new LabelView(*label, this);
    addView(form.txtShort, *this);
    text_ = addView(form.txtText, *this);
    add_ = addView(form.cmdAdd, *this);
    change_ = addView(form.cmdChange, *this);
    delete_ = addView(form.cmdDelete, *this);
    new LabelView(form.lblFault, this);
    new LabelView(form.lblHint, this);
    close_ = addView(form.cmdClose, *this);
    for (controls::Control* const control : std::initializer_list<controls::Control*>{
             &form.lblSearch, &form.lblShort, &form.lblText, &form.cmdAdd, &form.cmdChange, &form.cmdDelete,
             &form.lblHint, &form.lblFault, &form.cmdClose})
        control->observe([this] { align(); });
    begin();
}

void AbbreviationsWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

int AbbreviationsWindow::alignNotes(const QRect& inside) {
    const QSize close = buttonSize(*close_);
    const auto heightOf = [&](const controls::Label& label, int width) {
        return label.caption->empty() ? 0
                                      : fontMetrics()
                                            .boundingRect(0, 0, width, 10 * fontMetrics().height(),
                                                          Qt::TextWordWrap, qstring(label.caption))
                                            .height();
    };
    const int width = inside.width() - close.width() - edge;
    const int hint = heightOf(form_.lblHint, width);
    const int last = std::max(hint, close.height());
    const int top = inside.bottom() + 1 - last;
    putIn(form_.lblHint, QRect(inside.left(), top + (last - hint) / 2, width, hint));
    putIn(form_.cmdClose,
          QRect({inside.right() + 1 - close.width(), inside.bottom() + 1 - close.height()}, close));
    const int fault = heightOf(form_.lblFault, inside.width());
    const int above = fault == 0 ? 0 : fault + edge;
    putIn(form_.lblFault, QRect(inside.left(), top - above, inside.width(), fault));
    return top - above - edge;
}

int AbbreviationsWindow::alignFields(const QRect& inside, int bottom) {
    const int buttons = add_->sizeHint().height();
    int right = inside.right() + 1;
    for (const auto& [button, control] :
         {std::pair{delete_, &form_.cmdDelete}, {change_, &form_.cmdChange}, {add_, &form_.cmdAdd}}) {
        const QSize size = buttonSize(*button);
        putIn(*control, QRect({right - size.width(), bottom - size.height()}, size));
        right -= size.width() + edge;
    }
    const int letters = fontMetrics().height();
    const int line = text_->sizeHint().height();
    const int row = bottom - std::max(buttons, buttonSize(*add_).height()) - edge - line;
    const auto labelWidth = [this](const controls::Label& label) {
        return fontMetrics().horizontalAdvance(qstring(label.caption)) + 2;
    };
    int left = inside.left();
    const auto place = [&](controls::Control& control, int width, int height) {
        putIn(control, QRect(left, row + (line - height) / 2, width, height));
        left += width + edge;
    };
    place(form_.lblShort, labelWidth(form_.lblShort), letters);
    place(form_.txtShort, shortColumn - edge, line);
    place(form_.lblText, labelWidth(form_.lblText), letters);
    place(form_.txtText, inside.right() + 1 - left, line);
    return row - edge;
}

void AbbreviationsWindow::align() {
    const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
    const int bottom = alignFields(inside, alignNotes(inside));
    const int letters = fontMetrics().height();
    const int line = text_->sizeHint().height();
    const int label = fontMetrics().horizontalAdvance(qstring(form_.lblSearch.caption)) + 2;
    putIn(form_.lblSearch, QRect(inside.left(), inside.top() + (line - letters) / 2, label, letters));
    putIn(form_.txtSearch,
          QRect(inside.left() + label + edge, inside.top(), inside.width() - label - edge, line));
    const int top = inside.top() + line + edge;
    putIn(form_.List1, QRect(inside.left(), top, inside.width(), bottom - top));
    putIn(form_.lblEmpty,
          QRect(inside.left() + edge, top + 2 * edge, inside.width() - 2 * edge, 2 * letters));
}

} // namespace desktop
