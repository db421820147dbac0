#pragma once

#include "platform/wave_input.h"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace desktop {

// The sound that has come from the device and has not been fetched yet. One thread puts, one takes.
class SoundStore {
public:
    // Holds up to `capacity` bytes.
    explicit SoundStore(std::size_t capacity) : capacity_(capacity) {}

    // Waits while the store is full; false when it was closed.
    bool put(const char* bytes, std::size_t count);
    // Waits until the store is closed, and no longer than that; true when it was closed.
    bool isClosedWithin(std::chrono::milliseconds time);
    // As many bytes as there are, `most` at the most; their number.
    std::size_t take(std::uint8_t* bytes, std::size_t most);
    // Nobody waits any more, nothing comes in any more.
    void close();

private:
    const std::size_t capacity_;
    std::mutex mutex_;
    std::condition_variable changed_; // there is room, or it was closed
    std::deque<char> bytes_;
    bool closed_ = false;
};

// One stream from the default input device. Sound is read on a thread of its own, so that a busy event loop
// loses none.
class PortAudioDevice {
public:
    // To be held while one is made: PortAudio opens and closes for one thread at a time.
    static std::mutex& library();

    // Looks for the devices anew, which takes as long as the sound system does. On failure there is no
    // stream, and error() says why.
    explicit PortAudioDevice(const platform::WaveFormat& format);
    PortAudioDevice(const PortAudioDevice&) = delete;
    PortAudioDevice& operator=(const PortAudioDevice&) = delete;
    ~PortAudioDevice();

    // PortAudio's number of the failure, 0 when the stream is open; its words for it.
    int error() const { return error_; }
    const std::string& errorText() const { return errorText_; }

    // The same for a device that cannot be had.
    static int unavailable();
    static std::string unavailableText();

    // Calls `arrived` on the reading thread whenever there is sound to take.
    void start(std::function<void()> arrived);
    // What was not taken is gone. A device that does not let go within a second is given up: nothing more
    // comes.
    void stop();
    std::size_t take(std::uint8_t* bytes, std::size_t most);

    // How often the device had to throw sound away, since it was opened.
    int overflows() const { return *overflows_; }

private:
    // What the reading thread works on. It outlives the device where the sound system never answers.
    struct Reading {
        Reading(const PortAudioDevice& device, std::function<void()> arrived);

        void* stream;
        std::vector<char> chunk;
        SoundStore store;
        std::function<void()> arrived;
        std::shared_ptr<std::atomic_int> overflows;
        std::promise<void> ended;
    };
    // Reads so many frames at a time, until the store is closed or the device has gone.
    static void read(Reading& reading, std::size_t frames);
    void fail(int error);

    void* stream_ = nullptr;
    std::size_t frameSize_;
    std::size_t chunkFrames_;
    std::size_t storeSize_;
    int error_ = 0;
    std::string errorText_;
    std::shared_ptr<std::atomic_int> overflows_ = std::make_shared<std::atomic_int>(0);
    std::shared_ptr<Reading> reading_; // while the stream runs
    std::thread reader_;
};

} // namespace desktop
