#include "recorder/wav_writer.h"

#include "base/carry_on.h"
#include "base/files.h"
#include "recorder/wav_header.h"

#include <chrono>

namespace recorder {

namespace {

constexpr std::chrono::milliseconds pauseBetweenFlushes{500};

} // namespace

void WavWriter::begin(base::TextView fileName) {
    close();
    position_ = 0;
    withFile_ = !fileName.empty();
    if (!withFile_)
        return;
    notOpen_.clear();
    base::carryOn([&] { base::removeFile(fileName); });
    base::carryOn(
        [&] {
            file_ = std::make_unique<base::BinaryFile>(fileName);
            // If the disk is full or gone, the error is ignored; the next run tries again.
            flusher_ = std::make_unique<base::WakeThread>(
                [&file = *file_] { base::carryOn([&] { file.sync(); }); }, pauseBetweenFlushes);
        },
        [this](const char* reason) { notOpen_ = reason; });
    position_ = headerSize + 1;
    headerWritten_ = false;
}

void WavWriter::describe(const platform::WaveFormat& format, std::int32_t dimBuffer) {
    format_ = format;
    dimBuffer_ = dimBuffer;
}

void WavWriter::ScriviBlocco(std::string_view dati) {
    if (dati.empty()) {
        position_ += dimBuffer_;
        return;
    }
    if (position_ == 0)
        position_ = 1;
    failure_.clear();
    base::carryOn([&] { write(position_, dati); },
                  [this](const char* reason) { failure_ = base::fromUtf8(reason); });
    position_ += dimBuffer_;
}

void WavWriter::ScriviIntestazione() {
    failure_.clear();
    base::carryOn(
        [&] {
            if (!file_)
                throw base::Failure(notOpen_);
            write(1, wavHeader(format_, file_->length()) + '\0');
        },
        [this](const char* reason) { failure_ = base::fromUtf8(reason); });
    headerWritten_ = true;
}

void WavWriter::close() {
    flusher_.reset();
    if (file_)
        base::carryOn([&] { file_->sync(); });
    file_.reset();
}

void WavWriter::write(std::int64_t position, std::string_view bytes) {
    if (!file_)
        throw base::Failure(notOpen_);
    file_->writeAt(static_cast<std::uint64_t>(position) - 1, bytes);
    flusher_->wake();
}

} // namespace recorder
