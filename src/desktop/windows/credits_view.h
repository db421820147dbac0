#pragma once

#include "desktop/views/control_views.h"
#include "outside/frm_informazioni.h"

#include <QTimer>

namespace desktop {

// The scrolling credits of the about box. The panel is drawn once for each screen density and then copied to
// its position, on whole device pixels, so that the text stays crisp.
class CreditsView : public ControlView {
public:
    CreditsView(outside::FrmInformazioni& form, QWidget* parent);

    QString spokenName() const override;

protected:
    controls::Role kind() const override { return controls::Role::Text; }
    void paintEvent(QPaintEvent* event) override;

private:
    void followPanel();
    // The y coordinate of the panel's upper edge, in device pixels.
    int panelTop() const;
    QPixmap drawPanel() const;

    outside::FrmInformazioni& form_;
    QPixmap panel_;
    double panelDensity_ = 0; // device pixel ratio that panel_ was drawn for
    int shownTop_;
    QTimer nextFrame_;
};

} // namespace desktop
