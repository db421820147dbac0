#include "desktop/windows/versions_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"
#include "desktop/views/list_looks.h"

#include <QCheckBox>
#include <QListView>
#include <QPainter>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyledItemDelegate>

namespace desktop {

namespace {

constexpr QSize leastSize(660, 320); // pixels
constexpr int leastList = 270;       // pixels; grows with the window
constexpr int gap = 10;              // pixels between the two texts of a line
constexpr int sheetMargin = 6;       // pixels inside the text sheet

// A row of two lines: document name and time, then reason and size.
class VersionRow : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const override {
        return {0, 2 * QFontMetrics(option.font).height() + 2 * rowPadding + 2};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& row) const override {
        const RowColors colors = paintRowGround(*painter, option, row.row());
        const QStringList parts = row.data().toString().split(u'\t');
        const QRect place = option.rect.adjusted(rowMargin, rowPadding, -rowMargin, -rowPadding);
        painter->setFont(option.font);
        paintLine(*painter, place, Qt::AlignTop, {parts.value(0), parts.value(1)},
                  {colors.text, colors.accent});
        paintLine(*painter, place, Qt::AlignBottom, {parts.value(3), parts.value(2)},
                  {colors.faint, colors.faint});
    }

private:
    // The right text is complete; the left one is shortened to the remaining space.
    static void paintLine(QPainter& painter, QRect place, Qt::Alignment line,
                          const std::pair<QString, QString>& texts, const std::pair<QColor, QColor>& colors) {
        const QFontMetrics metrics = painter.fontMetrics();
        const auto single = static_cast<int>(line) | Qt::TextSingleLine;
        painter.setPen(colors.second);
        painter.drawText(place, single | Qt::AlignRight, texts.second);
        place.setRight(place.right() - metrics.horizontalAdvance(texts.second) - gap);
        painter.setPen(colors.first);
        painter.drawText(place, single | Qt::AlignLeft,
                         metrics.elidedText(texts.first, Qt::ElideMiddle, place.width()));
    }
};

void addSheet(safety::TextSheet& sheet, QWidget& parent) {
    auto* const view = new QPlainTextEdit(&parent);
    view->setObjectName(qstring(sheet.name));
    view->setReadOnly(true);
    view->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    view->setTabChangesFocus(true);
    view->document()->setDocumentMargin(sheetMargin);
    frame(*view);
    const auto follow = [view, &sheet, shown = base::Text()]() mutable {
        view->setAccessibleName(qstring(sheet.accessible.name));
        view->setGeometry(placeOf(sheet));
        if (shown == sheet.text.get())
            return;
        shown = sheet.text;
        view->setPlainText(qstring(sheet.text));
    };
    sheet.observe(follow);
}

} // namespace

VersionsWindow::VersionsWindow(safety::VersionsWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    setMinimumSize(leastSize);
    // In tab order.
    QListView* const list = addView(form.List1, *this);
    framedList(*list);
    list->setItemDelegate(new VersionRow(list));
    new LabelView(form.lblEmpty, this);
    delete_ = addView(form.cmdDeleteAll, *this);
    addSheet(form.txtVersion, *this);
    copy_ = addView(form.cmdCopy, *this);
    open_ = addView(form.cmdOpen, *this);
    keep_ = addView(form.chkKeep, *this);
    new LabelView(form.lblKept, this);
    close_ = addView(form.cmdClose, *this);
    form.lblKept.showsPath = true;
    for (controls::Control* const control : std::initializer_list<controls::Control*>{
             &form.cmdDeleteAll, &form.cmdCopy, &form.cmdOpen, &form.chkKeep, &form.cmdClose})
        control->observe([this] { align(); });
    begin();
}

void VersionsWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

void VersionsWindow::align() {
    const int button = buttonSize(*close_).height();
    const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
    const int listWidth = std::max(leastList, inside.width() * 9 / 20);
    const int bottom = inside.bottom() + 1 - button;
    const int below = bottom - button - 3 * edge / 2; // y coordinate below the two panes
    const QRect list(inside.left(), inside.top(), listWidth, below - edge - inside.top());
    const QRect sheet(QPoint(list.right() + 1 + edge, list.top()), QPoint(inside.right(), list.bottom()));
    putIn(form_.List1, list);
    putIn(form_.lblEmpty, QRect(list.left() + 1, list.top() + 2 * edge, list.width() - 2, button));
    putIn(form_.txtVersion, sheet);
    putIn(form_.cmdDeleteAll, QRect({list.left(), below}, buttonSize(*delete_)));

    const QSize open = buttonSize(*open_);
    const QSize copy = buttonSize(*copy_);
    const int openLeft = inside.right() + 1 - open.width();
    putIn(form_.cmdOpen, QRect({openLeft, below}, open));
    putIn(form_.cmdCopy, QRect({openLeft - edge - copy.width(), below}, copy));

    const QSize close = buttonSize(*close_);
    const int closeLeft = inside.right() + 1 - close.width();
    const int tick = keep_->sizeHint().width();
    const int line = close_->fontMetrics().height();
    putIn(form_.cmdClose, QRect({closeLeft, bottom}, close));
    putIn(form_.chkKeep, QRect(inside.left(), bottom, tick, button));
    putIn(form_.lblKept, QRect(inside.left() + tick + edge, bottom + (button - line) / 2,
                               closeLeft - inside.left() - tick - 2 * edge, line));
}

} // namespace desktop
