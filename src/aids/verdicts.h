#pragma once

#include "aids/own_words.h"
#include "platform/spelling.h"

#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace aids {

// What is known of the spelling of words. Each word is asked about once; what the user takes for right is
// right. Words are given as their letters stand in the text, see CheckedWord.
class Verdicts {
public:
    enum class Verdict : std::uint8_t { Unknown, Asked, Right, Wrong };

    Verdicts(platform::Spelling& spelling, const OwnWords& own) : spelling_(spelling), own_(own) {}

    Verdict of(base::TextView letters) const;
    // The word is one of the next that are asked about.
    void want(base::TextView letters);
    // Asks about at most so many of the words that are wanted. False if none were left.
    bool ask(std::size_t most);
    // Another dictionary: nothing is known, and what was asked is not answered.
    void clear();

    // Answers have come; `anyWrong` if a word is wrong.
    std::function<void(bool anyWrong)> Learned = [](bool) {};

private:
    // Looks words up without creating a text.
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(base::TextView text) const { return std::hash<base::TextView>()(text); }
    };

    void learn(const std::vector<base::Text>& words, const std::vector<std::size_t>& ends,
               const std::vector<bool>& right);

    platform::Spelling& spelling_;
    const OwnWords& own_;
    std::unordered_map<base::Text, Verdict, Hash, std::equal_to<>> known_;
    std::vector<base::Text> wanted_;
};

} // namespace aids
