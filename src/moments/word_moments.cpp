#include "moments/word_moments.h"

#include "moments/alignment.h"
#include "moments/word_units.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace moments {

namespace {

std::uint32_t unsignedOf(std::int32_t value) {
    return static_cast<std::uint32_t>(std::max(value, 0));
}

// The edit without the units at either end that were there before: a control may tell more than what changed.
TextEdit trimmed(TextEdit edit) {
    const auto shorter = [&] { return std::min(edit.removed.size(), edit.inserted.size()); };
    std::size_t same = 0;
    while (same < shorter() && edit.removed[same] == edit.inserted[same])
        ++same;
    if (same > 0)
        edit.before = edit.removed[same - 1];
    edit.position += static_cast<std::int32_t>(same);
    edit.removed.remove_prefix(same);
    edit.inserted.remove_prefix(same);
    for (; shorter() > 0 && edit.removed.back() == edit.inserted.back(); edit.inserted.remove_suffix(1)) {
        edit.behind = edit.removed.back();
        edit.removed.remove_suffix(1);
    }
    return edit;
}

// A time at `part` of `whole` letters between two others.
std::int32_t between(std::int32_t first, std::int32_t last, std::int64_t part, std::int64_t whole) {
    if (whole <= 0 || last <= first)
        return first;
    return static_cast<std::int32_t>(first + (std::int64_t{last} - first) * part / whole);
}

} // namespace

std::int64_t Timed::length() const {
    return std::accumulate(runs.begin(), runs.end(), std::int64_t{0},
                           [](std::int64_t sum, const Run& run) { return sum + run.length; });
}

WordMoments::~WordMoments() = default;

bool WordMoments::any() const {
    return store_.timedFrom(root_, 0) < store_.length(root_);
}

void WordMoments::replace(std::uint32_t position, std::uint32_t removed, Piece inserted) {
    const std::uint32_t all = store_.length(root_);
    position = std::min(position, all);
    removed = std::min(removed, all - position);
    const Piece gone = store_.slice(root_, position, removed);
    const MomentStore::Owned after = store_.replaced(root_, position, removed, inserted);
    note(position, gone, inserted.length);
    store_.release(inserted);
    store_.release(std::exchange(root_, after));
}

// Takes over the piece. The tree is still the one before the change.
void WordMoments::note(std::uint32_t position, Piece removed, std::uint32_t inserted) {
    if (!std::exchange(isOpen_, true)) {
        open_ = {position, inserted, removed};
        return;
    }
    // One change over both.
    const Record first = std::exchange(open_, {});
    const std::uint32_t begin = std::min(first.position, position);
    const std::uint32_t end = std::max(first.position + first.inserted, position + removed.length);
    const auto before = store_.replaced(root_, first.position, first.inserted, first.removed);
    open_ = {begin, end - begin + inserted - removed.length,
             store_.slice(before, begin, end - begin + first.removed.length - first.inserted)};
    store_.release(before);
    store_.release(first.removed);
    store_.release(removed);
}

void WordMoments::apply(const TextEdit& told) {
    const TextEdit edit = trimmed(told);
    const std::uint32_t position = unsignedOf(edit.position);
    const auto removed = static_cast<std::uint32_t>(edit.removed.size());
    if (removed == 0 && edit.inserted.empty()) {
        putBack_ = {};
        return;
    }
    const auto back = takenBack(static_cast<std::uint32_t>(edit.inserted.size()));
    if (isOpen_)
        openSettled_.clear(); // two changes in one record: the places of the first no longer hold
    replace(position, removed, back ? *back : pieceOfWords(edit));
    if (!back)
        trustTouched(edit);
}

// A recogniser's doubt is about its own letters.
void WordMoments::trustTouched(const TextEdit& edit) {
    const auto touches = [](char16_t first, char16_t second) {
        return first != 0 && second != 0 && inOneWord(first, second);
    };
    const auto end = [](base::TextView text, bool front) {
        return text.empty() ? u'\0' : front ? text.front() : text.back();
    };
    const std::uint32_t position = unsignedOf(edit.position);
    const bool splits = edit.removed.empty() && touches(edit.before, edit.behind);
    if (splits || touches(edit.before, end(edit.inserted, true)) ||
        touches(edit.before, end(edit.removed, true)))
        trust(position - 1);
    if (splits || touches(end(edit.inserted, false), edit.behind) ||
        touches(end(edit.removed, false), edit.behind))
        trust(position + static_cast<std::uint32_t>(edit.inserted.size()));
}

