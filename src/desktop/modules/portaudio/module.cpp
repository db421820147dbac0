// Entry point of this module. It is loaded when the recorder opens, because PortAudio pulls in the libraries
// of three sound systems.
#include "portaudio_input.h"

// The caller owns the device. Requires a QApplication.
extern "C" Q_DECL_EXPORT platform::WaveInput* quillmere_wave_input() {
    return new desktop::PortAudioInput;
}
