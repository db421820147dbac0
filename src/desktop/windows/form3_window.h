#pragma once

#include "bookmarks/form3.h"
#include "desktop/views/form_window.h"

namespace desktop {

// Shows the bookmarks window: each row has a time and a name.
class Form3Window : public FormWindow {
public:
    explicit Form3Window(bookmarks::Form3& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    // Adapts the layout of the data, made for one frame size, to the real size of the window. In a low window
    // the buttons are centred in the space below the list.
    void align();

    bookmarks::Form3& form_;
    QWidget* list_;
    QWidget* add_;
    QWidget* delete_;
};

} // namespace desktop
