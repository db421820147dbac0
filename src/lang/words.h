// Texts beyond the language table: English sentences in the code, translated by a file beside the language
// file with the same stem, such as "Svenska.words". It is UTF-8; each line holds an English text, a tab and
// its translation.
#pragma once

#include "base/program_folder.h"
#include "base/text.h"

#include <functional>
#include <initializer_list>
#include <map>
#include <span>
#include <vector>

namespace lang {

// An English text that the `.words` files translate. Written as u"Close"_en, so that a search of the sources
// finds them all.
class English {
public:
    constexpr explicit English(base::TextView text) : text_(text) {}

    constexpr operator base::TextView() const { // NOLINT(google-explicit-constructor): reads as its text
        return text_;
    }
    operator base::Text() const { // NOLINT(google-explicit-constructor): likewise
        return base::Text(text_);
    }

private:
    base::TextView text_;
};

constexpr English operator""_en(const char16_t* text, std::size_t length) {
    return English(base::TextView(text, length));
}

using WordList = std::map<base::Text, base::Text, std::less<>>;

// The lines of a `.words` file; empty if it cannot be read. Lines without a tab are skipped.
WordList readWordList(base::TextView path);

// Replaces each "%1" to "%9" in the text by that part; a number without a part stays.
base::Text filledIn(base::TextView text, std::span<const base::TextView> parts);
inline base::Text filledIn(base::TextView text, std::initializer_list<base::TextView> parts) {
    return filledIn(text, std::span(parts.begin(), parts.size()));
}

// Translates into the program's language. A text without a translation stays English.
class Words {
public:
    // `fileLingua` refers to the program's name of the current language file. Its words are read on first
    // use.
    Words(const base::Text& fileLingua, base::ProgramFolder folder)
        : fileLingua_(fileLingua), folder_(std::move(folder)) {}
    Words(const Words&) = delete;
    Words& operator=(const Words&) = delete;

    base::Text operator()(English text) const;
    base::Text operator()(English text, std::initializer_list<base::TextView> parts) const {
        return filledIn((*this)(text), parts);
    }

    // Runs `show`, which writes texts to a window or menu, now and after each change of language.
    void follow(std::function<void()> show);
    // Called when the language may have changed.
    void languageChanged() const;

private:
    const base::Text& fileLingua_;
    const base::ProgramFolder folder_;
    std::vector<std::function<void()>> followers_;
    mutable base::Text shown_; // language file from which words_ was read
    mutable WordList words_;
};

} // namespace lang
