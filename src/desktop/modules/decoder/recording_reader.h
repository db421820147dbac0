#pragma once

#include <atomic>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

struct AVCodecContext;
struct AVFormatContext;
struct AVFrame;
struct AVIOContext;
struct AVPacket;
struct SwrContext;

namespace desktop {

// The sound of a recording as the player plays it: its first sound, with silence where it has gaps, so that a
// moment in it is a position in the player. Damaged parts are skipped. Mono, 16 bit.
class RecordingReader {
public:
    static constexpr int samplesPerSec = 16000;

    // Opens the recording at this path. Throws base::Failure if there is none, or no sound that can be
    // decoded. Reading ends soon after `stop` is set.
    RecordingReader(const std::string& path, const std::atomic_bool& stop);
    RecordingReader(const RecordingReader&) = delete;
    RecordingReader& operator=(const RecordingReader&) = delete;
    ~RecordingReader();

    // The next samples, valid until the next call; none at the end. Throws base::Failure if the file cannot
    // be read to its end, or has nothing that can be decoded.
    std::span<const std::int16_t> next();

private:
    template <auto free>
    struct Free {
        template <typename Object>
        void operator()(Object* object) const {
            free(&object);
        }
    };
    static void freeFile(AVIOContext** file);
    static void freeFormat(AVFormatContext** format);
    static void freeCodec(AVCodecContext** codec);
    static void freePacket(AVPacket** packet);
    static void freeFrame(AVFrame** frame);
    static void freeResampler(SwrContext** resampler);

    void openFile(const std::string& path);
    void chooseStream();
    void openCodec();

    void step();
    // Passes the next part of the file to the codec.
    void feed();
    void endOfFile(int result);
    // Prepares what the frame needs before it is converted: a resampler for its format, silence before it.
    void receive();
    void openResampler();
    void fillGap();
    void convert(const std::uint8_t** planes, int samples);
    // Converts what the resampler still holds.
    void flush();

    const std::atomic_bool& stop_;
    std::unique_ptr<AVIOContext, Free<&RecordingReader::freeFile>> file_;
    std::unique_ptr<AVFormatContext, Free<&RecordingReader::freeFormat>> format_;
    std::unique_ptr<AVCodecContext, Free<&RecordingReader::freeCodec>> codec_;
    std::unique_ptr<AVPacket, Free<&RecordingReader::freePacket>> packet_;
    std::unique_ptr<AVFrame, Free<&RecordingReader::freeFrame>> frame_;
    std::unique_ptr<SwrContext, Free<&RecordingReader::freeResampler>> resampler_;
    int stream_ = 0;
    double start_ = 0;                // the time stamp, in seconds, of the player's position 0
    int refusals_ = 0;                // consecutive failed reads
    std::vector<std::int64_t> input_; // what resampler_ converts: sample format, rate, channels, their layout
    bool draining_ = false;           // the codec has everything
    bool waiting_ = false;            // frame_ is not converted yet
    bool ended_ = false;
    std::int64_t silence_ = 0; // samples to return before that frame
    std::int64_t written_ = 0; // samples returned
    std::vector<std::int16_t> output_;
};

} // namespace desktop