void WordMoments::trust(std::uint32_t position) {
    const std::uint32_t all = store_.length(root_);
    const std::uint32_t number = position < all ? numberAt(position) : 0;
    const std::uint32_t sure = trusted(number);
    if (sure == number)
        return;
    auto [begin, run] = store_.runAt(root_, position);
    std::uint32_t end = begin + run.length;
    while (begin > 0 && numberAt(begin - 1) == number)
        begin = store_.runAt(root_, begin - 1).first;
    while (end < all && numberAt(end) == number)
        end += store_.runAt(root_, end).second.length;
    openSettled_.push_back({begin, end - begin, store_.moment(number)});
    set(static_cast<std::int32_t>(begin), static_cast<std::int32_t>(end - begin), store_.moment(sure));
}

// The number of the same moment without a doubt.
std::uint32_t WordMoments::trusted(std::uint32_t number) {
    if (number == 0 || store_.moment(number).confidence == Moment::noConfidence)
        return number;
    Moment moment = store_.moment(number);
    moment.confidence = Moment::noConfidence;
    return store_.add(moment);
}

void WordMoments::apply(std::int32_t position, std::int32_t removed, const Timed& inserted) {
    putBack_ = {};
    replace(unsignedOf(position), unsignedOf(removed), pieceOf(inserted));
}

WordMoments::Piece WordMoments::pieceOf(const Timed& timed) {
    std::vector<Run> runs;
    runs.reserve(timed.runs.size());
    std::optional<Moment> last;
    std::uint32_t number = 0;
    for (const Timed::Run& run : timed.runs) {
        if (run.moment && run.moment != last) {
            last = run.moment;
            number = store_.add(*run.moment);
        }
        runs.push_back({run.length, run.moment ? number : 0});
    }
    return store_.piece(runs);
}

WordMoments::Piece WordMoments::pieceOfWords(const TextEdit& edit) {
    const std::uint32_t position = unsignedOf(edit.position);
    const auto removed = static_cast<std::uint32_t>(edit.removed.size());
    const base::TextView text = edit.inserted;
    if (text.empty())
        return {};
    const bool joinsLeft = edit.before != 0 && inOneWord(edit.before, text.front());
    const bool joinsRight = edit.behind != 0 && inOneWord(text.back(), edit.behind);
    const std::uint32_t left = joinsLeft && position > 0 ? numberAt(position - 1) : 0;
    const std::uint32_t right = joinsRight ? numberAt(position + removed) : 0;
    std::size_t words = 0;
    forEachWord(text, [&](std::size_t, base::TextView) { ++words; });
    // A letter or two of one word, which is what most keys bring.
    if (words == 1 && left != 0 && !isBlank(text.front()) && !isBlank(text.back()))
        return MomentStore::uniformPiece(static_cast<std::uint32_t>(text.size()), left);
    const std::vector<std::uint32_t> replaced = momentsOfReplaced(edit);
    std::vector<Run> runs;
    std::size_t at = 0;
    std::size_t word = 0;
    forEachWord(text, [&](std::size_t begin, base::TextView letters) {
        std::uint32_t number = word == 0 && left != 0 ? left : 0;
        if (number == 0 && word < replaced.size())
            number = replaced[word];
        if (number == 0 && word + 1 == words)
            number = right;
        const bool isNew = !(word == 0 && joinsLeft) && !(word + 1 == words && joinsRight);
        if (number == 0 && isNew && words == 1)
            number = momentOfNewWord(position, removed);
        runs.push_back({static_cast<std::uint32_t>(begin - at), 0});
        runs.push_back({static_cast<std::uint32_t>(letters.size()), number});
        at = begin + letters.size();
        ++word;
    });
    runs.push_back({static_cast<std::uint32_t>(text.size() - at), 0});
    return store_.piece(runs);
}

std::vector<std::uint32_t> WordMoments::momentsOfReplaced(const TextEdit& edit) {
    const std::uint32_t position = unsignedOf(edit.position);
    const auto removed = static_cast<std::uint32_t>(edit.removed.size());
    if (removed == 0 || store_.timedFrom(root_, position) >= position + removed)
        return {};
    std::vector<std::uint32_t> numbers;
    std::vector<std::uint16_t> old;
    forEachWord(edit.removed, [&](std::size_t begin, base::TextView letters) {
        const std::uint32_t first = position + static_cast<std::uint32_t>(begin);
        numbers.push_back(firstNumber(first, first + static_cast<std::uint32_t>(letters.size())));
        old.push_back(wordHash(letters));
    });
    std::vector<std::uint16_t> fresh;
    forEachWord(edit.inserted,
                [&](std::size_t, base::TextView letters) { fresh.push_back(wordHash(letters)); });
    // One that stands for several, or several for one: it begins where they began.
    if (fresh.size() <= 1 || numbers.size() == 1) {
        const auto first =
            std::find_if(numbers.begin(), numbers.end(), [](auto number) { return number != 0; });
        return {first == numbers.end() ? 0 : trusted(*first)};
    }
    std::vector<std::uint32_t> result;
    for (const std::size_t match : align(old, fresh)) {
        const bool same = match != unmatched && old[match] == fresh[result.size()];
        const std::uint32_t number = match == unmatched ? 0 : numbers[match];
        result.push_back(same ? number : trusted(number));
    }
    return result;
}

