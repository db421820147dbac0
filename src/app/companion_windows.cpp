#include "app/companion_windows.h"

namespace app {

namespace {

constexpr double gap = 30; // twips between two windows

} // namespace

void CompanionWindows::TornaAllEditor() {
    if (Form2.visible)
        Form2.setFocus();
}

void CompanionWindows::PosizionaEditor() {
    if (bookmarks_->empty())
        Form2.top = form1_.top + form1_.height + gap;
    else
        Form2.top = Form3.top + Form3.height + gap;
    Form2.left = form1_.left.get();
}

void CompanionWindows::applyLanguage() {
    form1_.mnuMostraNascondi.caption = form1_.Lingua(Form2.visible ? 116 : 86);
    form1_.mnuBookMark.caption = form1_.Lingua(Form3.visible ? 85 : 84);
    bookmarks_->window.applyLanguage();
}

} // namespace app
