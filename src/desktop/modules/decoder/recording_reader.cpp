#include "recording_reader.h"

#include "base/failure.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <filesystem>
#include <system_error>

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavformat/avformat.h>
#include <libswresample/swresample.h>
}

namespace desktop {

namespace {

constexpr int mostRefusals = 10;               // as often as the player tries to read on
constexpr double tolerance = 0.05;             // s that a time stamp may be wrong
constexpr double longestGap = 3600;            // s; a time stamp further away counts as wrong
constexpr std::int64_t silenceAtOnce = 65'536; // samples

[[noreturn]] void fail(int error) {
    char words[AV_ERROR_MAX_STRING_SIZE]; // NOLINT(modernize-avoid-c-arrays): a buffer for the library
    av_strerror(error, words, sizeof words);
    throw base::Failure(words);
}

int checked(int result) {
    if (result < 0)
        fail(result);
    return result;
}

int isStopped(void* stop) {
    return static_cast<const std::atomic_bool*>(stop)->load() ? 1 : 0;
}

} // namespace

void RecordingReader::freeFile(AVIOContext** file) {
    avio_closep(file);
}
void RecordingReader::freeFormat(AVFormatContext** format) {
    avformat_close_input(format);
}
void RecordingReader::freeCodec(AVCodecContext** codec) {
    avcodec_free_context(codec);
}
void RecordingReader::freePacket(AVPacket** packet) {
    av_packet_free(packet);
}
void RecordingReader::freeFrame(AVFrame** frame) {
    av_frame_free(frame);
}
void RecordingReader::freeResampler(SwrContext** resampler) {
    swr_free(resampler);
}

RecordingReader::RecordingReader(const std::string& path, const std::atomic_bool& stop)
    : stop_(stop), packet_(av_packet_alloc()), frame_(av_frame_alloc()) {
    // What the libraries say about damaged parts is for nobody. The player's engine has a log of its own.
    av_log_set_level(AV_LOG_QUIET);
    openFile(path);
    chooseStream();
    openCodec();
}

RecordingReader::~RecordingReader() = default;

void RecordingReader::openFile(const std::string& path) {
    // A pipe would block in the system, where nothing can stop it.
    std::error_code failed;
    const auto kind = std::filesystem::status(path, failed);
    if (std::filesystem::exists(kind) && !std::filesystem::is_regular_file(kind))
        throw base::Failure("No regular file");
    const AVIOInterruptCB interrupt{isStopped, const_cast<std::atomic_bool*>(&stop_)};
    AVIOContext* file = nullptr;
    // The prefix keeps a name with a colon from being understood as an address.
    checked(avio_open2(&file, ("file:" + path).c_str(), AVIO_FLAG_READ, &interrupt, nullptr));
    file_.reset(file);
    AVFormatContext* format = avformat_alloc_context();
    format->pb = file;
    format->interrupt_callback = interrupt;
    // A recording must not pull in other files, nor network hosts.
    AVDictionary* options = nullptr;
    av_dict_set(&options, "protocol_whitelist", "none", 0);
    const int opened = avformat_open_input(&format, ("file:" + path).c_str(), nullptr, &options);
    av_dict_free(&options);
    // Which has freed `format` if it failed. Some readers of formats call such bytes an invalid argument.
    checked(opened == AVERROR(EINVAL) ? AVERROR_INVALIDDATA : opened);
    format_.reset(format);
    checked(avformat_find_stream_info(format, nullptr));
    if (format->start_time != AV_NOPTS_VALUE)
        start_ = static_cast<double>(format->start_time) / AV_TIME_BASE;
}

// The player takes the first sound that the file calls its default, otherwise the first one.
void RecordingReader::chooseStream() {
    const std::span streams(format_->streams, format_->nb_streams);
    const auto isSound = [](const AVStream* stream) {
        return stream->codecpar->codec_type == AVMEDIA_TYPE_AUDIO;
    };
    auto chosen = std::ranges::find_if(streams, [&](const AVStream* stream) {
        return isSound(stream) && (stream->disposition & AV_DISPOSITION_DEFAULT) != 0;
    });
    if (chosen == streams.end())
        chosen = std::ranges::find_if(streams, isSound);
    if (chosen == streams.end())
        throw base::Failure("The file has no sound");
    stream_ = (*chosen)->index;
    for (AVStream* const stream : streams)
        stream->discard = stream->index == stream_ ? AVDISCARD_DEFAULT : AVDISCARD_ALL;
}

void RecordingReader::openCodec() {
    const AVStream* const stream = format_->streams[stream_];
    const AVCodec* const codec = avcodec_find_decoder(stream->codecpar->codec_id);
    if (!codec)
        fail(AVERROR_DECODER_NOT_FOUND);
    codec_.reset(avcodec_alloc_context3(codec));
    checked(avcodec_parameters_to_context(codec_.get(), stream->codecpar));
    // For the time stamp of a first frame that is cut.
    codec_->pkt_timebase = stream->time_base;
    codec_->thread_count = 1;
    checked(avcodec_open2(codec_.get(), codec, nullptr));
}

std::span<const std::int16_t> RecordingReader::next() {
    output_.clear();
    while (output_.empty() && !ended_ && !stop_)
        step();
    written_ += static_cast<std::int64_t>(output_.size());
    if (ended_ && written_ == 0 && !stop_)
        throw base::Failure("The sound cannot be decoded");
    return output_;
}

void RecordingReader::step() {
    if (silence_ > 0) {
        const auto count = std::min(silence_, silenceAtOnce);
        output_.insert(output_.end(), static_cast<std::size_t>(count), 0);
        silence_ -= count;
        return;
    }
    if (waiting_) {
        convert(const_cast<const std::uint8_t**>(frame_->extended_data), frame_->nb_samples);
        waiting_ = false;
        return;
    }
    const int result = avcodec_receive_frame(codec_.get(), frame_.get());
    if (result == 0) {
        receive();
    } else if (draining_) {
        flush();
        ended_ = true;
    } else {
        feed();
    }
}

void RecordingReader::feed() {
    const int result = av_read_frame(format_.get(), packet_.get());
    if (result >= 0) {
        refusals_ = 0;
        // The codec skips a damaged part, so its result does not matter.
        if (packet_->stream_index == stream_)
            avcodec_send_packet(codec_.get(), packet_.get());
        av_packet_unref(packet_.get());
    } else if (result == AVERROR_EOF || ++refusals_ >= mostRefusals) {
        endOfFile(result);
    }
}

void RecordingReader::endOfFile(int result) {
    // Damage that the reader cannot pass is the end for the player as well; a disk that fails is not.
    const int system = file_->error;
    if (system < 0 && system != AVERROR_EOF && result != AVERROR_EXIT)
        fail(system);
    avcodec_send_packet(codec_.get(), nullptr);
    draining_ = true;
}

void RecordingReader::receive() {
    if (frame_->nb_samples <= 0 || frame_->sample_rate <= 0)
        return;
    waiting_ = true;
    openResampler();
    fillGap();
}

void RecordingReader::openResampler() {
    AVChannelLayout& layout = frame_->ch_layout;
    const std::vector<std::int64_t> input{
        frame_->format, frame_->sample_rate, layout.nb_channels,
        layout.order == AV_CHANNEL_ORDER_NATIVE ? static_cast<std::int64_t>(layout.u.mask) : 0};
    if (resampler_ && input == input_)
        return;
    flush();
    input_ = input;
    AVChannelLayout mono = AV_CHANNEL_LAYOUT_MONO;
    SwrContext* made = nullptr;
    checked(swr_alloc_set_opts2(&made, &mono, AV_SAMPLE_FMT_S16, samplesPerSec, &layout,
                                static_cast<AVSampleFormat>(frame_->format), frame_->sample_rate, 0,
                                nullptr));
    resampler_.reset(made);
    if (swr_init(made) >= 0)
        return;
    // Channels whose positions nobody knows, such as those of a multitrack recorder: all count the same.
    const auto channels = static_cast<std::size_t>(layout.nb_channels);
    const std::vector<double> weights(channels, 1.0 / static_cast<double>(channels));
    checked(swr_set_matrix(made, weights.data(), layout.nb_channels));
    checked(swr_init(made));
}

void RecordingReader::fillGap() {
    if (frame_->best_effort_timestamp == AV_NOPTS_VALUE)
        return;
    const double stamp =
        static_cast<double>(frame_->best_effort_timestamp) * av_q2d(codec_->pkt_timebase) - start_;
    const auto before =
        written_ + static_cast<std::int64_t>(output_.size()) + swr_get_delay(resampler_.get(), samplesPerSec);
    const double gap = stamp - static_cast<double>(before) / samplesPerSec;
    if (std::abs(gap) > longestGap) {
        start_ += gap; // the time stamps start again
    } else if (gap > tolerance) {
        // What overlaps instead is kept, and makes the next gap shorter.
        flush();
        openResampler();
        silence_ = std::llround(gap * samplesPerSec);
    }
}

void RecordingReader::convert(const std::uint8_t** planes, int samples) {
    const int most = swr_get_out_samples(resampler_.get(), samples);
    if (most <= 0)
        return;
    const std::size_t before = output_.size();
    output_.resize(before + static_cast<std::size_t>(most));
    auto* to = reinterpret_cast<std::uint8_t*>(output_.data() + before);
    const int made = swr_convert(resampler_.get(), &to, most, planes, samples);
    output_.resize(before + static_cast<std::size_t>(std::max(made, 0)));
}

void RecordingReader::flush() {
    if (resampler_)
        convert(nullptr, 0);
    resampler_.reset();
}

} // namespace desktop
