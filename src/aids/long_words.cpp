#include "aids/long_words.h"

#include "aids/letter_case.h"
#include "drafts/letters.h"

#include <algorithm>

namespace aids {

namespace {

constexpr std::int32_t margin = 2 * LongWords::most; // units beside a change
constexpr std::int32_t largest = 4096;               // units of a change that is followed at once
constexpr int mostCompared = 400;                    // words with one beginning

// Calls `take` with the position and the letters of each word.
template <typename Take>
void forEachRun(base::TextView text, Take&& take) {
    for (std::size_t begin = 0; begin < text.size();) {
        if (!drafts::isLetter(text[begin])) {
            ++begin;
            continue;
        }
        std::size_t end = begin + 1;
        while (end < text.size() && drafts::isLetter(text[end]))
            ++end;
        take(begin, text.substr(begin, end - begin));
        begin = end;
    }
}

// A part of a text that cuts no word.
struct Part {
    std::int32_t begin = 0;
    base::Text letters;
};

Part wholeWords(const editor::SnapshotText& text, std::int32_t begin, std::int32_t end) {
    const std::int32_t from = std::max(0, begin - margin);
    base::Text letters = text.text(from, end + margin - from);
    auto first = static_cast<std::size_t>(begin - from);
    while (first > 0 && drafts::isLetter(letters[first - 1]))
        --first;
    auto last = std::min(static_cast<std::size_t>(end - from), letters.size());
    while (last < letters.size() && drafts::isLetter(letters[last]))
        ++last;
    return {from + static_cast<std::int32_t>(first), letters.substr(first, last - first)};
}

} // namespace

void LongWords::reset() {
    words_.clear();
    read_ = 0;
}

void LongWords::count(base::TextView word, int by) {
    if (word.size() < least || word.size() > most)
        return;
    auto known = words_.find(word);
    if (known == words_.end()) {
        if (by > 0 && words_.size() < mostWords)
            words_.emplace(word, by);
    } else if ((known->second += by) <= 0) {
        words_.erase(known);
    }
}

void LongWords::read(const editor::SnapshotText& text, std::int32_t units) {
    const Part part = wholeWords(text, read_, std::min(read_ + units, text.length()));
    forEachRun(part.letters, [&](std::size_t begin, base::TextView word) {
        if (part.begin + static_cast<std::int32_t>(begin) >= read_)
            count(word, 1);
    });
    read_ = part.begin + static_cast<std::int32_t>(part.letters.size());
}

void LongWords::change(const editor::SnapshotText& before, const editor::SnapshotText& after,
                       const platform::TextChange& change) {
    if (change.position > read_)
        return;
    const auto inserted = static_cast<std::int32_t>(change.inserted.size());
    if (inserted > largest || change.removed > largest || change.position + change.removed > read_) {
        reset();
        return;
    }
    const auto countIn = [&](const editor::SnapshotText& text, std::int32_t length, int by) {
        const Part part = wholeWords(text, change.position, change.position + length);
        std::int32_t end = read_;
        forEachRun(part.letters, [&](std::size_t begin, base::TextView word) {
            const std::int32_t place = part.begin + static_cast<std::int32_t>(begin);
            if (place >= read_)
                return;
            count(word, by);
            end = std::max(end, place + static_cast<std::int32_t>(word.size()));
        });
        return end;
    };
    countIn(before, change.removed, -1);
    read_ += inserted - change.removed;
    read_ = countIn(after, inserted, 1);
}

base::Text LongWords::likeliest(base::TextView begun) const {
    const base::Text* best = nullptr;
    int bestCount = 0;
    int compared = 0;
    for (auto word = words_.upper_bound(begun);
         word != words_.end() && word->first.starts_with(begun) && compared < mostCompared;
         ++word, ++compared)
        if (word->second > bestCount) {
            best = &word->first;
            bestCount = word->second;
        }
    return best ? best->substr(begun.size()) : base::Text();
}

base::Text LongWords::restOf(base::TextView begun) const {
    base::Text rest = likeliest(begun);
    if (rest.empty() && !begun.empty() && isCapital(begun.front())) {
        base::Text small(begun);
        small.front() = lowered(small.front());
        rest = likeliest(small);
    }
    return rest;
}

} // namespace aids
