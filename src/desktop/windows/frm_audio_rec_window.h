#pragma once

#include "desktop/views/form_window.h"
#include "recorder/frm_audio_rec.h"

namespace desktop {

// Shows the recorder window and reports user input.
class FrmAudioRecWindow : public FormWindow {
public:
    explicit FrmAudioRecWindow(recorder::FrmAudioRec& form);
};

} // namespace desktop
