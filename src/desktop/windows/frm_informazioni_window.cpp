#include "desktop/windows/frm_informazioni_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/qt/palette.h"
#include "desktop/views/control_views.h"
#include "desktop/windows/credits_view.h"

#include <QMouseEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace desktop {

namespace {

const QColor frameColor(0xCF, 0xE3, 0xE5);
constexpr double frameCorner = 5; // pixels

// The frame around the address and the copyright notice.
class FrameView : public ControlView {
public:
    using ControlView::ControlView;

protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(frameColor);
        painter.setBrush(palette::ground);
        painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), frameCorner, frameCorner);
    }
};

// The client area with all controls on it; reports clicks between the controls.
class AboutSurface : public Ground {
public:
    AboutSurface(outside::FrmInformazioni& form, QWidget* parent) : Ground(parent), form_(form) {
        setObjectName(QStringLiteral("surface"));
        setFixedSize(pixels(outside::FrmInformazioni::clientWidth),
                     pixels(outside::FrmInformazioni::clientHeight));
        form.forEachControl([this](auto& control) { add(control); });
        (new CreditsView(form, this))->setFocus();
    }

protected:
    void mousePressEvent(QMouseEvent*) override {}
    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint()))
            form_.Click();
    }

private:
    // All are owned by their Qt parent; the last one added is on top.
    void add(controls::Control& control) { new FrameView(control, this); }
    void add(controls::Picture& picture) { new PictureView(picture, this); }
    void add(controls::Label& label) { new LabelView(label, this); }

    outside::FrmInformazioni& form_;
};

} // namespace

FrmInformazioniWindow::FrmInformazioniWindow(outside::FrmInformazioni& form)
    : FormWindow(form, Size::Fixed, Qt::WindowCloseButtonHint) {
    QPalette white = palette();
    white.setColor(QPalette::Window, Qt::white);
    setPalette(white);
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(new AboutSurface(form, this));
    begin();
}

} // namespace desktop
