// The decoder of recordings on FFmpeg's libraries.
#pragma once

#include "platform/decoder.h"

#include <QObject>
#include <atomic>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <thread>

namespace desktop {

// Converts on a thread of its own. Must be used on the thread of the Qt event loop that created it.
class LavDecoder final : public QObject, public platform::Decoder {
public:
    LavDecoder() = default;
    LavDecoder(const LavDecoder&) = delete;
    LavDecoder& operator=(const LavDecoder&) = delete;
    ~LavDecoder() override;

    void start(const base::Text& recording, const base::Text& wav) override;
    void listen(const base::Text& recording, std::shared_ptr<platform::SampleSink> sink) override;
    void cancel() override;

private:
    // One conversion; shared with its thread, which outlives this object if the disk never answers.
    struct Run {
        std::string recording; // paths
        std::string wav;
        std::shared_ptr<platform::SampleSink> sink; // null: the file is to be written
        std::atomic_bool stop = false;
        std::mutex mutex;
        LavDecoder* owner = nullptr; // null once nobody waits for the result
        bool complete = false;       // the file is in place
        std::promise<void> ended;
    };
    void begin(const std::shared_ptr<Run>& run);
    static void convert(const std::shared_ptr<Run>& run);
    static void fillSink(const std::shared_ptr<Run>& run);
    static void writeFile(const std::shared_ptr<Run>& run);
    template <typename Sink>
    static void read(const std::shared_ptr<Run>& run, Sink& sink);
    // Calls this on the event loop's thread, if the run is still wanted then. Called from the run's thread.
    static void post(const std::shared_ptr<Run>& run, std::function<void(LavDecoder&)> call);
    void end();

    std::shared_ptr<Run> run_; // null unless a conversion runs
    std::thread thread_;
};

} // namespace desktop
