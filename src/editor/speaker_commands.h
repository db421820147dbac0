#pragma once

#include "controls/timer.h"
#include "editor/speakers.h"
#include "editor/speakers_window.h"
#include "lang/words.h"

#include <deque>
#include <functional>
#include <vector>

namespace editor {

// The commands for speakers: a window that renames them, and a key for each of the first nine.
class SpeakerCommands {
public:
    static constexpr int keys = 9;

    SpeakerCommands(Speakers& speakers, lang::Words& words, platform::EventLoop& loop);

    std::vector<controls::MenuItem*> commands() { return {&mnuSpeakers_, &mnuParagraphs_}; }

    // The commands are in the menu, which shows the names from now on.
    void start();
    // The exit goes.
    void leave();
    // The text has changed.
    void changed();

    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(SpeakersWindow&)> Load = [](SpeakersWindow&) {};

    SpeakersWindow form;

private:
    void open();
    void translate();
    // Shows the speakers of the text in the menu and the window.
    void show();
    void fill(base::TextView chosen);
    void choose();
    base::Text chosen() const;
    void rename();
    void give(std::size_t place);

    Speakers& speakers_;
    lang::Words& words_;
    controls::MenuItem mnuSpeakers_;
    controls::MenuItem mnuParagraphs_;
    std::deque<std::string> names_; // of the items below
    std::deque<controls::MenuItem> mnuParagraph_;
    controls::Timer shows_;
    std::vector<Speakers::Speaker> all_; // in the order of the rows
};

} // namespace editor
