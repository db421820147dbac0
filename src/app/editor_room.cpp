#include "app/editor_room.h"

#include "base/carry_on.h"

#include <utility>

namespace app {

EditorRoom::EditorRoom(Desktop& desktop, player::Form1& form1, player::Settings& settings,
                       const base::TextFiles& files, std::function<void()> Salva)
    : desktop_(desktop), form_(desktop.eventLoop(), desktop.richText(), form1.Lingua, form1.folder),
      recent_({&form_.mnuRecent1, &form_.mnuRecent2, &form_.mnuRecent3, &form_.mnuRecent4}, form_.mnur, files,
              form1.folder.files(u"LastFilesEditor.ini")),
      document_(form_, desktop.dialogs(), desktop.system(), settings, recent_), undoRedo_(form_.RTB),
      typing_(form_, document_, undoRedo_, form1), clipboard_(form_, desktop.clipboard()),
      timeStamp_(form_, form1.WMP1), toolbar_(form_, document_, desktop.system(), desktop.dialogs()),
      keys_(form_, toolbar_, form1), window_(form_, form1, form1.screen, form1.mnuMostraNascondi) {
    toolbar_.Salva = std::move(Salva);
}

void EditorRoom::Form_Load() {
    desktop_.show(form_);
    window_.Form_Load();
    toolbar_.Form_Load();
    document_.Form_Load();
    typing_.Form_Load();
    clipboard_.Form_Load();
}

void EditorRoom::CambiaLingua2(lang::LanguageTable& table) {
    base::carryOn([&] { table.load(); });
    window_.CambiaLingua2();
    toolbar_.CambiaLingua2();
    document_.CambiaLingua2();
}

} // namespace app
