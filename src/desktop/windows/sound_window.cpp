#include "desktop/windows/sound_window.h"

#include "desktop/views/control_views.h"
#include "desktop/views/list_looks.h"
#include "desktop/windows/wave_view.h"

#include <QKeyEvent>

namespace desktop {

namespace {

constexpr QSize leastSize(200, 90); // pixels

} // namespace

SoundWindow::SoundWindow(sound::SoundWindow& form)
    : FormWindow(form, Size::Sizable, Qt::WindowMaximizeButtonHint | Qt::WindowCloseButtonHint), form_(form) {
    setMinimumSize(leastSize);
    setAttribute(Qt::WA_ShowWithoutActivating);
    new WaveView(form.Wave, this);
    new LabelView(form.lblState, this);
    begin();
}

void SoundWindow::resizeEvent(QResizeEvent* event) {
    align(); // before the program is told of the new size
    FormWindow::resizeEvent(event);
}

void SoundWindow::align() {
    putIn(form_.Wave, rect());
    const int letters = fontMetrics().height();
    putIn(form_.lblState, QRect(edge, (height() - 2 * letters) / 2, width() - 2 * edge, 2 * letters));
}

void SoundWindow::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)
        form_.Wave.Zoom(1);
    else if (event->key() == Qt::Key_Minus)
        form_.Wave.Zoom(-1);
    else
        FormWindow::keyPressEvent(event);
}

} // namespace desktop
