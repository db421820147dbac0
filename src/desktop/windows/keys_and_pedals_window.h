#pragma once

#include "desktop/views/form_window.h"
#include "hands/keys_and_pedals_window.h"

class QCheckBox;
class QPushButton;

namespace desktop {

class KeyBoxView;

// Shows what is switched on above, then the commands with their keys and pedals, then what changes the
// selected one, and what the user should know at the bottom.
class KeysAndPedalsWindow : public FormWindow {
public:
    explicit KeysAndPedalsWindow(hands::KeysAndPedalsWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();
    // The rows for the key and the pedal, above `bottom`. Returns their upper edge.
    int alignChoices(const QRect& inside, int bottom);

    hands::KeysAndPedalsWindow& form_;
    QCheckBox* keys_;
    KeyBoxView* keyBox_;
    QPushButton* noKey_;
    QPushButton* learn_;
    QPushButton* noPedal_;
    QPushButton* copy_;
    QPushButton* close_;
};

} // namespace desktop
