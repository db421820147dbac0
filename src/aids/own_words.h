#pragma once

#include "base/text.h"

#include <cstddef>
#include <functional>
#include <string>
#include <unordered_set>

namespace aids {

// The words that the user takes for right, in a file with one on each line, and those that count only until
// the next document.
class OwnWords {
public:
    explicit OwnWords(base::Text path) : path_(std::move(path)) {}

    // Reads the file; one that cannot be read has no words. Lines that are no words are skipped.
    void load();
    // In its dictionary form. A word in small letters stands for its forms with capitals too.
    bool has(const base::Text& form) const;

    // Adds the word to the file, which is read again first, because other programs may have changed it.
    // Throws base::Failure if it cannot be written: the file is unchanged, and the word is known until the
    // exit.
    void add(const base::Text& form);
    // The word counts until forgetIgnored().
    void ignore(const base::Text& form) { ignored_.insert(form); }
    void forgetIgnored() { ignored_.clear(); }

private:
    std::string read();

    base::Text path_;
    std::unordered_set<base::Text> words_;
    std::unordered_set<base::Text> ignored_;
};

} // namespace aids
