#pragma once

#include "desktop/views/form_window.h"
#include "editor/speakers_window.h"

class QLineEdit;
class QPushButton;

namespace desktop {

// Shows the speakers: the list with their keys and the number of their paragraphs, and below it the name of
// the selected one, which can be changed.
class SpeakersWindow : public FormWindow {
public:
    explicit SpeakersWindow(editor::SpeakersWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();

    editor::SpeakersWindow& form_;
    QLineEdit* name_;
    QPushButton* rename_;
    QPushButton* close_;
};

} // namespace desktop
