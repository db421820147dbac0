#include "desktop/windows/form3_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"
#include "desktop/views/input_views.h"

#include <QAbstractItemView>
#include <QListView>
#include <QPainter>
#include <QPushButton>
#include <QStyledItemDelegate>

namespace desktop {

namespace {

constexpr int rowHeight = 21;    // pixels
constexpr int leastWidth = 160;  // minimum width of the window in pixels: both buttons
constexpr int margin = 7;        // pixels left and right of a text
constexpr int leastGap = 2;      // pixels above and below the buttons
constexpr double buttonGap = 60; // twips between the buttons
constexpr int gap = 14;          // pixels between the columns
constexpr qsizetype timeLength = 8;

// One row: the time in a column of fixed width, then the name, shortened to fit. A row that does not begin
// with a time is shown unchanged.
class BookmarkRow : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QSize sizeHint(const QStyleOptionViewItem&, const QModelIndex&) const override { return {0, rowHeight}; }

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& row) const override {
        const bool chosen = option.state.testFlag(QStyle::State_Selected);
        const QPalette& colors = option.palette;
        painter->fillRect(option.rect, chosen               ? colors.highlight()
                                       : row.row() % 2 == 1 ? colors.alternateBase()
                                                            : colors.base());
        QString name = row.data().toString();
        QRect place = option.rect.adjusted(margin, 0, -margin, 0);
        painter->setFont(option.font);
        const QFontMetrics metrics(option.font);
        if (name.size() >= timeLength && name[2] == u':' && name[5] == u':') {
            painter->setPen(chosen ? colors.highlightedText().color() : palette::teal);
            painter->drawText(place, Qt::AlignVCenter | Qt::TextSingleLine, name.left(timeLength));
            place.setLeft(place.left() + metrics.horizontalAdvance(QStringLiteral("00:00:00")) + gap);
            name = name.mid(timeLength).trimmed();
        }
        painter->setPen(chosen ? colors.highlightedText().color() : colors.text().color());
        name.replace(u'\t', u' ');
        painter->drawText(place, Qt::AlignVCenter | Qt::TextSingleLine,
                          metrics.elidedText(name, Qt::ElideRight, place.width()));
    }
};

} // namespace

Form3Window::Form3Window(bookmarks::Form3& form)
    : FormWindow(form, Size::Sizable, Qt::WindowCloseButtonHint), form_(form) {
    // The window appears while the user types; it must not take the focus.
    setAttribute(Qt::WA_ShowWithoutActivating);
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);
    setMinimumSize(leastWidth,
                   pixels(form.List1.top + form.List1.height) + pixels(form.Command1.height) + 2 * leastGap);

    QListView* const list = addView(form.List1, *this);
    list->setItemDelegate(new BookmarkRow(list));
    list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list->setFrameStyle(QFrame::Box | QFrame::Plain);
    QPalette framed = list->palette();
    framed.setColor(QPalette::WindowText, palette::rim);
    list->setPalette(framed);
    list_ = list;
    add_ = addView(form.Command1, *this);
    delete_ = addView(form.Command2, *this);
    for (controls::Control* const control :
         std::initializer_list<controls::Control*>{&form.List1, &form.Command1, &form.Command2})
        control->observe([this] { align(); });
    begin();
}

void Form3Window::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

void Form3Window::align() {
    const int inside = width() - 2 * list_->x();
    list_->resize(inside, list_->height());
    const int right = list_->x() + inside - margin;
    const int below = list_->y() + list_->height();
    const int top = std::min(pixels(form_.Command1.top), (below + height() - add_->height()) / 2);
    add_->move(right - add_->width(), top);
    delete_->move(add_->x() - delete_->width() - pixels(buttonGap), top);
}

} // namespace desktop
