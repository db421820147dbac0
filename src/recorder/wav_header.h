// The 44-byte header of a recording.
#pragma once

#include "platform/wave_input.h"

#include <cstdint>
#include <string>

namespace recorder {

inline constexpr std::uint64_t headerSize = 44; // bytes

// A format with its dependent fields computed. Channels are 1 or 2, bits 8 or 16.
platform::WaveFormat pcmFormat(int channels, int bits, int samplesPerSec);

// The header of a file of `fileLength` bytes, including the header. Below 44 bytes the sizes wrap around
// (settled behaviour). If a size overflows 32 bits, the largest one is written, which players understand as
// "up to the end".
std::string wavHeader(const platform::WaveFormat& format, std::uint64_t fileLength);

} // namespace recorder
