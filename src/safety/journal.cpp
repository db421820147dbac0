#include "safety/journal.h"

#include "base/failure.h"

#include <algorithm>

namespace safety {

namespace {

constexpr int gatherAfter = 300; // ms after the first change; leaves the disk the rest of the second
constexpr int retryAfter = 2000; // ms between attempts while the disk fails
constexpr int idleAfter = 2000;  // ms without a change
constexpr std::size_t leastCompacted = 1'000'000; // bytes
constexpr std::size_t timesTheText = 4; // a journal longer than this multiple of the text is rewritten

} // namespace

Journal::Journal(platform::EventLoop& loop, platform::Worker& disk, JournalSource& source, base::Text path)
    : disk_(disk), source_(source), shared_(std::make_shared<Shared>(std::move(path))),
      soon_(loop.alarm([this] { gather(); })), idle_(loop.alarm([this] { gatherIdle(); })) {}

void Journal::changed() {
    if (armed_)
        return;
    armed_ = true;
    soon_->start(shared_->failed ? retryAfter : gatherAfter);
}

void Journal::gather() {
    armed_ = false;
    soon_->stop();
    idle_->start(idleAfter);
    reportFailure();
    if (shared_->mustBegin.exchange(false)) {
        beginAnew(source_.wholeText());
        return;
    }
    std::string records;
    if (const auto change = source_.takeChange()) {
        if (change->whole) {
            beginAnew(change->source);
            return;
        }
        records = framed(RecordType::Change, packed(*change));
    }
    records += stateRecords();
    if (!records.empty())
        write(std::move(records), false);
}

// Rewrites a journal that has grown too long, while the user pauses.
void Journal::gatherIdle() {
    idle_->stop();
    reportFailure();
    if (shared_->size > std::max(leastCompacted, timesTheText * sourceSize_))
        beginAnew(source_.wholeText());
}

void Journal::beginAnew(const std::string& source) {
    sourceSize_ = source.size();
    lastState_.reset();
    lastMarks_.reset();
    write(framed(RecordType::Source, source) + stateRecords(), true);
}

std::string Journal::stateRecords() {
    std::string records;
    if (DocumentState state = source_.documentState(); state != lastState_) {
        records += framed(RecordType::State, packed(state));
        lastState_ = std::move(state);
    }
    if (Marks marks = source_.marks(); marks != lastMarks_) {
        records += framed(RecordType::Marks, packed(marks));
        lastMarks_ = std::move(marks);
    }
    return records;
}

void Journal::write(std::string records, bool anew) {
    disk_.post([shared = shared_, records = std::move(records), anew] {
        try {
            if (anew) {
                shared->file.begin(records);
                shared->size = records.size();
            } else {
                shared->file.append(records);
                shared->size += records.size();
            }
            shared->failed = false;
        } catch (const base::Failure& failure) {
            const std::lock_guard lock(shared->mutex);
            shared->reason = base::fromUtf8(failure.what());
            shared->failed = true;
            shared->mustBegin = true;
        }
    });
}

// The disk thread cannot call into the event loop, so the timer polls for its errors. While the disk fails,
// the timer keeps retrying.
void Journal::reportFailure() {
    if (!shared_->failed) {
        reported_ = false;
        return;
    }
    changed();
    if (std::exchange(reported_, true))
        return;
    base::Text reason;
    {
        const std::lock_guard lock(shared_->mutex);
        reason = shared_->reason;
    }
    Failed(reason);
}

void Journal::flush() {
    gather();
    idle_->stop();
    disk_.drain();
}

void Journal::close() {
    soon_->stop();
    idle_->stop();
    armed_ = false;
    shared_->mustBegin = true;
    disk_.post([shared = shared_] {
        try {
            shared->file.remove();
        } catch (const base::Failure&) {
            // A journal that remains is restored at the next start, so nothing is lost.
            return;
        }
    });
    disk_.drain();
}

} // namespace safety
