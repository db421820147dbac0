#include "portaudio_input.h"

#include <QMetaObject>
#include <algorithm>

namespace desktop {

namespace {

using platform::WaveBuffer;

// The numbers that the program's sound interface has always had for these.
constexpr int invalidHandle = 5;
constexpr int stillPlaying = 33;
constexpr int unprepared = 34;

} // namespace

PortAudioInput::Result PortAudioInput::open(const platform::WaveFormat& format) {
    close();
    device_ = std::make_unique<PortAudioDevice>(format);
    const Result failed = device_->error();
    if (failed != 0) {
        errorText_ = base::fromUtf8(device_->errorText());
        device_.reset();
    }
    return failed;
}

void PortAudioInput::close() {
    device_.reset();
    queue_.clear();
}

PortAudioInput::Result PortAudioInput::prepareHeader(WaveBuffer& buffer) {
    if (!device_)
        return invalidHandle;
    buffer.dwFlags |= WaveBuffer::WHDR_PREPARED;
    return 0;
}

PortAudioInput::Result PortAudioInput::unprepareHeader(WaveBuffer& buffer) {
    if (!device_)
        return invalidHandle;
    if ((buffer.dwFlags & WaveBuffer::WHDR_INQUEUE) != 0)
        return stillPlaying;
    buffer.dwFlags &= ~WaveBuffer::WHDR_PREPARED;
    return 0;
}

PortAudioInput::Result PortAudioInput::addBuffer(WaveBuffer& buffer) {
    if (!device_)
        return invalidHandle;
    if ((buffer.dwFlags & WaveBuffer::WHDR_PREPARED) == 0)
        return unprepared;
    if ((buffer.dwFlags & WaveBuffer::WHDR_INQUEUE) != 0)
        return stillPlaying;
    buffer.dwFlags = WaveBuffer::WHDR_PREPARED | WaveBuffer::WHDR_INQUEUE;
    buffer.dwBytesRecorded = 0;
    queue_.push_back(&buffer);
    schedule(); // what waited for a buffer
    return 0;
}

PortAudioInput::Result PortAudioInput::start() {
    if (!device_)
        return invalidHandle;
    device_->start([this] { schedule(); });
    return 0;
}

PortAudioInput::Result PortAudioInput::stop() {
    if (!device_)
        return invalidHandle;
    device_->stop();
    if (!queue_.empty() && queue_.front()->dwBytesRecorded > 0)
        done(*queue_.front());
    return 0;
}

PortAudioInput::Result PortAudioInput::reset() {
    if (!device_)
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
    // One round at most: timers and keys get their turn between two.
    for (std::size_t rounds = queue_.size(); rounds > 0 && !queue_.empty() && device_; --rounds) {
        WaveBuffer& buffer = *queue_.front();
        const std::size_t space = buffer.lpData.size() - buffer.dwBytesRecorded;
        const std::size_t taken = device_->take(buffer.lpData.data() + buffer.dwBytesRecorded, space);
        buffer.dwBytesRecorded += static_cast<std::uint32_t>(taken);
        if (taken < space)
            return;
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
