#pragma once

#include "bookmarks/form3.h"
#include "desktop/views/form_window.h"

namespace desktop {

// Shows the window of the bookmarks: its rows have a column of times and one of names.
class Form3Window : public FormWindow {
public:
    explicit Form3Window(bookmarks::Form3& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    // The places of the data are made for one frame; here the edges are those of the window, whatever frame
    // it has, and a low window has its buttons in the middle of the room below the list.
    void align();

    bookmarks::Form3& form_;
    QWidget* list_;
    QWidget* add_;
    QWidget* delete_;
};

} // namespace desktop
