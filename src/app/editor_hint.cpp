#include "app/editor_hint.h"

namespace app {

using lang::operator""_en;

EditorHint::EditorHint(player::Form1& form1, editor::Form2& form2, lang::Words& words)
    : form1_(form1), form2_(form2), words_(words) {
    words.follow([this] { show(); });
    // The command that closes a recording is offered while one is open.
    form1_.mnuChiudi.observe([this] { show(); });
}

void EditorHint::show() {
    form2_.RTBPlace.hint = form1_.mnuChiudi.enabled
                               ? base::Text()
                               : words_(u"Ctrl+O opens a recording, or drop one on the player."_en) + u'\n' +
                                     words_(u"F5 plays and pauses, F6 and F7 step back and forward."_en) +
                                     u'\n' + words_(u"F1 shows the guide."_en);
}

} // namespace app
