// Texts beside the language table: English sentences in the program, their translations in a file beside the
// language file, under its name: "Svenska.words", UTF-8, with an English text, a tab and its translation on
// each line.
#pragma once

#include "base/program_folder.h"
#include "base/text.h"

#include <functional>
#include <initializer_list>
#include <map>
#include <vector>

namespace lang {

// An English text that the files of words translate. Written as u"Close"_en, so that a search of the sources
// finds all of them.
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

// The lines of a file of words; none when it cannot be read. A line without a tab is left out.
WordList readWordList(base::TextView path);

// The text with each "%1" to "%9" replaced by that part; a number without a part stays.
base::Text filledIn(base::TextView text, std::initializer_list<base::TextView> parts);

// Translates into the language of the program. A text that the language lacks stays English.
class Words {
public:
    // `fileLingua` is the name of the language file in use, wherever the program keeps it. Its words are read
    // when the first of them is needed.
    Words(const base::Text& fileLingua, base::ProgramFolder folder)
        : fileLingua_(fileLingua), folder_(std::move(folder)) {}
    Words(const Words&) = delete;
    Words& operator=(const Words&) = delete;

    base::Text operator()(English text) const;
    base::Text operator()(English text, std::initializer_list<base::TextView> parts) const {
        return filledIn((*this)(text), parts);
    }

    // Runs `show`, which writes texts to a window or menu, now and after each change of the language.
    void follow(std::function<void()> show);
    // The language file may be another one now.
    void languageChanged() const;

private:
    const base::Text& fileLingua_;
    const base::ProgramFolder folder_;
    std::vector<std::function<void()>> followers_;
    mutable base::Text shown_; // language file whose words these are
    mutable WordList words_;
};

} // namespace lang
