// The port to the sound card: a queue of buffers that the device fills.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace platform {

// The format of samples: PCM, little-endian, channels interleaved. 16 bits are signed, 8 bits unsigned.
struct WaveFormat {
    std::int16_t formatTag = 1;
    std::int16_t channels = 0;
    std::int32_t samplesPerSec = 0;
    std::int32_t avgBytesPerSec = 0;
    std::int16_t blockAlign = 0; // bytes of one sample of all channels
    std::int16_t bitsPerSample = 0;
};

// One buffer of the queue. It must not move while it is prepared.
struct WaveBuffer {
    static constexpr unsigned WHDR_DONE = 1;     // the device has filled or returned it
    static constexpr unsigned WHDR_PREPARED = 2; // the device knows it
    static constexpr unsigned WHDR_INQUEUE = 16; // it waits to be filled

    std::vector<std::uint8_t> lpData;  // its size is the size of the buffer
    std::uint32_t dwBytesRecorded = 0; // how many bytes the device has filled
    std::uint32_t dwUser = 0;          // for the caller's use
    unsigned dwFlags = 0;
};

// The default input device. A result is 0 for success, otherwise a number that errorText describes. After a
// failed open every other call fails harmlessly. All calls and BufferDone run on the event loop's thread, and
// buffers change nowhere else, so no lock is needed.
class WaveInput {
public:
    using Result = int;

    WaveInput() = default;
    WaveInput(const WaveInput&) = delete;
    WaveInput& operator=(const WaveInput&) = delete;
    virtual ~WaveInput() = default;

    // Opens the device and calls `opened` with the result: before returning if the device answers quickly,
    // otherwise later on the event loop, when it answers or times out. A close or another open suppresses the
    // call.
    virtual void open(const WaveFormat& format, std::function<void(Result)> opened) = 0;
    // Releases the device, even while it is being opened, and empties the queue. The buffers that were queued
    // are not reported.
    virtual void close() = 0;

    virtual Result prepareHeader(WaveBuffer& buffer) = 0;
    virtual Result unprepareHeader(WaveBuffer& buffer) = 0;
    // Appends the buffer to the queue. A buffer that is already queued is refused.
    virtual Result addBuffer(WaveBuffer& buffer) = 0;

    // Starts capturing into the queue. Sound captured while the queue is empty is kept for the next buffer.
    virtual Result start() = 0;
    // Stops capturing; sound that has not reached a buffer is discarded. A partly filled buffer is done, the
    // others stay in the queue.
    virtual Result stop() = 0;
    // Stops and empties the queue: all its buffers are done.
    virtual Result reset() = 0;

    // The device's own message for a result.
    virtual base::Text errorText(Result result) const = 0;

    // The device has filled this buffer completely. Called once per buffer, in queue order.
    std::function<void(WaveBuffer&)> BufferDone;

    // A device that ran has gone, in the system's words. It is opened again by itself once it is back, and
    // then runs on; all calls are taken meanwhile.
    std::function<void(const base::Text& reason)> DeviceLost = [](const base::Text&) {};
    std::function<void()> DeviceBack = [] {};
};

} // namespace platform
