#include "portaudio_input.h"

#include <QMetaObject>
#include <algorithm>
#include <chrono>
#include <thread>
#include <utility>

namespace desktop {

namespace {

using platform::WaveBuffer;

// Error codes that the program's sound interface has always used.
constexpr int invalidHandle = 5;
constexpr int stillPlaying = 33;
constexpr int unprepared = 34;

constexpr std::chrono::milliseconds shortWait(500); // wait for a device; not noticeable
constexpr std::chrono::seconds patience(5);         // after this the device counts as unavailable
constexpr std::chrono::seconds betweenLooks(1);     // between two tries to open a lost device again

} // namespace

PortAudioInput::PortAudioInput() {
    givesUp_.setSingleShot(true);
    givesUp_.setInterval(patience);
    connect(&givesUp_, &QTimer::timeout, this, [this] { answer(nullptr); });
    comesBack_.setSingleShot(true);
    comesBack_.setInterval(betweenLooks);
    connect(&comesBack_, &QTimer::timeout, this, [this] { openAgain(); });
}

PortAudioInput::~PortAudioInput() {
    forgetOpening();
}

void PortAudioInput::open(const platform::WaveFormat& format, std::function<void(Result)> opened) {
    close();
    format_ = format;
    opened_ = std::move(opened);
    const auto opening = opening_ = std::make_shared<Opening>();
    opening->asker = this;
    std::thread([opening, format] { openDevice(opening, format); }).detach();
    std::unique_lock lock(opening->mutex);
    const bool soon = opening->answered.wait_for(lock, shortWait, [&] { return bool(opening->device); });
    lock.unlock();
    if (soon)
        takeAnswer();
    else
        givesUp_.start();
}

void PortAudioInput::openDevice(const std::shared_ptr<Opening>& opening, const platform::WaveFormat& format) {
    const auto isWanted = [&] {
        const std::lock_guard lock(opening->mutex);
        return opening->asker != nullptr;
    };
    std::unique_ptr<PortAudioDevice> device;
    {
        // Waits for an opening that still hangs, although nobody wants it any more.
        const std::lock_guard alone(PortAudioDevice::library());
        if (isWanted())
            device = std::make_unique<PortAudioDevice>(format);
    }
    const std::lock_guard lock(opening->mutex);
    if (!opening->asker)
        return; // destroys, and so closes, the device
    opening->device = std::move(device);
    opening->answered.notify_one();
    QMetaObject::invokeMethod(
        opening->asker,
        [asker = opening->asker, opening] {
            if (asker->opening_ == opening)
                asker->takeAnswer();
        },
        Qt::QueuedConnection);
}

void PortAudioInput::takeAnswer() {
    answer(std::move(opening_->device));
}

void PortAudioInput::answer(std::unique_ptr<PortAudioDevice> device) {
    forgetOpening();
    device_ = std::move(device);
    const Result failed = device_ ? device_->error() : PortAudioDevice::unavailable();
    if (failed != 0) {
        errorText_ = base::fromUtf8(device_ ? device_->errorText() : PortAudioDevice::unavailableText());
        device_.reset();
    }
    if (std::exchange(open_, failed == 0 || open_)) {
        if (failed != 0)
            return comesBack_.start();
        if (running_)
            run();
        DeviceBack();
    } else if (const auto opened = std::exchange(opened_, nullptr)) {
        opened(failed);
    }
}

// What the device gave before it went is fetched first.
void PortAudioInput::lost() {
    gone_ = false;
    ++runs_;
    device_.reset();
    comesBack_.start();
    DeviceLost(base::fromUtf8(goneReason_));
}

// A sound system that hangs is waited for as long as it takes: nobody waits for the answer.
void PortAudioInput::openAgain() {
    const auto opening = opening_ = std::make_shared<Opening>();
    opening->asker = this;
    std::thread([opening, format = format_] { openDevice(opening, format); }).detach();
}

void PortAudioInput::run() {
    ++runs_;
    gone_ = false;
    device_->start([this] { schedule(); },
                   [this, run = runs_](const std::string& reason) {
                       QMetaObject::invokeMethod(
                           this,
                           [this, run, reason] {
                               if (run != runs_)
                                   return;
                               gone_ = true;
                               goneReason_ = reason;
                               schedule();
                           },
                           Qt::QueuedConnection);
                   });
}

void PortAudioInput::forgetOpening() {
    givesUp_.stop();
    const auto opening = std::exchange(opening_, nullptr);
    if (!opening)
        return;
    const std::lock_guard lock(opening->mutex);
    opening->asker = nullptr;
}

void PortAudioInput::close() {
    forgetOpening();
    comesBack_.stop();
    opened_ = nullptr;
    open_ = running_ = gone_ = false;
    ++runs_;
    device_.reset();
    queue_.clear();
}

PortAudioInput::Result PortAudioInput::prepareHeader(WaveBuffer& buffer) {
    if (!open_)
        return invalidHandle;
    buffer.dwFlags |= WaveBuffer::WHDR_PREPARED;
    return 0;
}

PortAudioInput::Result PortAudioInput::unprepareHeader(WaveBuffer& buffer) {
    if (!open_)
        return invalidHandle;
    if ((buffer.dwFlags & WaveBuffer::WHDR_INQUEUE) != 0)
        return stillPlaying;
    buffer.dwFlags &= ~WaveBuffer::WHDR_PREPARED;
    return 0;
}

PortAudioInput::Result PortAudioInput::addBuffer(WaveBuffer& buffer) {
    if (!open_)
        return invalidHandle;
    if ((buffer.dwFlags & WaveBuffer::WHDR_PREPARED) == 0)
        return unprepared;
    if ((buffer.dwFlags & WaveBuffer::WHDR_INQUEUE) != 0)
        return stillPlaying;
    buffer.dwFlags = WaveBuffer::WHDR_PREPARED | WaveBuffer::WHDR_INQUEUE;
    buffer.dwBytesRecorded = 0;
    queue_.push_back(&buffer);
    schedule(); // sound may have been waiting for a buffer
    return 0;
}

PortAudioInput::Result PortAudioInput::start() {
    if (!open_)
        return invalidHandle;
    running_ = true;
    if (device_)
        run();
    return 0;
}

PortAudioInput::Result PortAudioInput::stop() {
    if (!open_)
        return invalidHandle;
    running_ = gone_ = false;
    ++runs_;
    if (device_)
        device_->stop();
    if (!queue_.empty() && queue_.front()->dwBytesRecorded > 0)
        done(*queue_.front());
    return 0;
}

PortAudioInput::Result PortAudioInput::reset() {
    if (!open_)
        return invalidHandle;
    stop();
    while (!queue_.empty())
        done(*queue_.front());
    return 0;
}

base::Text PortAudioInput::errorText(Result) const {
    return errorText_;
}

void PortAudioInput::schedule() {
    if (!scheduled_.exchange(true))
        QMetaObject::invokeMethod(
            this, [this] { fill(); }, Qt::QueuedConnection);
}

void PortAudioInput::fill() {
    scheduled_ = false;
    // At most one round, so that timers and keys are handled in between.
    for (std::size_t rounds = queue_.size(); rounds > 0 && !queue_.empty() && device_; --rounds) {
        WaveBuffer& buffer = *queue_.front();
        const std::size_t space = buffer.lpData.size() - buffer.dwBytesRecorded;
        const std::size_t taken = device_->take(buffer.lpData.data() + buffer.dwBytesRecorded, space);
        buffer.dwBytesRecorded += static_cast<std::uint32_t>(taken);
        if (taken < space) {
            if (gone_)
                lost();
            return;
        }
        done(buffer);
        if (BufferDone)
            BufferDone(buffer);
    }
    if (!queue_.empty())
        schedule();
}

void PortAudioInput::done(WaveBuffer& buffer) {
    queue_.pop_front();
    buffer.dwFlags = (buffer.dwFlags & ~WaveBuffer::WHDR_INQUEUE) | WaveBuffer::WHDR_DONE;
}

} // namespace desktop
