#pragma once

#include "desktop/views/control_views.h"
#include "outside/frm_informazioni.h"

#include <QTimer>

namespace desktop {

// The well of the about box with the panel of credits that scrolls through it. The panel is drawn once for
// each density of screen and then only laid at its place, on whole pixels of the screen, so that its letters
// stay crisp.
class CreditsView : public ControlView {
public:
    CreditsView(outside::FrmInformazioni& form, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void followPanel();
    // Where the panel's upper edge lies, in pixels of the screen.
    int panelTop() const;
    QPixmap drawPanel() const;

    outside::FrmInformazioni& form_;
    QPixmap panel_;
    double panelDensity_ = 0; // of the screen that it was drawn for
    int shownTop_;
    QTimer nextFrame_;
};

} // namespace desktop
