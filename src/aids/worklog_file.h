#pragma once

#include "base/text.h"
#include "platform/worker.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace aids {

// What was done on one day with one recording and one document.
struct WorkEntry {
    base::Text date; // as 2026-01-31
    base::Text recording;
    base::Text document;
    std::int64_t secondsWorked = 0;
    std::int64_t secondsOfSound = 0;
    std::int64_t words = 0;

    bool operator==(const WorkEntry&) const = default;
};

// The worklog as a table for spreadsheets. Only the last row that this program wrote is ever changed; what
// others have written stays.
class WorklogFile {
public:
    WorklogFile(base::Text path, platform::Worker& disk);

    // Writes the entry on the worker, over the one written before unless it is ended.
    void write(const WorkEntry& entry);
    // The next entry is another one.
    void endEntry() { written_.clear(); }
    // All entries, once the disk has those that were written. Rows that are none are skipped; a file that
    // cannot be read has none.
    std::vector<WorkEntry> read() const;
    // Why the last write failed, once for each change of the reason.
    std::optional<base::Text> newFailure();

private:
    struct Outcome;

    base::Text path_;
    platform::Worker& disk_;
    std::string written_; // the row that the next one replaces
    std::shared_ptr<Outcome> outcome_;
    base::Text told_;
};

} // namespace aids
