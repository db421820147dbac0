#include "lav_decoder.h"

#include "base/failure.h"
#include "base/unfinished_file.h"
#include "recorder/wav_header.h"
#include "recording_reader.h"

#include <QMetaObject>
#include <cerrno>
#include <chrono>
#include <sys/resource.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace desktop {

namespace {

constexpr int niceness = 10;                             // below the program, and below its player
constexpr std::chrono::milliseconds betweenReports(100); // of the progress
constexpr std::chrono::seconds patience(1);              // for a thread that was asked to stop
constexpr std::size_t blockSize = 1U << 18U;             // bytes written at once

// The WAV file, which has no name until it is complete.
class WavFile {
public:
    explicit WavFile(std::string path) : path_(std::move(path)), file_(path_, S_IRUSR | S_IWUSR) {
        block_.assign(recorder::headerSize, '\0');
        if (!file_.isOpen())
            fail();
    }

    void add(std::span<const std::int16_t> samples) {
        block_.append(reinterpret_cast<const char*>(samples.data()), samples.size_bytes());
        if (block_.size() >= blockSize)
            write();
    }
    void complete() {
        write();
        const std::string header =
            recorder::wavHeader(recorder::pcmFormat(1, 16, RecordingReader::samplesPerSec), size_);
        if (::pwrite(file_.descriptor(), header.data(), header.size(), 0) !=
                static_cast<ssize_t>(header.size()) ||
            !file_.putInPlace())
            fail();
    }

private:
    [[noreturn]] void fail() const { throw base::systemFailure(errno, path_); }
    void write() {
        if (!file_.write(block_))
            fail();
        size_ += block_.size();
        block_.clear();
    }

    const std::string path_;
    base::UnfinishedFile file_;
    std::string block_; // not written yet
    std::uint64_t size_ = 0;
};

} // namespace

LavDecoder::~LavDecoder() {
    cancel();
}

void LavDecoder::start(const base::Text& recording, const base::Text& wav) {
    const auto run = std::make_shared<Run>();
    run->recording = base::toUtf8(recording);
    run->wav = base::toUtf8(wav);
    begin(run);
}

void LavDecoder::listen(const base::Text& recording, std::shared_ptr<platform::SampleSink> sink) {
    const auto run = std::make_shared<Run>();
    run->recording = base::toUtf8(recording);
    run->sink = std::move(sink);
    begin(run);
}

void LavDecoder::begin(const std::shared_ptr<Run>& run) {
    cancel();
    run_ = run;
    run_->owner = this;
    thread_ = std::thread([run] { convert(run); });
}

void LavDecoder::cancel() {
    if (!run_)
        return;
    run_->stop = true;
    {
        const std::lock_guard lock(run_->mutex);
        run_->owner = nullptr;
        if (run_->complete)
            ::unlink(run_->wav.c_str());
    }
    end();
}

void LavDecoder::end() {
    // Only a disk that does not answer keeps the thread.
    if (run_->ended.get_future().wait_for(patience) == std::future_status::ready)
        thread_.join();
    else
        thread_.detach();
    run_.reset();
}

void LavDecoder::convert(const std::shared_ptr<Run>& run) {
    ::setpriority(PRIO_PROCESS, 0, niceness); // of this thread, on Linux
    base::Text failure;
    try {
        run->sink ? fillSink(run) : writeFile(run);
    } catch (const base::Failure& failed) {
        failure = base::fromUtf8(failed.what());
    }
    post(run, [failure](LavDecoder& decoder) {
        decoder.end();
        decoder.Finished(failure);
    });
    run->ended.set_value();
}

void LavDecoder::fillSink(const std::shared_ptr<Run>& run) {
    read(run, *run->sink);
    if (!run->stop)
        run->sink->end();
}

void LavDecoder::writeFile(const std::shared_ptr<Run>& run) {
    WavFile file(run->wav);
    read(run, file);
    if (run->stop)
        return;
    file.complete();
    const std::lock_guard lock(run->mutex);
    run->complete = true;
    if (!run->owner)
        ::unlink(run->wav.c_str());
}

// Adds all samples to a sink or a file, and reports the progress.
template <typename Sink>
void LavDecoder::read(const std::shared_ptr<Run>& run, Sink& sink) {
    using Clock = std::chrono::steady_clock;
    RecordingReader reader(run->recording, run->stop);
    std::size_t count = 0;
    auto reported = Clock::now();
    for (auto samples = reader.next(); !samples.empty(); samples = reader.next()) {
        sink.add(samples);
        count += samples.size();
        if (const auto now = Clock::now(); now >= reported + betweenReports) {
            reported = now;
            const double seconds = static_cast<double>(count) / RecordingReader::samplesPerSec;
            post(run, [seconds](LavDecoder& decoder) { decoder.Progress(seconds); });
        }
    }
}

void LavDecoder::post(const std::shared_ptr<Run>& run, std::function<void(LavDecoder&)> call) {
    const std::lock_guard lock(run->mutex);
    if (!run->owner)
        return;
    QMetaObject::invokeMethod(
        run->owner,
        [run, call = std::move(call), decoder = run->owner] {
            if (decoder->run_ == run)
                call(*decoder);
        },
        Qt::QueuedConnection);
}

} // namespace desktop
