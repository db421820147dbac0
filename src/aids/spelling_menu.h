#pragma once

#include "aids/own_words.h"
#include "aids/spelling_marks.h"
#include "controls/timer.h"
#include "lang/words.h"

#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace aids {

// The menu of a misspelled word, by the right button or the menu key: what it may have been meant to be, to
// take it for right, and the items of the edit menu below.
class SpellingMenu {
public:
    static constexpr std::size_t most = 7; // suggestions

    SpellingMenu(editor::Form2& form, editor::UndoRedo& text, platform::Spelling& spelling, OwnWords& own,
                 SpellingMarks& marks, const lang::Words& words, platform::EventLoop& loop);

    // No menu opens any more for what was asked before.
    void stop();

    // A word could not be written to the user's file; why, in the system's words.
    std::function<void(const base::Text& reason)> NotSaved = [](const base::Text&) {};

private:
    bool rightClick(std::int32_t position);
    bool menuKey(const platform::KeyEvent& key);
    // Asks for the suggestions, and opens the menu once they are there, but soon in any case.
    void ask(const SpellingMarks::Part& word, bool atCaret);
    void open(const std::vector<base::Text>& suggestions);
    void replace(const base::Text& with);
    void takeForRight(bool forever);
    // The word still stands where it was when the menu was asked for.
    bool isThere();

    editor::Form2& form_;
    editor::UndoRedo& text_;
    platform::Spelling& spelling_;
    OwnWords& own_;
    SpellingMarks& marks_;
    const lang::Words& words_;
    controls::Timer soon_;
    controls::MenuItem menu_{"mnuSpellingOfWord"};
    std::deque<std::string> names_; // of the items below
    std::deque<controls::MenuItem> mnuSuggestion_;
    controls::MenuItem mnuNone_{"mnuNoSuggestion"};
    controls::MenuItem line1_{"mnuSpellingLine1"};
    controls::MenuItem mnuIgnore_{"mnuIgnoreWord"};
    controls::MenuItem mnuAdd_{"mnuAddWord"};
    controls::MenuItem line2_{"mnuSpellingLine2"};
    SpellingMarks::Part word_; // that the menu is for
    bool atCaret_ = false;
    bool waits_ = false; // for the suggestions
    int question_ = 0;
};

} // namespace aids
