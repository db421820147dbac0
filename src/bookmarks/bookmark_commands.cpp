#include "bookmarks/bookmark_commands.h"

#include "bookmarks/sorted_list.h"

namespace bookmarks {

namespace {

constexpr double belowGap = 30; // twips between the window and the editor

} // namespace

BookmarkCommands::BookmarkCommands(player::Form1& form1, controls::Window& form2, Form3& form3,
                                   BookmarkWindow& window, platform::System& system)
    : form1_(form1), form2_(form2), form3_(form3), window_(window), system_(system) {
    form1_.mnuBookMark.Click = [this] { mnuBookMark_Click(); };
    form1_.mnuAddBM.Click = [this] { mnuAddBM_Click(); };
    form1_.mnuBMsuccessivo.Click = [this] { mnuBMsuccessivo_Click(); };
    form1_.mnuBMprecedente.Click = [this] { mnuBMprecedente_Click(); };
}

void BookmarkCommands::mnuBookMark_Click() {
    window_.Form_Load();
    if (form3_.visible) {
        form1_.mnuBookMark.caption = form1_.Lingua(84);
        form3_.visible = false;
        return;
    }
    form1_.mnuBookMark.caption = form1_.Lingua(85);
    placeBesidePlayer();
    form3_.height = form1_.height.get();
    placeAcross();
    form3_.visible = true;
    if (form1_.pictureKeepsKeyboard() && !form2_.active)
        form1_.VideoWindow.setFocus();
    else
        form2_.visible ? form2_.setFocus() : form1_.setFocus();
}

void BookmarkCommands::mnuAddBM_Click() {
    window_.Form_Load();
    form1_.mnuBookMark.caption = form1_.Lingua(85);
    placeBesidePlayer();
    placeAcross();
    form3_.visible = true;
    window_.Command1_Click();
    system_.beep();
}

void BookmarkCommands::placeBesidePlayer() {
    form3_.top = form1_.top.get();
    form3_.left = form1_.left + form1_.width + sideGap;
}

void BookmarkCommands::placeAcross() {
    const double width = form2_.width - form1_.width - sideGap;
    if (width >= 0)
        form3_.width = width;
    form2_.top = form3_.top + form3_.height + belowGap;
}

void BookmarkCommands::mnuBMsuccessivo_Click() {
    choose(form3_.List1.listIndex + 1);
}

void BookmarkCommands::mnuBMprecedente_Click() {
    choose(form3_.List1.listIndex - 1);
}

void BookmarkCommands::choose(int index) {
    window_.Form_Load();
    if (index < 0 || index > rowCount(form3_.List1) - 1)
        return;
    form3_.List1.listIndex = index;
    window_.List1_DblClick();
}

} // namespace bookmarks
