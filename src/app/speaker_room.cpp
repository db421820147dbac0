#include "app/speaker_room.h"

#include "app/place_over.h"
#include "drafts/names.h"

namespace app {

namespace {

constexpr double step = 750; // twips between the editor's top left corner and the window's

editor::NameAtHead nameIn(base::TextView paragraph, std::size_t bold) {
    const drafts::NamedText named = drafts::nameAtHead(paragraph, bold);
    if (named.name.empty())
        return {};
    return {static_cast<std::size_t>(named.name.data() - paragraph.data()), named.name.size(), named.behind};
}

} // namespace

SpeakerRoom::SpeakerRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                         lang::Words& words)
    : speakers_(editor.form(), editor.undoRedo()), commands_(speakers_, words, desktop.eventLoop()) {
    speakers_.NameIn = nameIn;
    menu.add(commands_.commands());
    commands_.start();
    editor.typing().Typed = [this, others = editor.typing().Typed] {
        others();
        commands_.changed();
    };
    commands_.Load = [&desktop, &form1, &beside = editor.form()](editor::SpeakersWindow& form) {
        placeOver(beside, form1, step, form);
        desktop.show(form);
    };
}

} // namespace app
