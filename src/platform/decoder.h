// The port that converts recordings for recognisers.
#pragma once

#include "base/text.h"

#include <functional>

namespace platform {

// Converts recordings to the sound that recognisers read, one recording at a time. Events come from the event
// loop, never from within a call.
class Decoder {
public:
    Decoder() = default;
    Decoder(const Decoder&) = delete;
    Decoder& operator=(const Decoder&) = delete;
    virtual ~Decoder() = default;

    // Converts the first sound of the recording to a WAV file of 16 kHz, mono, 16 bit, on a thread of low
    // priority. A moment in the file is the player's position in the recording. Damaged parts are skipped.
    // The file appears at the path `wav` when it is complete, readable by its owner only. A conversion that
    // still runs is cancelled first.
    virtual void start(const base::Text& recording, const base::Text& wav) = 0;
    // No event follows, and no file is left.
    virtual void cancel() = 0;

    // So many seconds of the recording are converted. Comes at most ten times a second.
    std::function<void(double seconds)> Progress = [](double) {};
    // The conversion has ended: the file is complete if the text is empty, otherwise there is none, and the
    // text tells why in the system's words.
    std::function<void(const base::Text& failure)> Finished = [](const base::Text&) {};
};

} // namespace platform
