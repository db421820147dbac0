#pragma once

#include "safety/quiet_line.h"

#include <QWidget>

namespace desktop {

// Shows the quiet line: a strip above all windows, without a frame, that never takes the focus. Screen
// readers announce it as an alert.
class QuietLineView : public QWidget {
public:
    explicit QuietLineView(safety::QuietLineWindow& form);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void follow();
    // Sizes the window for its text, with lines of a readable length.
    void fit();
    void announce();

    safety::QuietLineWindow& form_;
    QString shown_;
};

} // namespace desktop
