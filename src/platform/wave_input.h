// What the program asks of a sound card: a queue of buffers that the device fills.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <functional>
#include <vector>

namespace platform {

// How samples lie in a buffer: PCM, little-endian, channels in turn. 16 bits are signed, 8 bits unsigned.
struct WaveFormat {
    std::int16_t formatTag = 1;
    std::int16_t channels = 0;
    std::int32_t samplesPerSec = 0;
    std::int32_t avgBytesPerSec = 0;
    std::int16_t blockAlign = 0; // bytes of one sample of all channels
    std::int16_t bitsPerSample = 0;
};

// One buffer of the queue. It has to stay where it is while it is prepared.
struct WaveBuffer {
    static constexpr unsigned WHDR_DONE = 1;     // the device has filled it, or given it back
    static constexpr unsigned WHDR_PREPARED = 2; // the device knows it
    static constexpr unsigned WHDR_INQUEUE = 16; // it waits to be filled

    std::vector<std::uint8_t> lpData;  // as long as the buffer is
    std::uint32_t dwBytesRecorded = 0; // how much of it the device filled
    std::uint32_t dwUser = 0;          // the caller's own
    unsigned dwFlags = 0;
};

// The default input device. Results are 0 for success, else a number that errorText puts into words; after a
// failed open every other call fails as well and does no harm. All calls belong to the thread of the event
// loop, and so does BufferDone; a buffer changes in no other place, so no lock is needed.
class WaveInput {
public:
    using Result = int;

    WaveInput() = default;
    WaveInput(const WaveInput&) = delete;
    WaveInput& operator=(const WaveInput&) = delete;
    virtual ~WaveInput() = default;

    // Opens the device and calls `opened` with the result: before it returns where the device answers soon,
    // else on the loop when it answers or is given up. Not at all after a close or another open.
    virtual void open(const WaveFormat& format, std::function<void(Result)> opened) = 0;
    // Lets the device go, also one that is being opened. Buffers that are not done are done with; none is
    // reported any more.
    virtual void close() = 0;

    virtual Result prepareHeader(WaveBuffer& buffer) = 0;
    virtual Result unprepareHeader(WaveBuffer& buffer) = 0;
    // Puts the buffer at the end of the queue. One that is in the queue is refused.
    virtual Result addBuffer(WaveBuffer& buffer) = 0;

    // Sound goes into the queue from now on. While the queue is empty it is kept for the next buffer.
    virtual Result start() = 0;
    // No more sound, and what has not reached a buffer is gone. A buffer that is filled in part is done; the
    // others stay in the queue.
    virtual Result stop() = 0;
    // Stops and empties the queue: all its buffers are done.
    virtual Result reset() = 0;

    // The device's own words for a result.
    virtual base::Text errorText(Result result) const = 0;

    // The device has filled this buffer to its end. One call a buffer, in the order of the queue.
    std::function<void(WaveBuffer&)> BufferDone;
};

} // namespace platform
