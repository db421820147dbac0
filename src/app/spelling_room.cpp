#include "app/spelling_room.h"

namespace app {

using lang::operator""_en;

SpellingRoom::SpellingRoom(Desktop& desktop, player::Form1& form1, EditorRoom& editor, TranscriptMenu& menu,
                           OptionsFile& options, lang::Words& words, safety::Notices& notices)
    : editor_(editor), own_(form1.folder.files(u"Words.txt")), verdicts_(desktop.spelling(), own_),
      marks_(editor.form(), editor.undoRedo(), verdicts_, desktop.eventLoop()),
      menu_(editor.form(), editor.undoRedo(), desktop.spelling(), own_, marks_, words, desktop.eventLoop()),
      commands_(desktop.spelling(), verdicts_, marks_, menu_, options_, words, form1.Lingua.FileLingua,
                desktop.eventLoop()) {
    options.tie("CheckSpelling", options_.check);
    options.tie("SpellingLanguage", options_.language);
    menu.add(commands_.commands());
    editor.typing().Typed = [this, others = editor.typing().Typed] {
        others();
        marks_.changed();
    };
    menu_.NotSaved = [&notices, &form = editor.form()](const base::Text& reason) {
        notices.tell(u"The word could not be added to Files/Words.txt: %1"_en, {reason}, &form);
    };
    commands_.Tell = [&notices, &form = editor.form()](lang::English sentence,
                                                       std::vector<base::Text> parts) {
        notices.tell(sentence, std::move(parts), &form);
    };
}

void SpellingRoom::start() {
    own_.load();
    editor_.document().Replacing = [this, others = editor_.document().Replacing] {
        own_.forgetIgnored();
        others();
    };
    commands_.start();
}

} // namespace app
