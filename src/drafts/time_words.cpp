#include "drafts/time_words.h"

#include "drafts/letters.h"
#include "drafts/names.h"
#include "drafts/spread.h"
#include "moments/alignment.h"
#include "moments/stamps.h"
#include "moments/word_units.h"

#include <algorithm>
#include <span>
#include <utility>

namespace drafts {

namespace {

// A word of the text.
struct SpokenWord {
    std::uint32_t begin = 0;
    TextView letters;
};

// Where what is said in a paragraph begins: behind a stamp and a name.
std::size_t speechBegins(TextView paragraph) {
    std::size_t at = 0;
    const auto skipBlanks = [&] {
        while (at < paragraph.size() && isBlank(paragraph[at]))
            ++at;
    };
    const auto skipStamp = [&] {
        skipBlanks();
        if (const auto stamp = moments::stampAt(paragraph, at))
            at += static_cast<std::size_t>(stamp->length);
        skipBlanks();
    };
    skipStamp();
    at += nameAtHead(paragraph.substr(at)).behind;
    skipStamp();
    return at;
}

std::vector<SpokenWord> spokenWords(TextView text) {
    const std::vector<moments::Stamp> stamps = moments::stampsIn(text);
    auto stamp = stamps.begin();
    std::vector<SpokenWord> words;
    for (std::size_t begin = 0; begin < text.size();) {
        const std::size_t end = std::min(text.find(u'\n', begin), text.size());
        const std::size_t from = begin + speechBegins(text.substr(begin, end - begin));
        moments::forEachWord(text.substr(from, end - from), [&](std::size_t at, TextView letters) {
            const auto place = static_cast<std::int32_t>(from + at);
            while (stamp != stamps.end() && stamp->position + stamp->length <= place)
                ++stamp;
            const bool inStamp = stamp != stamps.end() && stamp->position <= place;
            if (!inStamp && std::any_of(letters.begin(), letters.end(), isLetter))
                words.push_back({static_cast<std::uint32_t>(place), letters});
        });
        begin = end + 1;
    }
    return words;
}

// What was heard, as a way from letters to times.
class HeardLetters {
public:
    explicit HeardLetters(std::span<const HeardWord> words) : words_(words) {
        ends_.reserve(words.size());
        for (const HeardWord& word : words)
            ends_.push_back((ends_.empty() ? 0 : ends_.back()) + word.text.size());
    }

    std::size_t size() const { return ends_.empty() ? 0 : ends_.back(); }

    // The time at `part` of `whole` letters. Between two words it is the end of the first one for what ends
    // there, and the start of the second one for what begins there.
    Ms timeAt(std::size_t part, std::size_t whole, bool begins) const {
        const double at = static_cast<double>(part) * static_cast<double>(size()) /
                          static_cast<double>(std::max<std::size_t>(whole, 1));
        const auto place = static_cast<std::size_t>(at);
        const bool between = static_cast<double>(place) == at;
        const auto hit = begins || !between ? std::upper_bound(ends_.begin(), ends_.end(), place)
                                            : std::lower_bound(ends_.begin(), ends_.end(), place);
        const auto index = std::min(static_cast<std::size_t>(hit - ends_.begin()), words_.size() - 1);
        const HeardWord& word = words_[index];
        const auto first = static_cast<double>(ends_[index] - word.text.size());
        const double share = std::clamp(
            (at - first) / static_cast<double>(std::max<std::size_t>(word.text.size(), 1)), 0.0, 1.0);
        return word.moment.start + static_cast<Ms>((word.moment.end - word.moment.start) * share);
    }

private:
    std::span<const HeardWord> words_;
    std::vector<std::size_t> ends_; // letters up to the end of each word
};

// Times the words between two that were heard.
class Gap {
public:
    Gap(std::span<const SpokenWord> words, std::span<const HeardWord> heard) : words_(words), heard_(heard) {
        for (const SpokenWord& word : words)
            letters_ += word.letters.size();
    }

