#include "aids/verdicts.h"

#include "aids/checked_words.h"

#include <algorithm>
#include <utility>

namespace aids {

namespace {

constexpr std::size_t mostKnown = 500'000; // words

// What to look up for a word: itself, and the parts of a compound that the dictionary may not have as a
// whole.
void addForms(std::vector<base::Text>& forms, base::TextView letters) {
    base::Text whole = dictionaryForm(letters);
    base::TextView rest = whole;
    std::vector<base::Text> parts;
    for (std::size_t hyphen = rest.find(u'-'); hyphen != base::TextView::npos; hyphen = rest.find(u'-')) {
        parts.emplace_back(rest.substr(0, hyphen));
        rest.remove_prefix(hyphen + 1);
    }
    if (!parts.empty())
        parts.emplace_back(rest);
    std::erase_if(parts, [](const base::Text& part) { return part.size() < 2; });
    if (letters.ends_with(u'.'))
        whole += u'.';
    forms.push_back(std::move(whole));
    forms.insert(forms.end(), parts.begin(), parts.end());
}

} // namespace

Verdicts::Verdict Verdicts::of(base::TextView letters) const {
    const auto known = known_.find(letters);
    if (known == known_.end())
        return Verdict::Unknown;
    return known->second == Verdict::Wrong && own_.has(dictionaryForm(letters)) ? Verdict::Right
                                                                                : known->second;
}

void Verdicts::want(base::TextView letters) {
    if (known_.size() >= mostKnown)
        known_.clear();
    if (known_.emplace(letters, Verdict::Asked).second)
        wanted_.emplace_back(letters);
}

bool Verdicts::ask(std::size_t most) {
    if (wanted_.empty())
        return false;
    // What was wanted last is likely to be what is visible now.
    const auto first = wanted_.end() - static_cast<std::ptrdiff_t>(std::min(most, wanted_.size()));
    std::vector<base::Text> words(std::make_move_iterator(first), std::make_move_iterator(wanted_.end()));
    wanted_.erase(first, wanted_.end());
    std::vector<base::Text> forms;
    std::vector<std::size_t> ends; // of the forms of each word
    for (const base::Text& word : words) {
        addForms(forms, word);
        ends.push_back(forms.size());
    }
    spelling_.check(std::move(forms), [this, words = std::move(words), ends = std::move(ends)](
                                          const std::vector<bool>& right) { learn(words, ends, right); });
    return true;
}

// A compound is right if all of its parts are.
void Verdicts::learn(const std::vector<base::Text>& words, const std::vector<std::size_t>& ends,
                     const std::vector<bool>& right) {
    bool anyWrong = false;
    std::size_t begin = 0;
    for (std::size_t i = 0; i < words.size() && ends[i] <= right.size(); ++i) {
        const auto whole = right.begin() + static_cast<std::ptrdiff_t>(begin);
        const auto end = right.begin() + static_cast<std::ptrdiff_t>(ends[i]);
        const bool isRight = *whole || (end - whole > 1 && std::all_of(whole + 1, end, std::identity()));
        known_[words[i]] = isRight ? Verdict::Right : Verdict::Wrong;
        anyWrong = anyWrong || !isRight;
        begin = ends[i];
    }
    Learned(anyWrong);
}

void Verdicts::clear() {
    known_.clear();
    wanted_.clear();
}

} // namespace aids
