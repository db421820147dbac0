#include "app/companion_windows.h"

namespace app {

namespace {

constexpr double gap = 30; // twips between two windows

} // namespace

void CompanionWindows::TornaAllEditor() {
    if (editor_.form().visible) {
        editor_.form().setFocus();
        editor_.form().RTB.SetFocus();
    }
}

void CompanionWindows::PosizionaEditor() {
    editor_.form().top = form1_.top + form1_.height + gap;
    editor_.form().left = form1_.left.get();
}

void CompanionWindows::applyLanguage() {
    form1_.mnuMostraNascondi.caption = Lingua(editor_.form().visible ? 116 : 86);
    form1_.mnuBookMark.caption = Lingua(Form3.visible ? 85 : 84);
    editor_.CambiaLingua2(Lingua);
}

void CompanionWindows::unloadForm3() {
    Form3.visible = false;
    form1_.mnuBookMark.caption = form1_.Lingua(84);
}

} // namespace app