// In front of words that have moments, only a time between those of the neighbours is this word's.
std::uint32_t WordMoments::momentOfNewWord(std::uint32_t position, std::uint32_t removed) {
    const auto heard = Heard();
    if (!heard)
        return 0;
    const std::uint32_t all = store_.length(root_);
    const std::uint32_t next = store_.timedFrom(root_, position + removed);
    if (next < all) {
        const std::uint32_t before = store_.timedBefore(root_, position);
        if (*heard > store_.moment(numberAt(next)).start ||
            (before < all && *heard < store_.moment(numberAt(before)).start))
            return 0;
    }
    return store_.add({.start = std::max(*heard, 0)});
}

std::uint32_t WordMoments::numberAt(std::uint32_t position) const {
    return store_.runAt(root_, position).second.moment;
}

std::uint32_t WordMoments::firstNumber(std::uint32_t begin, std::uint32_t end) const {
    const std::uint32_t first = store_.timedFrom(root_, begin);
    return first < std::min(end, store_.length(root_)) ? numberAt(first) : 0;
}

void WordMoments::set(std::int32_t position, std::int32_t count, const std::optional<Moment>& moment) {
    set(position, Timed{{{unsignedOf(count), moment}}});
}

// Open changes, and the records, speak of letters: which moment those have now is nobody's change.
void WordMoments::set(std::int32_t position, const Timed& timed) {
    const std::uint32_t all = store_.length(root_);
    const std::uint32_t begin = std::min(unsignedOf(position), all);
    const Piece piece = pieceOf(timed);
    const std::uint32_t count = std::min(piece.length, all - begin);
    const Piece fitting = store_.slice(piece, 0, count);
    const auto after = store_.replaced(root_, begin, count, fitting);
    store_.release(piece);
    store_.release(fitting);
    store_.release(std::exchange(root_, after));
}

std::optional<Moment> WordMoments::at(std::int32_t position) const {
    const std::uint32_t number = position < 0 ? 0 : numberAt(unsignedOf(position));
    return number == 0 ? std::nullopt : std::optional(store_.moment(number));
}

std::optional<Moment> WordMoments::first(std::int32_t begin, std::int32_t end) const {
    const std::uint32_t number = firstNumber(unsignedOf(begin), unsignedOf(end));
    return number == 0 ? std::nullopt : std::optional(store_.moment(number));
}

std::optional<Moment> WordMoments::estimate(std::int32_t begin, std::int32_t end) const {
    if (const auto own = first(begin, end))
        return own;
    const std::uint32_t all = store_.length(root_);
    const std::uint32_t place = unsignedOf(begin);
    const std::uint32_t next = store_.timedFrom(root_, place);
    const std::uint32_t last = store_.timedBefore(root_, place);
    if (last == all && next == all)
        return std::nullopt;
    if (last == all)
        return Moment{.start = at(static_cast<std::int32_t>(next))->start};
    const auto [from, run] = store_.runAt(root_, last);
    const Moment before = store_.moment(run.moment);
    const bool ends = before.end != Moment::noEnd;
    if (next == all)
        return Moment{.start = ends ? before.end : before.start};
    const std::int32_t behind = at(static_cast<std::int32_t>(next))->start;
    const std::uint32_t base = ends ? last + 1 : from;
    return Moment{.start = between(ends ? before.end : before.start, behind, place - base, next - base)};
}

std::optional<std::int32_t> WordMoments::heardAt(std::int32_t ms) const {
    const std::uint32_t all = store_.length(root_);
    const std::uint32_t place = store_.heardAt(root_, ms);
    if (place == all)
        return std::nullopt;
    const Run run = store_.runAt(root_, place).second;
    const Moment moment = store_.moment(run.moment);
    const bool ends = moment.end != Moment::noEnd;
    const std::uint32_t next = store_.timedFrom(root_, place + run.length);
    if (next == all || (ends && ms < moment.end))
        return static_cast<std::int32_t>(place);
    const Moment behind = store_.moment(numberAt(next));
    const std::int32_t begin = ends ? moment.end : moment.start;
    if (behind.start <= ms || behind.start <= begin)
        return static_cast<std::int32_t>(place);
    const std::uint32_t base = ends ? place + run.length : place;
    const auto offset = (std::int64_t{ms} - begin) * (next - base) / (behind.start - begin);
    return static_cast<std::int32_t>(base + offset);
}

Timed WordMoments::timed(std::int32_t position, std::int32_t count) const {
    Timed timed;
    store_.forEach(root_, unsignedOf(position), unsignedOf(count), [&](std::uint32_t, const Run& run) {
        timed.runs.push_back(
            {run.length, run.moment == 0 ? std::nullopt : std::optional(store_.moment(run.moment))});
        return true;
    });
    return timed;
}

} // namespace moments
