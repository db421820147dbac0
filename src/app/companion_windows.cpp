#include "app/companion_windows.h"

namespace app {

namespace {

constexpr double gap = 30; // twips between two windows

} // namespace

void CompanionWindows::TornaAllEditor() {
    // Behind a picture that fills the screen nobody would see what is typed.
    if (form1_.pictureKeepsKeyboard() && !editor_.form().active)
        return;
    if (editor_.form().visible) {
        editor_.form().setFocus();
        editor_.form().RTB.SetFocus();
    }
}

void CompanionWindows::PosizionaEditor() {
    const controls::Window& above =
        bookmarks_.empty() ? static_cast<controls::Window&>(form1_) : bookmarks_.form();
    editor_.form().top = above.top + above.height + gap;
    editor_.form().left = form1_.left.get();
}

void CompanionWindows::applyLanguage() {
    form1_.mnuMostraNascondi.caption = Lingua(editor_.form().visible ? 116 : 86);
    form1_.mnuBookMark.caption = Lingua(bookmarks_.form().visible ? 85 : 84);
    bookmarks_.window.applyLanguage();
    editor_.CambiaLingua2(Lingua);
}

} // namespace app
