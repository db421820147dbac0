#pragma once

#include "aids/abbreviations_window.h"
#include "desktop/views/form_window.h"

class QLineEdit;
class QPushButton;

namespace desktop {

// Shows the abbreviations: a search box, the list, and below it two boxes to edit the selected one.
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
