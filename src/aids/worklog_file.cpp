#include "aids/worklog_file.h"

#include "aids/csv.h"
#include "base/carry_on.h"
#include "base/files.h"
#include "base/numbers.h"

#include <mutex>
#include <utility>

namespace aids {

namespace {

constexpr std::string_view head = "\xEF\xBB\xBF"
                                  "date,recording,document,seconds worked,seconds of sound,words\r\n";

std::string rowOf(const WorkEntry& entry) {
    std::string row;
    for (const base::Text& name : {entry.date, entry.recording, entry.document})
        row += csvCell(name) + ',';
    return row + std::to_string(entry.secondsWorked) + ',' + std::to_string(entry.secondsOfSound) + ',' +
           std::to_string(entry.words) + "\r\n";
}

constexpr double most = 1e12; // a number in the file

// Replaces the file as a whole, with `row` at its end in the place of `before`.
void append(const base::Text& path, const std::string& before, const std::string& row) {
    std::string bytes = base::fileExists(path) ? base::readFile(path) : std::string();
    if (bytes.empty())
        bytes = head;
    if (!before.empty() && bytes.ends_with(before))
        bytes.resize(bytes.size() - before.size());
    else if (!bytes.ends_with('\n'))
        bytes += "\r\n";
    base::replacePrivateFile(path, bytes + row);
}

} // namespace

struct WorklogFile::Outcome {
    std::mutex mutex;
    base::Text failure;
};

WorklogFile::WorklogFile(base::Text path, platform::Worker& disk)
    : path_(std::move(path)), disk_(disk), outcome_(std::make_shared<Outcome>()) {}

void WorklogFile::write(const WorkEntry& entry) {
    std::string row = rowOf(entry);
    if (row == written_)
        return;
    std::string before = std::exchange(written_, row);
    disk_.post([outcome = outcome_, path = path_, before = std::move(before), row = std::move(row)] {
        base::Text failure;
        base::carryOn([&] { append(path, before, row); },
                      [&](const char* reason) { failure = base::fromUtf8(reason); });
        const std::lock_guard lock(outcome->mutex);
        outcome->failure = std::move(failure);
    });
}

std::optional<base::Text> WorklogFile::newFailure() {
    const std::lock_guard lock(outcome_->mutex);
    if (outcome_->failure == told_)
        return std::nullopt;
    told_ = outcome_->failure;
    return told_.empty() ? std::nullopt : std::optional(told_);
}

std::vector<WorkEntry> WorklogFile::read() const {
    disk_.drain();
    std::string bytes;
    base::carryOn([&] { bytes = base::readFile(path_); });
    std::vector<WorkEntry> entries;
    for (const std::vector<base::Text>& row : csvRows(bytes)) {
        if (row.size() < 6 || !base::isNumber(row[3]) || !base::isNumber(row[4]) || !base::isNumber(row[5]))
            continue;
        const auto number = [](base::TextView cell) {
            return static_cast<std::int64_t>(std::clamp(base::val(cell), 0.0, most));
        };
        entries.push_back({row[0], row[1], row[2], number(row[3]), number(row[4]), number(row[5])});
    }
    return entries;
}

} // namespace aids
