// Capture on PortAudio.
#pragma once

#include "platform/wave_input.h"
#include "portaudio_device.h"

#include <QObject>
#include <deque>

namespace desktop {

// The queue of buffers, which the default input device fills. To be used on the thread of the Qt event loop
// that it was made on.
class PortAudioInput final : public QObject, public platform::WaveInput {
public:
    Result open(const platform::WaveFormat& format) override;
    void close() override;
    Result prepareHeader(platform::WaveBuffer& buffer) override;
    Result unprepareHeader(platform::WaveBuffer& buffer) override;
    Result addBuffer(platform::WaveBuffer& buffer) override;
    Result start() override;
    Result stop() override;
    Result reset() override;
    base::Text errorText(Result result) const override;

    // How often sound was lost since the device was opened.
    int overflows() const { return device_ ? device_->overflows() : 0; }

private:
    // Sound has arrived. Called once for all that arrives until then.
    void schedule();
    void fill();
    void done(platform::WaveBuffer& buffer);

    std::unique_ptr<PortAudioDevice> device_; // none while it is closed
    std::deque<platform::WaveBuffer*> queue_;
    std::atomic_bool scheduled_ = false;
    base::Text errorText_;
};

} // namespace desktop
