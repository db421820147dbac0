// The port to the spelling dictionaries of the system.
#pragma once

#include "base/text.h"

#include <functional>
#include <string>
#include <vector>

namespace platform {

// A language that has a dictionary.
struct SpellingLanguage {
    std::string tag; // such as "en_US"
    base::Text name; // to show, in the language itself

    bool operator==(const SpellingLanguage&) const = default;
};

// Looks up words in a dictionary of the system. Dictionaries take long to load and to make suggestions, so
// every answer comes later, from the event loop, in the order of the questions.
class Spelling {
public:
    using Languages =
        std::function<void(const std::vector<SpellingLanguage>& languages, const base::Text& failure)>;

    Spelling() = default;
    Spelling(const Spelling&) = delete;
    Spelling& operator=(const Spelling&) = delete;
    virtual ~Spelling() = default;

    // Finds the dictionaries that are installed now. `failure` tells in the system's words why there can be
    // none.
    virtual void list(Languages done) = 0;
    // Looks words up in this language from now on. `failure` is empty, or tells why that is not possible.
    // Questions that are still open are not answered.
    virtual void use(const std::string& tag, std::function<void(const base::Text& failure)> done) = 0;
    // For each word whether it is right; a word that cannot be judged is. A word may end in the full stop of
    // an abbreviation.
    virtual void check(std::vector<base::Text> words,
                       std::function<void(const std::vector<bool>& right)> done) = 0;
    // What the word may have been meant to be, the likeliest first.
    virtual void suggest(const base::Text& word,
                         std::function<void(const std::vector<base::Text>& words)> done) = 0;
    // Forgets the language; questions that are still open are not answered.
    virtual void stop() = 0;
};

} // namespace platform
