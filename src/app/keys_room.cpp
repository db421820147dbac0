#include "app/keys_room.h"

#include "app/place_over.h"
#include "lang/command_name.h"

#include <algorithm>

namespace app {

using lang::operator""_en;

namespace {

constexpr double step = 600; // twips between the editor's top left corner and the window's

// The commands of a menu that have a key, in the menu's order.
void addMenu(std::vector<outside::KeyGroup::Row>& rows, const std::vector<controls::MenuItem*>& items) {
    for (const controls::MenuItem* const item : items) {
        if (!item->shortcut.empty())
            rows.push_back({base::fromUtf8(item->shortcut), lang::commandName(item->caption.get())});
        addMenu(rows, item->items);
    }
}

} // namespace

KeysRoom::KeysRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                   FindAndPrint& printing, lang::Words& words)
    : form1_(form1), editor_(editor), menu_(menu), words_(words), list_(words, [this] { return collect(); }) {
    menu.addLast(list_.command());
    list_.Load = [this, &desktop](outside::KeysWindow& form) {
        placeOver(editor_.form(), form1_, step, form);
        desktop.show(form);
    };
    list_.Print = [&printing, this](const base::Text& name, const std::string& source) {
        printing.printing().printSource(list_.form.name, name, source);
    };
}

std::vector<outside::KeyGroup> KeysRoom::collect() const {
    outside::KeyGroup player{words_(u"In the player"_en), {}};
    addMenu(player.rows, form1_.menuBar);
    player.rows.push_back({u"Esc", lang::commandName(form1_.mnuEsci.caption.get())});

    outside::KeyGroup text{words_(u"In the text"_en), {}};
    for (const editor::TextKey& key : editor_.keys().keys())
        text.rows.push_back({base::fromUtf8(key.keys), lang::commandName(key.command->caption.get())});
    const base::Text styles[] = {words_(u"Bold"_en), words_(u"Italic"_en), words_(u"Underline"_en)};
    const std::array<char, 3> letters = editor_.keys().styleLetters();
    for (std::size_t i = 0; i < letters.size(); ++i)
        text.rows.push_back({u"Ctrl+" + base::Text(1, static_cast<char16_t>(letters[i])), styles[i]});
    std::vector<controls::MenuItem*> menus = editor_.form().menuBar;
    std::erase(menus, &menu_.menu());
    addMenu(text.rows, menus);

    outside::KeyGroup transcript{lang::commandName(menu_.menu().caption.get()), {}};
    addMenu(transcript.rows, menu_.menu().items);
    const auto hear =
        std::find_if(transcript.rows.begin(), transcript.rows.end(),
                     [](const outside::KeyGroup::Row& row) { return row.keys == u"Alt+Return"; });
    if (hear != transcript.rows.end())
        transcript.rows.insert(hear + 1, {u"Ctrl+Click", hear->command});

    const lang::LanguageTable& Lingua = form1_.Lingua;
    outside::KeyGroup marks{lang::commandName(Lingua(120)), {}};
    marks.rows = {{u"Enter", words_(u"Jump to the bookmark"_en)},
                  {u"Delete", lang::commandName(Lingua(100))},
                  {u"F2", words_(u"Rename bookmark"_en)}};
    const outside::KeyGroup::Row next = {u"F10", words_(u"Next group: toolbar, player, bookmarks, text"_en)};
    for (outside::KeyGroup* const group : {&player, &text, &marks})
        group->rows.push_back(next);
    player.rows.push_back({u"Enter", words_(u"Full screen of the video"_en)});
    return {std::move(player), std::move(text), std::move(transcript), std::move(marks)};
}

} // namespace app
