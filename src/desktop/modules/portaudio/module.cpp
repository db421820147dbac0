// The one entry of this module. It is loaded when the recorder opens: PortAudio brings libraries of three
// sound systems along.
#include "portaudio_input.h"

// The caller owns the device. The Qt application has to exist.
extern "C" Q_DECL_EXPORT platform::WaveInput* quillmere_wave_input() {
    return new desktop::PortAudioInput;
}
