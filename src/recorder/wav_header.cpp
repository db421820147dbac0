#include "recorder/wav_header.h"

#include <algorithm>
#include <limits>

namespace recorder {

namespace {

constexpr std::uint32_t formatSize = 16;   // bytes of the "fmt " chunk
constexpr std::uint32_t riffOverhead = 36; // size of the RIFF chunk without the samples, in bytes

void append(std::string& bytes, std::uint32_t value, int count) {
    for (int i = 0; i < count; ++i)
        bytes += static_cast<char>(value >> (8 * i) & 0xFFU);
}

} // namespace

platform::WaveFormat pcmFormat(int channels, int bits, int samplesPerSec) {
    platform::WaveFormat format;
    format.channels = static_cast<std::int16_t>(channels);
    format.bitsPerSample = static_cast<std::int16_t>(bits);
    format.samplesPerSec = samplesPerSec;
    format.blockAlign = static_cast<std::int16_t>(channels * bits / 8);
    format.avgBytesPerSec = samplesPerSec * format.blockAlign;
    return format;
}

std::string wavHeader(const platform::WaveFormat& format, std::uint64_t fileLength) {
    constexpr std::uint64_t longest = std::numeric_limits<std::uint32_t>::max() - riffOverhead + headerSize;
    const auto dataSize = static_cast<std::uint32_t>(std::min(fileLength, longest) - headerSize);
    std::string bytes = "RIFF";
    append(bytes, dataSize + riffOverhead, 4);
    bytes += "WAVEfmt ";
    append(bytes, formatSize, 4);
    append(bytes, static_cast<std::uint16_t>(format.formatTag), 2);
    append(bytes, static_cast<std::uint16_t>(format.channels), 2);
    append(bytes, static_cast<std::uint32_t>(format.samplesPerSec), 4);
    append(bytes, static_cast<std::uint32_t>(format.avgBytesPerSec), 4);
    append(bytes, static_cast<std::uint16_t>(format.blockAlign), 2);
    append(bytes, static_cast<std::uint16_t>(format.bitsPerSample), 2);
    bytes += "data";
    append(bytes, dataSize, 4);
    return bytes;
}

} // namespace recorder
