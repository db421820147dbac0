#include "app/transcript_menu.h"

#include <utility>

namespace app {

using lang::operator""_en;

TranscriptMenu::TranscriptMenu(editor::Form2& editor, lang::Words& words)
    : words_(words), mnuTranscript_("mnuTranscript", u"T&ranscript"_en) {
    editor.menuBar.push_back(&mnuTranscript_);
    translate(mnuTranscript_);
}

void TranscriptMenu::add(const std::vector<controls::MenuItem*>& commands) {
    auto& items = mnuTranscript_.items;
    std::vector<controls::MenuItem*> added = commands;
    if (items.size() > last_)
        added.insert(added.begin(), &lines_.emplace_back("mnuTranscriptLine"));
    items.insert(items.end() - static_cast<std::ptrdiff_t>(last_), added.begin(), added.end());
    for (controls::MenuItem* const item : commands)
        translate(*item);
}

void TranscriptMenu::addLast(controls::MenuItem& command) {
    const std::size_t before = mnuTranscript_.items.size() - std::exchange(last_, 0);
    add({&command});
    last_ = mnuTranscript_.items.size() - before;
}

void TranscriptMenu::translate(controls::MenuItem& item) {
    for (controls::MenuItem* const inner : item.items)
        if (inner->caption.get() != u"-")
            translate(*inner);
    words_.follow(
        [this, &item, english = item.caption.get()] { item.caption = words_(lang::English(english)); });
}

} // namespace app
