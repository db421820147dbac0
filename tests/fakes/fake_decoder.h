#pragma once

#include "base/files.h"
#include "platform/decoder.h"

namespace fakes {

// A decoder whose conversion goes on and ends when the test says so.
class FakeDecoder : public platform::Decoder {
public:
    base::Text recording; // what the last start was asked for
    base::Text wav;
    std::shared_ptr<platform::SampleSink> sink; // of the last call of listen()
    bool running = false;

    void start(const base::Text& from, const base::Text& to) override {
        recording = from;
        wav = to;
        running = true;
    }
    void listen(const base::Text& from, std::shared_ptr<platform::SampleSink> to) override {
        recording = from;
        sink = std::move(to);
        running = true;
    }
    void cancel() override { running = false; }

    // The recording that is listened to has these samples. Nothing if none is.
    void hear(std::span<const std::int16_t> samples) {
        if (!running)
            return;
        sink->add(samples);
        sink->end();
        running = false;
        Finished({});
    }

    // Reports the progress; nothing if no conversion runs.
    void convert(double seconds) {
        if (running)
            Progress(seconds);
    }
    // Ends the conversion: writes the file unless there is a failure. Nothing if no conversion runs.
    void finish(const base::Text& failure = {}) {
        if (!running)
            return;
        running = false;
        if (failure.empty())
            base::replacePrivateFile(wav, "RIFF");
        Finished(failure);
    }
};

} // namespace fakes
