#include "safety/journal.h"

#include "base/carry_on.h"

#include <algorithm>

namespace safety {

namespace {

constexpr int gatherAfter = 300; // ms after the first change; leaves the disk the rest of the second
constexpr int retryAfter = 2000; // ms between attempts while the disk fails
constexpr int checkAfter = 300;  // ms between looks whether the disk has written
constexpr std::uint64_t leastCompacted = 1'000'000; // bytes
constexpr std::uint64_t timesTheText = 4; // a journal longer than this multiple of the text is rewritten

} // namespace

Journal::Journal(platform::EventLoop& loop, platform::Worker& disk, JournalSource& source, base::Text path)
    : disk_(disk), source_(source), shared_(std::make_shared<Shared>(std::move(path))),
      soon_(loop.alarm([this] { gather(); })), written_(loop.alarm([this] { check(); })) {}

void Journal::changed() {
    if (armed_)
        return;
    armed_ = true;
    retrying_ = shared_->failed;
    soon_->start(retrying_ ? retryAfter : gatherAfter);
}

void Journal::gather() {
    armed_ = false;
    soon_->stop();
    written_->start(checkAfter);
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

void Journal::check() {
    if (shared_->pending > 0)
        return;
    written_->stop();
    reportFailure();
    // The retry has succeeded, so what was typed meanwhile need not wait for another one.
    if (!shared_->failed && std::exchange(retrying_, false) && armed_)
        soon_->start(gatherAfter);
}

void Journal::beginAnew(const std::string& source) {
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
    ++shared_->pending;
    disk_.post([shared = shared_, records = std::move(records), anew] {
        try {
            if (anew)
                shared->begin(records);
            else
                shared->append(records);
            shared->failed = false;
        } catch (const base::Failure& failure) {
            const std::lock_guard lock(shared->mutex);
            shared->reason = base::fromUtf8(failure.what());
            shared->failed = true;
            shared->mustBegin = true;
        }
        --shared->pending;
    });
}

void Journal::Shared::begin(const std::string& records) {
    file.begin(records);
    size = records.size();
    mostBytes = std::max(leastCompacted, timesTheText * size);
}

void Journal::Shared::append(const std::string& records) {
    file.append(records);
    size += records.size();
    if (size > mostBytes)
        compact();
}

// Reads the file instead of asking for the whole text, so that no key has to wait. A failure loses nothing,
// because the long file is still complete.
void Journal::Shared::compact() {
    mostBytes = 2 * size;
    const Work work = replay(file.records());
    if (!work.whole || work.source.empty())
        mustBegin = true;
    else
        base::carryOn([&] {
            begin(framed(RecordType::Source, work.source) + framed(RecordType::State, packed(work.document)) +
                  framed(RecordType::Marks, packed(work.marks)));
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
    written_->stop();
    disk_.drain();
}

void Journal::close() {
    soon_->stop();
    written_->stop();
    armed_ = false;
    shared_->mustBegin = true;
    disk_.post([shared = shared_] {
        try {
            shared->file.remove();
        } catch (const base::Failure&) {
            // On a read-only disk the next start finds it and compares the text with its file.
            return;
        }
    });
    disk_.drain();
}

} // namespace safety
