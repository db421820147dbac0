#pragma once

#include "aids/delivery_window.h"
#include "desktop/views/form_window.h"

class QPushButton;

namespace desktop {

// Shows what the check before delivery found: the list by kinds, and below it the buttons.
class DeliveryWindow : public FormWindow {
public:
    explicit DeliveryWindow(aids::DeliveryWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();

    aids::DeliveryWindow& form_;
    QPushButton* go_;
    QPushButton* hide_;
    QPushButton* again_;
    QPushButton* close_;
};

} // namespace desktop
