#pragma once

#include "aids/figures_window.h"
#include "desktop/views/form_window.h"

class QPushButton;

namespace desktop {

// Shows the figures of the work: a list with headings, a name and a figure in each row.
class FiguresWindow : public FormWindow {
public:
    explicit FiguresWindow(aids::FiguresWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();

    aids::FiguresWindow& form_;
    QPushButton* close_;
};

} // namespace desktop
