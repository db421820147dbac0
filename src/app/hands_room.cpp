#include "app/hands_room.h"

#include "app/place_over.h"

namespace app {

using lang::operator""_en;

namespace {

constexpr double step = 450; // twips between the editor's top left corner and the window's

} // namespace

HandsRoom::HandsRoom(Desktop& desktop, const hands::Panels::Player& player, EditorRoom& editor,
                     TranscriptMenu& menu, OptionsFile& options, lang::Words& words, safety::Notices& notices)
    : commands_(player.form, desktop.clipboard(), desktop.globalKeys()),
      hands_(desktop.eventLoop(), desktop.pedals(), desktop.globalKeys(), options_, bindings_, commands_),
      panels_(desktop.eventLoop(), player, commands_, [&desktop] { return desktop.mediaControls(); }),
      window_(hands_, options_, bindings_, desktop.clipboard(), words,
              player.form.folder.files(u"70-quillmere-pedals.rules")) {
    options.tie("Pedals", options_.pedals);
    options.tie("KeysFromAnywhere", options_.keys);
    options.tie("DesktopPanels", options_.panels);
    for (std::size_t i = 0; i < hands::commandCount; ++i) {
        const std::string name(hands::commands()[i].option);
        options.tie("Key" + name, bindings_.keyText(i));
        options.tie("Pedal" + name, bindings_.pedalText(i));
    }
    bindings_.tidy();
    menu.addLast(window_.command());
    window_.Load = [&desktop, &form1 = player.form,
                    &beside = editor.form()](hands::KeysAndPedalsWindow& form) {
        placeOver(beside, form1, step, form);
        desktop.show(form);
    };
    window_.PanelsChanged = [this] { options_.panels ? panels_.begin() : panels_.end(); };
    commands_.NotTyped = [&notices] {
        notices.tell(u"The time could not be typed into the program in front. It is on the clipboard."_en);
    };
}

void HandsRoom::start() {
    if (options_.keys || options_.pedals)
        hands_.apply();
    if (options_.panels)
        panels_.begin();
}

void HandsRoom::leave() {
    panels_.end();
    hands_.leave();
    window_.leave();
}

} // namespace app
