#pragma once

#include "desktop/views/form_window.h"
#include "sound/sound_window.h"

namespace desktop {

// Shows the waveform of the recording, in the whole window.
class SoundWindow : public FormWindow {
public:
    explicit SoundWindow(sound::SoundWindow& form);

protected:
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void align();

    sound::SoundWindow& form_;
};

} // namespace desktop
