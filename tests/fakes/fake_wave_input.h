#pragma once

#include "platform/wave_input.h"

#include <algorithm>
#include <deque>
#include <utility>

namespace fakes {

// A sound card that follows the rules of the port and fills a buffer when the test says so.
class FakeWaveInput : public platform::WaveInput {
public:
    using Buffer = platform::WaveBuffer;

    Result refusal = 0; // result of open
    base::Text words;   // error text for every failure
    bool slow = false;  // open waits for answer()
    platform::WaveFormat format;

    // Fills the next buffer in the queue with bytes counting up from `first` and reports it. Returns false if
    // the device is not running or has no buffer.
    bool fill(int first = 1) {
        if (!running_ || queue_.empty())
            return false;
        Buffer& buffer = *queue_.front();
        queue_.pop_front();
        for (std::size_t i = 0; i < buffer.lpData.size(); ++i)
            buffer.lpData[i] = static_cast<std::uint8_t>(first + static_cast<int>(i % 251));
        finish(buffer, buffer.lpData.size());
        if (BufferDone)
            BufferDone(buffer);
        return true;
    }
    std::size_t queued() const { return queue_.size(); }

    void open(const platform::WaveFormat& wanted, std::function<void(Result)> opened) override {
        format = wanted;
        opened_ = std::move(opened);
        if (!slow)
            answer();
    }
    // Completes the open of a slow device, if it is still wanted.
    void answer() {
        const auto opened = std::exchange(opened_, nullptr);
        open_ = opened && refusal == 0;
        if (opened)
            opened(refusal);
    }
    void close() override {
        opened_ = nullptr;
        open_ = running_ = false;
        queue_.clear();
    }
    Result prepareHeader(Buffer& buffer) override {
        return carryOut([&] { buffer.dwFlags |= Buffer::WHDR_PREPARED; });
    }
    Result unprepareHeader(Buffer& buffer) override {
        if ((buffer.dwFlags & Buffer::WHDR_INQUEUE) != 0)
            return 33;
        return carryOut([&] { buffer.dwFlags &= ~Buffer::WHDR_PREPARED; });
    }
    Result addBuffer(Buffer& buffer) override {
        if (!open_ || (buffer.dwFlags & Buffer::WHDR_PREPARED) == 0 ||
            (buffer.dwFlags & Buffer::WHDR_INQUEUE) != 0)
            return 33;
        return carryOut([&] {
            buffer.dwFlags = Buffer::WHDR_PREPARED | Buffer::WHDR_INQUEUE;
            buffer.dwBytesRecorded = 0;
            queue_.push_back(&buffer);
        });
    }
    Result start() override {
        return carryOut([&] { running_ = true; });
    }
    Result stop() override {
        return carryOut([&] { running_ = false; });
    }
    Result reset() override {
        return carryOut([&] {
            running_ = false;
            for (; !queue_.empty(); queue_.pop_front())
                finish(*queue_.front(), 0);
        });
    }
    base::Text errorText(Result) const override { return words; }

private:
    template <typename Work>
    Result carryOut(Work work) {
        if (!open_)
            return 5;
        work();
        return 0;
    }
    static void finish(Buffer& buffer, std::size_t recorded) {
        buffer.dwBytesRecorded = static_cast<std::uint32_t>(recorded);
        buffer.dwFlags = Buffer::WHDR_PREPARED | Buffer::WHDR_DONE;
    }

    std::function<void(Result)> opened_; // callback of the pending open
    std::deque<Buffer*> queue_;
    bool open_ = false;
    bool running_ = false;
};

} // namespace fakes
