#include "app/outside_room.h"

namespace app {

OutsideRoom::OutsideRoom(Desktop& desktop, player::Form1& form1, controls::Window& form2,
                         controls::Window& form3)
    : desktop_(desktop), about_(desktop.eventLoop(), form1.folder),
      links_(form1, form2, form3, desktop.shell()),
      updateCheck_(form1, links_, desktop.internet(), desktop.dialogs(), desktop.system()),
      aboutBox_(about_, form1, form2, form3, desktop.shell()) {
    form1.mnuInfo.Click = form1.Image4.Click = [this] { showAboutBox(); };
}

void OutsideRoom::showAboutBox() {
    // Built on first use, because the start should not wait for a window that is rarely opened.
    if (!aboutBuilt_) {
        about_.credits = desktop_.libraries();
        desktop_.show(about_);
        aboutBuilt_ = true;
    }
    aboutBox_.mnuInfo_Click();
}

} // namespace app
