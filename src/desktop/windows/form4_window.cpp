#include "desktop/windows/form4_window.h"

#include "desktop/qt/conversions.h"
#include "desktop/views/control_views.h"
#include "desktop/views/input_views.h"

#include <QPushButton>
#include <QVBoxLayout>

namespace desktop {

Form4Window::Form4Window(dictation::Form4& form)
    : FormWindow(form, Size::Fixed, Qt::Dialog | Qt::WindowCloseButtonHint), form_(form) {
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    auto* const ground = new Ground(this);
    ground->setFixedSize(pixels(dictation::Form4::clientWidth), pixels(dictation::Form4::clientHeight));
    layout->addWidget(ground);
    new PictureView(form.Image1, ground);
    new LabelView(form.Label1, ground);
    addView(form.Text1, *ground);
    // In tab order. Enter presses the focused button, or the first one if no button has the focus.
    for (controls::CommandButton* const button : {&form.Command1, &form.Command2})
        addView(*button, *ground)
            ->setAutoDefault(false); // otherwise the default outline would move with the focus
    begin();
}

void Form4Window::showEvent(QShowEvent* event) {
    FormWindow::showEvent(event);
    form_.Text1.setFocus();
}

} // namespace desktop
