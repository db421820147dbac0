#pragma once

#include "controls/controls.h"

#include <QObject>

class QWidget;

namespace desktop {

// Gives a view the mouse pointer of its control. The file is read when the mouse first enters the view: the
// start shows two dozen controls with a pointer and needs none of them.
class HoverPointer : public QObject {
public:
    // The view owns this object. The control must outlive the view.
    HoverPointer(const controls::Control& control, QWidget& view);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const controls::Control& control_;
    QWidget& view_;
    base::Text shown_;
    double readFor_ = 0; // the density of the screen that shown_ was read for; 0: not read yet
};

} // namespace desktop
