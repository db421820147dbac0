#pragma once

#include "base/text.h"
#include "moments/moment_store.h"

#include <deque>
#include <functional>
#include <map>
#include <optional>

namespace moments {

// A change of a text: `inserted` stands where `removed` stood, from `position` on. `before` and `behind` are
// the units around them, 0 at an end of the text.
struct TextEdit {
    std::int32_t position = 0;
    base::TextView removed;
    base::TextView inserted;
    char16_t before = 0;
    char16_t behind = 0;
};

// Letters with their moments, apart from the text: what is cut, copied or dragged, and what a file holds.
struct Timed {
    struct Run {
        std::uint32_t length = 0; // UTF-16 units
        std::optional<Moment> moment;

        bool operator==(const Run&) const = default;
    };
    std::vector<Run> runs;

    std::int64_t length() const;
};

// Which moment each letter of the text has, through every change. A moment goes with its letters. Letters
// that come to a word have the word's; a word that takes the place of another has that one's; a word that is
// changed has no confidence any more. Positions are UTF-16 units, as platform::RichText counts them.
class WordMoments {
public:
    WordMoments() = default;
    WordMoments(const WordMoments&) = delete;
    WordMoments& operator=(const WordMoments&) = delete;
    ~WordMoments();

    // The place that is heard while a new word is begun, in ms; nothing while no recording is open.
    std::function<std::optional<std::int32_t>()> Heard = [] { return std::nullopt; };

    std::int32_t length() const { return static_cast<std::int32_t>(store_.length(root_)); }
    // True when a letter has a moment.
    bool any() const;

    // The text changed.
    void apply(const TextEdit& edit);
    // The text changed; the new letters have these moments. Their lengths add up to those of `inserted`.
    void apply(std::int32_t position, std::int32_t removed, const Timed& inserted);
    // Gives these letters a moment, or none.
    void set(std::int32_t position, std::int32_t count, const std::optional<Moment>& moment);
    // Gives these letters the moments; their lengths add up to no more than the rest of the text.
    void set(std::int32_t position, const Timed& timed);

    // The moment of one letter, or none.
    std::optional<Moment> at(std::int32_t position) const;
    // The first moment of the letters from `begin` to `end`: that of the word which they are.
    std::optional<Moment> first(std::int32_t begin, std::int32_t end) const;
    // The same, or what lies between the neighbours that have one, by the letters between them; nothing where
    // no letter has one.
    std::optional<Moment> estimate(std::int32_t begin, std::int32_t end) const;
    // The place of the letter that is heard at that time, between moments by the time between them; nothing
    // before the first moment.
    std::optional<std::int32_t> heardAt(std::int32_t ms) const;

    Timed timed(std::int32_t position, std::int32_t count) const;

    // Undo and redo. A record tells what the changes since the one before have done; the records are a row,
    // of which undo leaves the last for those that can be done again.
    void record();
    // The last record is undone by the changes to come, and has been undone.
    void undoing();
    void undone();
    void redone();
    // What redo could do is gone.
    void forgetRedo();
    // The next change puts letters back that stood in the text before the last record, or in that of the next
    // one to be done again, at this place of that text.
    void putBackFromBefore(std::int32_t from) { putBack_ = {PutBack::Before, from}; }
    void putBackFromNext(std::int32_t from) { putBack_ = {PutBack::Next, from}; }

    // Bytes that all of it takes, records included.
    std::size_t bytes() const { return store_.bytes() + records_.size() * sizeof(Record); }

private:
    using Piece = MomentStore::Piece;

    // Of the letters that came only the number: the text has them, until they are undone.
    struct Record {
        std::uint32_t position = 0;
        std::uint32_t inserted = 0;
        Piece removed;
    };
    // Letters that a change left in the text but took the doubt from, by their positions after it.
    struct Settled {
        std::uint32_t begin = 0;
        std::uint32_t length = 0;
        Moment doubtful;
    };
    struct PutBack {
        enum From : std::uint8_t { Nowhere, Before, Next } from = Nowhere;
        std::int32_t position = 0;
    };

    // Takes over `inserted`.
    void replace(std::uint32_t position, std::uint32_t removed, Piece inserted);
    void note(std::uint32_t position, Piece removed, std::uint32_t inserted);
    void close();
    Piece pieceOf(const Timed& timed);
    // Letters that come back, out of a neighbouring record; nothing when it does not hold so many.
    std::optional<Piece> takenBack(std::uint32_t count);
    Piece pieceOfWords(const TextEdit& edit);
    // For each word of the new letters the moment of the old word that it stands for, 0 for none.
    std::vector<std::uint32_t> momentsOfReplaced(const TextEdit& edit);
    void trustTouched(const TextEdit& edit);
    void trust(std::uint32_t position);
    // The doubts that the last done record settled come back, or go again.
    void restoreDoubts();
    void settleDoubts();
    std::uint32_t trusted(std::uint32_t number);
    std::uint32_t momentOfNewWord(std::uint32_t position, std::uint32_t removed);
    std::uint32_t numberAt(std::uint32_t position) const;
    std::uint32_t firstNumber(std::uint32_t begin, std::uint32_t end) const;

    MomentStore store_;
    MomentStore::Owned root_ = 0;
    std::deque<Record> records_;
    std::size_t done_ = 0;                                // records that are not undone
    std::map<std::size_t, std::vector<Settled>> settled_; // by the record, for those few that did
    std::vector<Settled> openSettled_;
    std::vector<Piece> undone_; // what the others had inserted, the next to be done again last
    Record open_;               // what changed since the last record
    bool isOpen_ = false;
    PutBack putBack_;
};

} // namespace moments
