// The records of undo and redo.
#include "moments/word_moments.h"

#include <algorithm>
#include <utility>

namespace moments {

void WordMoments::record() {
    forgetRedo();
    records_.push_back(std::exchange(open_, {}));
    if (!openSettled_.empty())
        settled_[records_.size() - 1] = std::exchange(openSettled_, {});
    isOpen_ = false;
    done_ = records_.size();
}

void WordMoments::forgetRedo() {
    settled_.erase(settled_.lower_bound(done_), settled_.end());
    for (; records_.size() > done_; records_.pop_back())
        store_.release(records_.back().removed);
    for (; !undone_.empty(); undone_.pop_back())
        store_.release(undone_.back());
}

// What undo did by itself is told by the record that it leaves.
void WordMoments::close() {
    if (std::exchange(isOpen_, false))
        store_.release(std::exchange(open_, {}).removed);
    openSettled_.clear();
    putBack_ = {};
}

void WordMoments::undoing() {
    const std::uint32_t all = store_.length(root_);
    const Record record = done_ > 0 ? records_[done_ - 1] : Record();
    const bool fits = record.position <= all && record.inserted <= all - record.position;
    undone_.push_back(fits ? store_.slice(root_, record.position, record.inserted) : Piece{record.inserted});
}

void WordMoments::undone() {
    close();
    restoreDoubts();
    done_ -= done_ > 0 ? 1 : 0;
}

void WordMoments::redone() {
    close();
    if (done_ == records_.size())
        return;
    ++done_;
    settleDoubts();
    store_.release(undone_.back());
    undone_.pop_back();
}

std::optional<WordMoments::Piece> WordMoments::takenBack(std::uint32_t count) {
    const PutBack from = std::exchange(putBack_, {});
    const bool undoes = from.from == PutBack::Before;
    if (from.from == PutBack::Nowhere || (undoes ? done_ == 0 : done_ == records_.size()))
        return std::nullopt;
    const Record& record = records_[undoes ? done_ - 1 : done_];
    const Piece again = undoes ? Piece{record.inserted} : undone_.back();
    const Piece& there = undoes ? again : record.removed;
    const Piece& instead = undoes ? record.removed : again;
    const std::uint32_t all = store_.length(root_);
    if (record.position > all || there.length > all - record.position)
        return std::nullopt;
    const std::uint32_t begin = static_cast<std::uint32_t>(std::max(from.position, 0));
    const std::uint32_t neighbour = all - there.length + instead.length;
    if (begin > neighbour || count > neighbour - begin)
        return std::nullopt;
    const auto tree = store_.replaced(root_, record.position, there.length, instead);
    const Piece piece = store_.slice(tree, begin, count);
    store_.release(tree);
    return piece;
}

// The text is the one before the record again: letters behind its change stand where they stood.
void WordMoments::restoreDoubts() {
    const auto settled = settled_.find(done_ - 1);
    if (done_ == 0 || settled == settled_.end())
        return;
    const Record& record = records_[done_ - 1];
    const std::uint32_t more = record.removed.length - record.inserted; // may wrap around, and back
    for (const Settled& letters : settled->second) {
        const std::uint32_t last = letters.begin + letters.length;
        const std::uint32_t begin = letters.begin + (letters.begin < record.position ? 0 : more);
        const std::uint32_t end = last + (last <= record.position ? 0 : more);
        if (end <= store_.length(root_) && begin < end)
            set(static_cast<std::int32_t>(begin), static_cast<std::int32_t>(end - begin), letters.doubtful);
    }
}

void WordMoments::settleDoubts() {
    const auto settled = settled_.find(done_ - 1);
    if (settled == settled_.end())
        return;
    for (Settled letters : settled->second) {
        letters.doubtful.confidence = Moment::noConfidence;
        if (letters.begin + letters.length <= store_.length(root_))
            set(static_cast<std::int32_t>(letters.begin), static_cast<std::int32_t>(letters.length),
                letters.doubtful);
    }
}

} // namespace moments
