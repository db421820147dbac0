#pragma once

#include "safety/quiet_line.h"

#include <QWidget>

namespace desktop {

// Shows the quiet line: a strip above all windows, which the window manager neither frames nor gives the
// keyboard, and which a screen reader announces as an alert.
class QuietLineView : public QWidget {
public:
    explicit QuietLineView(safety::QuietLineWindow& form);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void follow();
    // The size that the text takes, in lines no longer than can be read with ease.
    void fit();
    void announce();

    safety::QuietLineWindow& form_;
    QString shown_;
};

} // namespace desktop
