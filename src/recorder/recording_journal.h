#pragma once

#include "base/files.h"
#include "platform/wave_input.h"

#include <optional>
#include <vector>

namespace recorder {

// Notes which recordings run and their formats, because a recording's file has no header until it ends. Notes
// left at the next start belong to recordings that a crash cut off. Keeps the newest 50.
class RecordingJournal {
public:
    struct Entry {
        base::Text path;
        platform::WaveFormat format;
    };

    // The journal file exists only while it has notes.
    RecordingJournal(const base::TextFiles& files, base::Text path) : files_(files), path_(std::move(path)) {}

    // Both throw Failure if the journal cannot be written.
    void begun(base::TextView recording, const platform::WaveFormat& format);
    void finished(base::TextView recording);

    // All notes, in the order in which the recordings started; invalid lines are skipped.
    std::vector<Entry> entries() const;
    // The format of this recording, if there is a note of it.
    std::optional<platform::WaveFormat> formatOf(base::TextView recording) const;

private:
    void write(const std::vector<Entry>& entries) const;

    const base::TextFiles& files_;
    base::Text path_;
};

} // namespace recorder
