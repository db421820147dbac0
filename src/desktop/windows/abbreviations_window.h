#pragma once

#include "aids/abbreviations_window.h"
#include "desktop/views/form_window.h"

class QLineEdit;
class QPushButton;

namespace desktop {

// Shows the abbreviations: the line to search them, the list, and below it the short form and the text of the
// selected one, which can be changed.
class AbbreviationsWindow : public FormWindow {
public:
    explicit AbbreviationsWindow(aids::AbbreviationsWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();
    // Both return the y coordinate where what lies above may end.
    int alignNotes(const QRect& inside);
    int alignFields(const QRect& inside, int bottom);

    aids::AbbreviationsWindow& form_;
    QLineEdit* text_;
    QPushButton* add_;
    QPushButton* change_;
    QPushButton* delete_;
    QPushButton* close_;
};

} // namespace desktop
