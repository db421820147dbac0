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

// The buffer queue, filled by the default input device. Must be used on the thread of the Qt event loop that
// created it.
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

    // How often sound has been lost since the device was opened.
    int overflows() const { return device_ ? device_->overflows() : 0; }

private:
    // A device that is being opened; shared with the opening thread, which outlives this object if the sound
    // system never answers.
    struct Opening {
        std::mutex mutex;
        std::condition_variable answered;
        PortAudioInput* asker = nullptr;         // null once the result is no longer wanted
        std::unique_ptr<PortAudioDevice> device; // the result
    };
    static void openDevice(const std::shared_ptr<Opening>& opening, const platform::WaveFormat& format);
    // Ends the opening: `device` is the opened device, or null after a timeout.
    void answer(std::unique_ptr<PortAudioDevice> device);
    void takeAnswer();
    // Abandons the device that is being opened.
    void forgetOpening();

    // Starts the device; what a device before it still reports is ignored.
    void run();
    void lost();
    void openAgain();

    // Schedules one fill() for all sound that arrives until it runs. Called from any thread.
    void schedule();
    void fill();
    void done(platform::WaveBuffer& buffer);

    std::unique_ptr<PortAudioDevice> device_; // null while closed
    std::shared_ptr<Opening> opening_;        // null unless a device is being opened
    std::function<void(Result)> opened_;      // callback of the pending open()
    QTimer givesUp_;
    platform::WaveFormat format_;
    bool open_ = false;    // the caller has a device, be it one that will come back
    bool running_ = false; // and wants its sound
    int runs_ = 0;         // starts and stops, to tell one run from the next
    bool gone_ = false;    // the device has gone; what it gave before is fetched first
    std::string goneReason_;
    QTimer comesBack_; // until a device that has gone is looked for
    std::deque<platform::WaveBuffer*> queue_;
    std::atomic_bool scheduled_ = false;
    base::Text errorText_;
};

} // namespace desktop
