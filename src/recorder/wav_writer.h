#pragma once

#include "base/binary_file.h"
#include "base/wake_thread.h"
#include "platform/wave_input.h"

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace recorder {

// Writes the WAV file of a recording. The space for the header stays empty until the end, when the length is
// known. Positions are counted from 1. A statement that fails is skipped.
class WavWriter {
public:
    // Starts a recording and deletes an existing file of this name. Without a name there is no file, and only
    // the byte counter runs.
    void begin(base::TextView fileName);
    // Sets the sample format, and the number of bytes by which each buffer advances the position.
    void describe(const platform::WaveFormat& format, std::int32_t dimBuffer);

    // Writes one block at the position, then advances the position by the size of a buffer, whatever the
    // block's size.
    void ScriviBlocco(std::string_view dati);
    // Writes the header and a 0 byte after it, which overwrites the first byte of the samples. Settled
    // behaviour.
    void ScriviIntestazione();
    // Flushes the file to the disk and closes it.
    void close();

    bool ConFile() const { return withFile_; }
    bool HeaderScritto() const { return headerWritten_; }
    // The system's message if the last block or the header could not be written, otherwise empty.
    const base::Text& failure() const { return failure_; }
    // Position in the file; without a file, the number of bytes counted.
    std::int64_t BytesScritti() const { return position_; }

private:
    void write(std::int64_t position, std::string_view bytes);

    std::unique_ptr<base::BinaryFile> file_;
    std::unique_ptr<base::WakeThread> flusher_; // must end before file_ does
    platform::WaveFormat format_;
    std::string notOpen_; // why there is no file
    base::Text failure_;
    std::int32_t dimBuffer_ = 0;
    std::int64_t position_ = 0;
    bool withFile_ = false;
    bool headerWritten_ = false;
};

} // namespace recorder
