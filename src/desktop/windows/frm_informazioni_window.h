#pragma once

#include "desktop/views/form_window.h"
#include "outside/frm_informazioni.h"

namespace desktop {

// Shows the about box.
class FrmInformazioniWindow : public FormWindow {
public:
    explicit FrmInformazioniWindow(outside::FrmInformazioni& form);
};

} // namespace desktop
