#include "desktop/windows/frm_find_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/keyboard_order.h"
#include "desktop/qt/palette.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <limits>

namespace desktop {

namespace {
constexpr double corner = 4;      // pixels
constexpr int captionIndent = 10; // pixels from the frame's left to its caption
constexpr int captionGap = 5;     // pixels of the line left out on each side of the caption

// A rounded frame with a caption on its upper edge.
class FrameView : public ControlView {
public:
    FrameView(controls::Label& frame, QWidget* parent) : ControlView(frame, parent), frame_(frame) {}

    QString spokenName() const override { return text(); }

protected:
    controls::Role kind() const override { return controls::Role::Text; }
    void follow() override {
        ControlView::follow();
        update();
    }
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QFontMetrics metrics(font());
        const QString caption = text();
        const QRect letters(captionIndent, 0, metrics.horizontalAdvance(caption), metrics.height());
        painter.setClipRegion(QRegion(rect()) - letters.adjusted(-captionGap, 0, captionGap, 0));
        painter.setPen(palette::rule);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, letters.center().y() + 0.5, -0.5, -0.5), corner,
                                corner);
        painter.setClipping(false);
        painter.setPen(palette().color(QPalette::WindowText));
        painter.drawText(letters, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextHideMnemonic,
                         qstring(frame_.caption));
    }

private:
    QString text() const { return qstring(base::TextView(base::TogliAmp(frame_.caption.get()))); }

    controls::Label& frame_;
};

// Adds a box without a length limit, whose text is selected when it gets the focus.
void addBox(controls::ComboBox& box, QWidget& parent) {
    QComboBox* const view = addView(box, parent);
    view->lineEdit()->setMaxLength(std::numeric_limits<int>::max());
    box.setFocus = [view] {
        giveKeyboard(*view->window());
        view->setFocus();
        view->lineEdit()->selectAll();
    };
}

} // namespace

FrmFindWindow::FrmFindWindow(editor::FrmFind& form)
    : FormWindow(form, Size::Fixed, Qt::WindowCloseButtonHint) {
    setWindowFlag(Qt::Dialog);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* const surface = new Ground(this);
    surface->setFixedSize(pixels(editor::FrmFind::clientWidth), pixels(editor::FrmFind::clientHeight));
    layout->addWidget(surface);
    // In tab order.
    new LabelView(form.lblFind, surface);
    addBox(form.cboFind, *surface);
    new LabelView(form.lblReplace, surface);
    addBox(form.cboReplace, *surface);
    new FrameView(form.Frame1, surface);
    addView(form.chkWholeWord, *surface);
    addView(form.chkMatchCase, *surface);
    for (controls::CommandButton* button :
         {&form.cmdFind, &form.cmdReplace, &form.cmdReplaceAll, &form.cmdCancel})
        addView(*button, *surface);
    begin();
}

} // namespace desktop