    // `from` and `to` are the end of the word before and the start of the one behind; noTime at the ends of
    // the text.
    std::vector<MomentOfText> moments(Ms from, Ms to) const {
        const HeardLetters letters(heard_);
        // Much less was heard than was said: its words are not those of the text.
        const bool isHeard = letters.size() * 2 >= letters_ && !heard_.empty();
        const Ms length = msPerLetter * static_cast<Ms>(letters_);
        const Ms begin = from != noTime ? from : std::max(0, to - length);
        const Ms end = std::max(begin, to != noTime ? to : begin + length);
        const auto timeAt = [&](std::size_t part, bool begins) {
            if (isHeard)
                return letters.timeAt(part, letters_, begins);
            return begin + static_cast<Ms>(std::int64_t{end - begin} * static_cast<std::int64_t>(part) /
                                           static_cast<std::int64_t>(letters_));
        };
        std::vector<MomentOfText> result;
        std::size_t at = 0;
        for (const SpokenWord& word : words_) {
            const Ms start = timeAt(at, true);
            at += word.letters.size();
            result.push_back({word.begin,
                              static_cast<std::uint32_t>(word.letters.size()),
                              {start, std::max(start, timeAt(at, false)), moments::Moment::noConfidence}});
        }
        return result;
    }

private:
    std::span<const SpokenWord> words_;
    std::span<const HeardWord> heard_;
    std::size_t letters_ = 0;
};

template <typename Items, typename Letters>
std::vector<std::uint16_t> hashes(const Items& items, Letters&& letters) {
    std::vector<std::uint16_t> result;
    result.reserve(items.size());
    for (const auto& item : items)
        result.push_back(moments::wordHash(letters(item)));
    return result;
}

} // namespace

std::vector<HeardWord> heardWords(Draft draft) {
    std::vector<HeardWord> words;
    for (const Turn& turn : turns(std::move(draft), {})) {
        for (const MomentOfText& word : turn.words) {
            moments::Moment moment = word.moment;
            moment.end = std::max(moment.start, moment.end);
            words.push_back({turn.text.substr(word.begin, word.length), moment});
        }
    }
    return words;
}

TimedText timeWords(TextView text, const std::vector<HeardWord>& heard) {
    const std::vector<SpokenWord> words = spokenWords(text);
    const auto heardHashes = hashes(heard, [](const HeardWord& word) { return TextView(word.text); });
    const auto wordHashes = hashes(words, [](const SpokenWord& word) { return word.letters; });
    const std::vector<std::size_t> matches = moments::align(heardHashes, wordHashes);
    const auto isFound = [&](std::size_t word) {
        return matches[word] != moments::unmatched && heardHashes[matches[word]] == wordHashes[word];
    };
    TimedText result;
    std::size_t next = 0;      // of the text, not timed yet
    std::size_t nextHeard = 0; // behind the last one found
    const auto fill = [&](std::size_t word, std::size_t heardEnd) {
        if (next == word)
            return;
        const Gap gap(std::span<const SpokenWord>(words).subspan(next, word - next),
                      std::span<const HeardWord>(heard).subspan(nextHeard, heardEnd - nextHeard));
        const Ms from = nextHeard > 0 ? heard[nextHeard - 1].moment.end : noTime;
        const Ms to = heardEnd < heard.size() ? heard[heardEnd].moment.start : noTime;
        const auto timed = gap.moments(result.found > 0 ? from : noTime, to);
        result.words.insert(result.words.end(), timed.begin(), timed.end());
    };
    for (std::size_t word = 0; word < words.size(); ++word) {
        if (!isFound(word))
            continue;
        fill(word, matches[word]);
        result.words.push_back({words[word].begin, static_cast<std::uint32_t>(words[word].letters.size()),
                                heard[matches[word]].moment});
        ++result.found;
        next = word + 1;
        nextHeard = matches[word] + 1;
    }
    if (result.found == 0)
        return {};
    fill(words.size(), heard.size());
    return result;
}

} // namespace drafts
