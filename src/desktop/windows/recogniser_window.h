#pragma once

#include "desktop/views/form_window.h"
#include "drafts/recogniser_window.h"

class QComboBox;
class QLineEdit;
class QPushButton;

namespace desktop {

// Shows the choice of a recogniser above, its progress below, and the commands at the bottom.
class RecogniserWindow : public FormWindow {
public:
    explicit RecogniserWindow(drafts::RecogniserWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();
    QPoint alignFields(QRect inside);

    drafts::RecogniserWindow& form_;
    QComboBox* recogniser_;
    QLineEdit* command_;
    QPushButton* copy_;
    QPushButton* start_;
    QPushButton* stop_;
    QPushButton* close_;
};

} // namespace desktop
