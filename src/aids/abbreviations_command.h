#pragma once

#include "aids/abbreviation_file.h"
#include "aids/abbreviations_window.h"
#include "lang/words.h"

#include <functional>
#include <vector>

namespace aids {

// The command "Abbreviations..." and its window, which searches, adds, changes and deletes them.
class AbbreviationsCommand {
public:
    AbbreviationsCommand(AbbreviationFile& file, lang::Words& words);

    controls::MenuItem& command() { return mnuAbbreviations_; }
    // The exit goes.
    void leave() { form.visible = false; }

    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(AbbreviationsWindow&)> Load = [](AbbreviationsWindow&) {};

    AbbreviationsWindow form;

private:
    void open();
    void translate();
    void fill(base::TextView chosen);
    void choose();
    const Abbreviation* chosen() const;
    void offer();
    void showFault();
    void change(const std::function<void(Abbreviations&)>& edit, base::TextView chosenThen);
    void add();
    void alter();
    void remove();
    base::Text shortForm() const { return base::trimmed(form.txtShort.text.get()); }
    base::Text text() const { return base::trimmed(form.txtText.text.get()); }

    AbbreviationFile& file_;
    lang::Words& words_;
    controls::MenuItem mnuAbbreviations_;
    std::vector<Abbreviation> rows_;
    base::Text failure_; // of the last change
};

} // namespace aids
