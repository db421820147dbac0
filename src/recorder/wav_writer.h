#pragma once

#include "base/binary_file.h"
#include "platform/wave_input.h"
#include "recorder/disk_flusher.h"

#include <cstdint>
#include <memory>
#include <string_view>
#include <utility>

namespace recorder {

// The WAV file of a recording: its place for the header stays empty until the end, when the length is known.
// Positions are counted from 1. Every statement that fails is skipped.
class WavWriter {
public:
    // A recording begins; without a file when the name is empty, and then only the counter runs. A file of
    // this name is deleted first.
    void begin(base::TextView fileName);
    // What the samples of this recording look like, and by how many bytes one buffer moves the position.
    void describe(const platform::WaveFormat& format, std::int32_t dimBuffer);

    // Puts one block at the position, and moves that by the size of a buffer, whatever the size of the block.
    void ScriviBlocco(std::string_view dati);
    // Writes the header, and one 0 behind it, over the first byte of the samples.
    void ScriviIntestazione();
    // Brings the file to the disk and lets it go.
    void close();

    bool ConFile() const { return withFile_; }
    bool HeaderScritto() const { return headerWritten_; }
    // Why the last block could not be written, in the system's words; told once.
    base::Text takeFailure() { return std::exchange(failure_, {}); }
    // Position in the file; without one, bytes counted.
    std::int64_t BytesScritti() const { return position_; }

private:
    void write(std::int64_t position, std::string_view bytes);

    std::unique_ptr<base::BinaryFile> file_;
    std::unique_ptr<DiskFlusher> flusher_; // ends before its file does
    platform::WaveFormat format_;
    base::Text failure_;
    std::int32_t dimBuffer_ = 0;
    std::int64_t position_ = 0;
    bool withFile_ = false;
    bool headerWritten_ = false;
};

} // namespace recorder
