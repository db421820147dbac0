#include "app/companion_windows.h"

#include <algorithm>

namespace app {

namespace {

constexpr double gap = 30; // twips between two windows

} // namespace

void CompanionWindows::TornaAllEditor() {
    // Typing into an editor behind a full-screen picture would be invisible.
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

void CompanionWindows::followFrame(double wider, double higher) {
    controls::Window& editor = editor_.form();
    controls::Window& marks = bookmarks_.form();
    const double right = form1_.left + form1_.width - wider;
    const double height = form1_.height - higher;
    const double sideGap = bookmarks::BookmarkCommands::sideGap;
    // The bookmarks end at the editor's right edge and are as high as the player.
    if (marks.left == right + sideGap) {
        if (marks.left + marks.width == form1_.left + editor.width)
            marks.width = std::max(marks.width - wider, 0.0);
        marks.left = marks.left + wider;
        marks.height = form1_.height.get();
    }
    if (editor.top == form1_.top + height + gap)
        editor.top = editor.top + higher;
}

void CompanionWindows::applyLanguage() {
    form1_.mnuMostraNascondi.caption = Lingua(editor_.form().visible ? 116 : 86);
    form1_.mnuBookMark.caption = Lingua(bookmarks_.form().visible ? 85 : 84);
    bookmarks_.window.applyLanguage();
    editor_.CambiaLingua2(Lingua);
    words_.languageChanged();
}

} // namespace app
