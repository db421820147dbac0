#pragma once

#include "desktop/views/form_window.h"
#include "outside/key_list.h"

class QLineEdit;
class QPushButton;

namespace desktop {

// Shows the list of keys: a search box, a column of keys, a column of commands under headings, and two
// buttons.
class KeysWindow : public FormWindow {
public:
    explicit KeysWindow(outside::KeysWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();

    outside::KeysWindow& form_;
    QLineEdit* search_;
    QPushButton* print_;
    QPushButton* close_;
};

} // namespace desktop
