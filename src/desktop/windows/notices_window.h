#pragma once

#include "desktop/views/form_window.h"
#include "safety/what_happened.h"

class QListView;
class QPushButton;

namespace desktop {

// Shows the list of what happened: a column of times, a column of sentences that wrap as needed, and a button
// below.
class NoticesWindow : public FormWindow {
public:
    explicit NoticesWindow(safety::NoticesWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();

    safety::NoticesWindow& form_;
    QPushButton* close_;
};

} // namespace desktop
