#pragma once

#include "desktop/views/form_window.h"
#include "safety/versions_window.h"

class QCheckBox;
class QPushButton;

namespace desktop {

// Shows the earlier versions: the list on the left, the text of the selected one on the right, the commands
// for each below it, and the options at the bottom.
class VersionsWindow : public FormWindow {
public:
    explicit VersionsWindow(safety::VersionsWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void align();

    safety::VersionsWindow& form_;
    QPushButton* delete_;
    QPushButton* copy_;
    QPushButton* open_;
    QPushButton* close_;
    QCheckBox* keep_;
};

} // namespace desktop
