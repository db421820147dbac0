#include "desktop/windows/delivery_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"
#include "desktop/views/list_row.h"

#include <QListView>
#include <QPainter>
#include <QPushButton>

namespace desktop {

namespace {

constexpr int leastHeight = 260; // pixels

// A row: what stands before the finding, the finding in bold, and what stands after it; or a heading.
class FindingRow : public ListRow {
public:
    using ListRow::ListRow;

protected:
    bool isHeading(const QStringList& parts) const override { return parts.size() == 2; }
    void paintParts(QPainter& painter, QRect place, const QStringList& parts,
                    const RowColors& colors) const override {
        const QFont plain = painter.font();
        QFont bold = plain;
        bold.setBold(true);
        const auto draw = [&](const QFont& font, const QColor& color, const QString& text) {
            painter.setFont(font);
            painter.setPen(color);
            const QString shown = painter.fontMetrics().elidedText(text, Qt::ElideRight, place.width());
            painter.drawText(place, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextDontClip, shown);
            place.setLeft(place.left() + painter.fontMetrics().horizontalAdvance(shown));
        };
        draw(plain, colors.faint, parts.value(0));
        draw(bold, colors.text, parts.value(1));
        draw(plain, colors.faint, parts.value(2));
    }
};

} // namespace

DeliveryWindow::DeliveryWindow(aids::DeliveryWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    // In tab order.
    QListView* const list = addView(form.List1, *this);
    framedList(*list);
    list->setUniformItemSizes(false);
    list->setItemDelegate(new FindingRow(list));
    new LabelView(form.lblState, this);
    go_ = addView(form.cmdGo, *this);
    hide_ = addView(form.cmdHide, *this);
    again_ = addView(form.cmdAgain, *this);
    close_ = addView(form.cmdClose, *this);
    for (controls::Control* const control : std::initializer_list<controls::Control*>{
             &form.cmdGo, &form.cmdHide, &form.cmdAgain, &form.cmdClose})
        control->observe([this] { align(); });
    begin();
}

void DeliveryWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

void DeliveryWindow::align() {
    int widths = edge;
    for (const QPushButton* const button : {go_, hide_, again_, close_})
        widths += buttonSize(*button).width() + edge;
    setMinimumSize(widths, leastHeight);
    const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
    const int height = buttonSize(*close_).height();
    const int bottom = inside.bottom() + 1 - height;
    int left = inside.left();
    const std::pair<controls::CommandButton&, const QPushButton*> buttons[] = {
        {form_.cmdGo, go_}, {form_.cmdHide, hide_}, {form_.cmdAgain, again_}};
    for (const auto& [button, view] : buttons) {
        putIn(button, QRect({left, bottom}, buttonSize(*view)));
        left += buttonSize(*view).width() + edge;
    }
    const QSize close = buttonSize(*close_);
    putIn(form_.cmdClose, QRect({inside.right() + 1 - close.width(), bottom}, close));
    const int letters = fontMetrics().height();
    const int state = bottom - edge - letters;
    putIn(form_.lblState, QRect(inside.left(), state, inside.width(), letters));
    putIn(form_.List1, QRect(inside.left(), inside.top(), inside.width(), state - edge - inside.top()));
}

} // namespace desktop
