#include "desktop/windows/recogniser_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"
#include "desktop/views/list_looks.h"

#include <QComboBox>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <cmath>

namespace desktop {

namespace {

constexpr QSize leastSize(460, 300); // pixels
constexpr int steps = 1000;          // of the bar
constexpr int barHeight = 14;        // pixels
constexpr int mostLines = 4;         // of a wrapped text

void addBar(drafts::ProgressBar& bar, QWidget& parent) {
    auto* const view = new QProgressBar(&parent);
    view->setObjectName(qstring(bar.name));
    view->setTextVisible(false);
    bar.observe([view, &bar] {
        view->setAccessibleName(qstring(bar.accessible.name));
        view->setGeometry(pixels(bar.left), pixels(bar.top), pixels(bar.width), pixels(bar.height));
        view->setVisible(bar.visible);
        view->setRange(0, bar.share < 0 ? 0 : steps);
        view->setValue(static_cast<int>(std::lround(bar.share * steps)));
    });
}

// The width that a label's caption needs, without its mnemonic.
int widthOf(const controls::Label& label, const QFontMetrics& metrics) {
    return metrics.size(Qt::TextShowMnemonic, qstring(label.caption)).width() + 2;
}

// The height that a label's caption needs at this width.
int heightOf(const controls::Label& label, int width, const QFontMetrics& metrics) {
    const int lines =
        metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, qstring(label.caption)).height();
    return std::clamp(lines, metrics.height(), mostLines * metrics.height()) + 2;
}

} // namespace

RecogniserWindow::RecogniserWindow(drafts::RecogniserWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    setMinimumSize(leastSize);
    // In tab order.
    new LabelView(form.lblRecording, this);
    new LabelView(form.lblRecogniser, this);
    recogniser_ = addView(form.cboRecogniser, *this);
    new LabelView(form.lblCommand, this);
    command_ = addView(form.txtCommand, *this);
    new LabelView(form.lblHint, this);
    copy_ = addView(form.cmdCopy, *this);
    addBar(form.barProgress, *this);
    new LabelView(form.lblStatus, this);
    start_ = addView(form.cmdStart, *this);
    stop_ = addView(form.cmdStop, *this);
    close_ = addView(form.cmdClose, *this);
    for (controls::Control* const control : std::initializer_list<controls::Control*>{
             &form.lblRecogniser, &form.lblCommand, &form.lblHint, &form.lblStatus, &form.cmdCopy,
             &form.cmdStart, &form.cmdStop, &form.cmdClose})
        control->observe([this] { align(); });
    begin();
}

void RecogniserWindow::resizeEvent(QResizeEvent* event) {
    FormWindow::resizeEvent(event);
    align();
}

// The two fields below each other, each behind its label. Returns the corner below the second field.
QPoint RecogniserWindow::alignFields(QRect inside) {
    const int line = command_->sizeHint().height();
    const int textHeight = fontMetrics().height();
    const int labels =
        std::max(widthOf(form_.lblRecogniser, fontMetrics()), widthOf(form_.lblCommand, fontMetrics()));
    const int left = inside.left() + labels + edge;
    const auto row = [&](int top, controls::Label& label, controls::Control& field, int height) {
        putIn(label, QRect(inside.left(), top + (height - textHeight) / 2, labels, textHeight));
        putIn(field, QRect(left, top, inside.right() + 1 - left, height));
        return top + height + edge;
    };
    const int below = row(inside.top(), form_.lblRecogniser, form_.cboRecogniser,
                          std::max(line, recogniser_->sizeHint().height()));
    return {left, row(below, form_.lblCommand, form_.txtCommand, line)};
}

void RecogniserWindow::align() {
    QRect inside = rect().adjusted(edge, edge, -edge, -edge);
    const QFontMetrics metrics = fontMetrics();
    putIn(form_.lblRecording, QRect(inside.left(), inside.top(), inside.width(), metrics.height()));
    inside.setTop(inside.top() + metrics.height() + edge);
    const QPoint below = alignFields(inside);
    const int width = inside.right() + 1 - below.x();
    const int hint = heightOf(form_.lblHint, width, metrics);
    putIn(form_.lblHint, QRect(below, QSize(width, hint)));
    putIn(form_.cmdCopy, QRect({below.x(), below.y() + hint + edge / 2}, buttonSize(*copy_)));

    const QSize close = buttonSize(*close_);
    const int bottom = inside.bottom() + 1 - close.height();
    const int status = heightOf(form_.lblStatus, inside.width(), metrics);
    const int statusTop = bottom - edge - status;
    putIn(form_.lblStatus, QRect(inside.left(), statusTop, inside.width(), status));
    putIn(form_.barProgress,
          QRect(inside.left(), statusTop - edge / 2 - barHeight, inside.width(), barHeight));
    putIn(form_.cmdClose, QRect({inside.right() + 1 - close.width(), bottom}, close));
    const QSize start = buttonSize(*start_);
    putIn(form_.cmdStart, QRect({inside.left(), bottom}, start));
    putIn(form_.cmdStop, QRect({inside.left() + start.width() + edge, bottom}, buttonSize(*stop_)));
}

} // namespace desktop
