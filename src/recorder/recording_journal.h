#pragma once

#include "base/files.h"
#include "platform/wave_input.h"

#include <optional>
#include <vector>

namespace recorder {

// Notes which recordings run and how their samples look: their files have no header before they end. What it
// still holds at the next start was cut off by a crash. It keeps the newest 50.
class RecordingJournal {
public:
    struct Entry {
        base::Text path;
        platform::WaveFormat format;
    };

    // The file at `path` exists only while there is something to note.
    RecordingJournal(const base::TextFiles& files, base::Text path) : files_(files), path_(std::move(path)) {}

    // Both throw Failure when the journal cannot be written.
    void begun(base::TextView recording, const platform::WaveFormat& format);
    void finished(base::TextView recording);

    // In the order of their start; lines that make no sense are left out.
    std::vector<Entry> entries() const;
    // The format of this recording, if it was noted.
    std::optional<platform::WaveFormat> formatOf(base::TextView recording) const;

private:
    void write(const std::vector<Entry>& entries) const;

    const base::TextFiles& files_;
    base::Text path_;
};

} // namespace recorder
