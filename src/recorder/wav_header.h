// The 44 bytes at the head of a recording.
#pragma once

#include "platform/wave_input.h"

#include <cstdint>
#include <string>

namespace recorder {

inline constexpr std::uint64_t headerSize = 44; // bytes

// The format with the fields that follow from the others filled in. Channels 1 or 2, bits 8 or 16.
platform::WaveFormat pcmFormat(int channels, int bits, int samplesPerSec);

// The header of a file of this many bytes, itself included. Sizes wrap around below 44 bytes, as they always
// did; a file too long for their 32 bits gets the greatest, which players take as "up to the end".
std::string wavHeader(const platform::WaveFormat& format, std::uint64_t fileLength);

} // namespace recorder
