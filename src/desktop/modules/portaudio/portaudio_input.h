// Capture on PortAudio.
#pragma once

#include "platform/wave_input.h"
#include "portaudio_device.h"

#include <QObject>
#include <QTimer>
#include <condition_variable>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>

namespace desktop {

// The queue of buffers, which the default input device fills. To be used on the thread of the Qt event loop
// that it was made on.
class PortAudioInput final : public QObject, public platform::WaveInput {
public:
    PortAudioInput();
    PortAudioInput(const PortAudioInput&) = delete;
    PortAudioInput& operator=(const PortAudioInput&) = delete;
    ~PortAudioInput() override;

    void open(const platform::WaveFormat& format, std::function<void(Result)> opened) override;
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
    // A device on its way, shared with the thread that opens it. That thread outlives this object where the
    // sound system never answers.
    struct Opening {
        std::mutex mutex;
        std::condition_variable answered;
        PortAudioInput* asker = nullptr;         // none when the answer is not wanted any more
        std::unique_ptr<PortAudioDevice> device; // the answer
    };
    static void openDevice(const std::shared_ptr<Opening>& opening, const platform::WaveFormat& format);
    // The device has answered, or with none has been given up.
    void answer(std::unique_ptr<PortAudioDevice> device);
    void takeAnswer();
    // Nobody waits for the device that is being opened any more.
    void forgetOpening();

    // Sound has arrived. Called once for all that arrives until then.
    void schedule();
    void fill();
    void done(platform::WaveBuffer& buffer);

    std::unique_ptr<PortAudioDevice> device_; // none while it is closed
    std::shared_ptr<Opening> opening_;        // while it is being opened
    std::function<void(Result)> opened_;      // who waits for that
    QTimer givesUp_;
    std::deque<platform::WaveBuffer*> queue_;
    std::atomic_bool scheduled_ = false;
    base::Text errorText_;
};

} // namespace desktop
