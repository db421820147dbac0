#pragma once

#include "aids/spelling_marks.h"
#include "aids/spelling_menu.h"
#include "controls/timer.h"
#include "lang/words.h"

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace aids {

// User options for spelling.
struct SpellingOptions {
    bool check = false;
    base::Text language; // tag of the dictionary that the user chose; empty: that of the program's language
};

// The commands that switch spelling on and off and choose its dictionary among those that are installed.
class SpellingCommands {
public:
    static constexpr std::size_t most = 60; // languages in the menu

    // `fileLingua` is the name of the program's language file.
    SpellingCommands(platform::Spelling& spelling, Verdicts& verdicts, SpellingMarks& marks,
                     SpellingMenu& menu, SpellingOptions& options, lang::Words& words,
                     const base::Text& fileLingua, platform::EventLoop& loop);

    std::vector<controls::MenuItem*> commands() { return {&mnuCheck_, &mnuLanguage_}; }

    // The commands are in the menu, and the options were read.
    void start();
    // The exit goes.
    void leave();

    // A sentence for the user.
    std::function<void(lang::English sentence, std::vector<base::Text> parts)> Tell =
        [](lang::English, const std::vector<base::Text>&) {};
    // The user changed the options.
    std::function<void()> OptionsChanged = [] {};

private:
    void toggle();
    void languageChanged();
    void switchOn();
    void switchOff();
    void listed(std::vector<platform::SpellingLanguage> languages, const base::Text& failure);
    void use(const platform::SpellingLanguage& language);
    void choose(std::size_t row);
    void showLanguages();

    platform::Spelling& spelling_;
    Verdicts& verdicts_;
    SpellingMarks& marks_;
    SpellingMenu& menu_;
    SpellingOptions& options_;
    lang::Words& words_;
    const base::Text& fileLingua_;
    controls::Timer begins_;
    controls::MenuItem mnuCheck_;
    controls::MenuItem mnuLanguage_;
    std::deque<std::string> names_; // of the items below
    std::deque<controls::MenuItem> mnuOne_;
    std::vector<platform::SpellingLanguage> languages_; // installed, that of the program first
    std::string program_;                               // tag of the program's language when they were listed
    std::string used_;                                  // tag; empty for none
};

} // namespace aids
