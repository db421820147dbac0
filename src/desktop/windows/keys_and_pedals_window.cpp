#include "desktop/windows/keys_and_pedals_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"
#include "desktop/views/list_row.h"
#include "desktop/windows/key_box_view.h"

#include <QCheckBox>
#include <QListView>
#include <QPainter>
#include <QPushButton>

namespace desktop {

namespace {

constexpr QSize leastSize(480, 420); // pixels
constexpr int mostLines = 9;         // of the state
constexpr double keyColumn = 0.37;   // of a row's width, from the left
constexpr double pedalColumn = 0.62; // likewise

// A row: the command, its key, its pedals.
class HandRow : public ListRow {
public:
    using ListRow::ListRow;

protected:
    void paintParts(QPainter& painter, QRect place, const QStringList& parts,
                    const RowColors& colors) const override {
        const int key = place.left() + static_cast<int>(place.width() * keyColumn);
        const int pedal = place.left() + static_cast<int>(place.width() * pedalColumn);
        const auto text = [&](int left, int right, const QString& what, const QColor& color) {
            const QRect part(left, place.top(), right - left - rowMargin, place.height());
            painter.setPen(color);
            painter.drawText(part, Qt::AlignLeft | Qt::AlignVCenter,
                             painter.fontMetrics().elidedText(what, Qt::ElideRight, part.width()));
        };
        text(place.left(), key, parts.value(0), colors.text);
        if (!parts.value(1).isEmpty())
            paintKeyCap(painter, QRect(key, place.top(), pedal - key, place.height()), parts.value(1),
                        colors);
        text(pedal, place.right() + 1 + rowMargin, parts.value(2), colors.accent);
    }
};

} // namespace

KeysAndPedalsWindow::KeysAndPedalsWindow(hands::KeysAndPedalsWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    setMinimumSize(leastSize);
    // In tab order.
    keys_ = addView(form.chkKeys, *this);
    addView(form.chkPedals, *this);
    addView(form.chkPanels, *this);
    QListView* const list = addView(form.List1, *this);
    framedList(*list);
    list->setItemDelegate(new HandRow(list));
    new LabelView(form.lblKey, this);
    keyBox_ = new KeyBoxView(form.keyBox, *this);
    noKey_ = addView(form.cmdNoKey, *this);
    new LabelView(form.lblPedal, this);
    learn_ = addView(form.cmdLearn, *this);
    noPedal_ = addView(form.cmdNoPedal, *this);
    new LabelView(form.lblState, this);
    copy_ = addView(form.cmdCopy, *this);
    close_ = addView(form.cmdClose, *this);
    for (controls::Control* const control : std::initializer_list<controls::Control*>{
             &form.chkKeys, &form.lblKey, &form.cmdNoKey, &form.lblPedal, &form.cmdLearn, &form.cmdNoPedal,
             &form.lblState, &form.cmdCopy, &form.cmdClose})
        control->observe([this] { align(); });
    begin();
}

void KeysAndPedalsWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

int KeysAndPedalsWindow::alignChoices(const QRect& inside, int bottom) {
    const QFontMetrics metrics = fontMetrics();
    const auto widthOf = [&](const controls::Label& label) {
        return metrics.size(Qt::TextShowMnemonic, qstring(label.caption)).width() + 2;
    };
    const int label = std::max(widthOf(form_.lblKey), widthOf(form_.lblPedal));
    const int left = inside.left() + label + edge;
    const int line = std::max(keyBox_->sizeHint().height(), buttonSize(*noKey_).height());
    const int lasts = std::max(buttonSize(*noKey_).width(), buttonSize(*noPedal_).width());
    const int last = inside.right() + 1 - lasts;
    const auto row = [&](int top, controls::Label& name, controls::Control& middle,
                         controls::Control& button) {
        putIn(name, QRect(inside.left(), top + (line - metrics.height()) / 2, label, metrics.height()));
        putIn(middle, QRect(left, top, last - edge - left, line));
        putIn(button, QRect(last, top, lasts, line));
    };
    const int pedals = bottom - line;
    const int keys = pedals - edge / 2 - line;
    row(keys, form_.lblKey, form_.keyBox, form_.cmdNoKey);
    row(pedals, form_.lblPedal, form_.cmdLearn, form_.cmdNoPedal);
    return keys;
}

void KeysAndPedalsWindow::align() {
    const QRect inside = rect().adjusted(edge, edge, -edge, -edge);
    const QFontMetrics metrics = fontMetrics();
    const int box = std::max(keys_->sizeHint().height(), metrics.height() + 6);
    int top = inside.top();
    for (controls::CheckBox* const each : {&form_.chkKeys, &form_.chkPedals, &form_.chkPanels}) {
        putIn(*each, QRect(inside.left(), top, inside.width(), box));
        top += box;
    }
    top += edge / 2;

    const QSize close = buttonSize(*close_);
    int bottom = inside.bottom() + 1 - close.height();
    putIn(form_.cmdClose, QRect({inside.right() + 1 - close.width(), bottom}, close));
    putIn(form_.cmdCopy, QRect({inside.left(), bottom}, buttonSize(*copy_)));
    bottom -= edge;
    if (!form_.lblState.caption->empty()) {
        const int lines = metrics
                              .boundingRect(QRect(0, 0, inside.width(), 0), Qt::TextWordWrap,
                                            qstring(form_.lblState.caption))
                              .height();
        const int height = std::min(lines, mostLines * metrics.height()) + 2;
        putIn(form_.lblState, QRect(inside.left(), bottom - height, inside.width(), height));
        bottom -= height + edge;
    }
    bottom = alignChoices(inside, bottom) - edge;
    putIn(form_.List1, QRect(inside.left(), top, inside.width(), std::max(bottom - top, 0)));
}

} // namespace desktop
