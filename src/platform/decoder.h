// The port that reads the sound of recordings.
#pragma once

#include "base/text.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <span>

namespace platform {

// Takes the sound of a recording on the decoder's thread, and throws nothing.
class SampleSink {
public:
    SampleSink() = default;
    SampleSink(const SampleSink&) = delete;
    SampleSink& operator=(const SampleSink&) = delete;
    virtual ~SampleSink() = default;

    // The next samples.
    virtual void add(std::span<const std::int16_t> samples) = 0;
    // The recording has ended. Not called after a failure or a cancel.
    virtual void end() = 0;
};

// Converts recordings to the sound that recognisers read, 16 kHz, mono, 16 bit, one recording at a time on a
// thread of low priority. Events come from the event loop, never from within a call.
class Decoder {
public:
    Decoder() = default;
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    virtual ~Decoder() = default;

    // Converts the first sound of the recording to a WAV file. A moment in the file is the player's position
    // in the recording. Damaged parts are skipped. The file appears at the path `wav` when it is complete,
    // readable by its owner only. A conversion that still runs is cancelled first.
    virtual void start(const base::Text& recording, const base::Text& wav) = 0;
    // The same sound for this sink instead of a file. A cancelled conversion may still use the sink for a
    // moment.
    virtual void listen(const base::Text& recording, std::shared_ptr<SampleSink> sink) = 0;
    // No event follows, and no file is left.
    virtual void cancel() = 0;

    // So many seconds of the recording are converted. Comes at most ten times a second.
    std::function<void(double seconds)> Progress = [](double) {};
    // The conversion has ended: the file is complete if the text is empty, otherwise there is none, and the
    // text tells why in the system's words.
    std::function<void(const base::Text& failure)> Finished = [](const base::Text&) {};
};

} // namespace platform
