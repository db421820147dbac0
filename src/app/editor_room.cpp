#include "app/editor_room.h"

#include "base/carry_on.h"

namespace app {

EditorRoom::EditorRoom(Desktop& desktop, player::Form1& form1, player::Preferences& preferences,
                       const base::TextFiles& files)
    : form_(desktop.eventLoop(), desktop.richText(), form1.Lingua, form1.folder),
      recent_({&form_.mnuRecent1, &form_.mnuRecent2, &form_.mnuRecent3, &form_.mnuRecent4}, form_.mnur, files,
              form1.folder.files(u"LastFilesEditor.ini")),
      document_(form_, desktop.dialogs(), desktop.system(), preferences, recent_),
      toolbar_(form_, document_, desktop.system(), desktop.dialogs()),
      window_(form_, form1, form1.screen, form1.mnuMostraNascondi) {
    desktop.show(form_);
}

void EditorRoom::Form_Load() {
    window_.Form_Load();
    toolbar_.Form_Load();
    document_.Form_Load();
}

void EditorRoom::CambiaLingua2(lang::LanguageTable& table) {
    base::carryOn([&] { table.load(); });
    window_.CambiaLingua2();
    toolbar_.CambiaLingua2();
    document_.CambiaLingua2();
}

} // namespace app
