#include "app/find_and_print.h"

namespace app {

namespace {

constexpr int unloadAfter = 100; // ms

} // namespace

FindAndPrint::FindAndPrint(Desktop& desktop, editor::Form2& editor)
    : frmFind_(desktop.eventLoop()), findReplace_(frmFind_, editor, desktop.dialogs()),
      printing_(editor, [&desktop]() -> platform::Printer& { return desktop.printer(); }) {
    findReplace_.Load = [this, &desktop] { desktop.show(frmFind_); };
}

void FindAndPrint::leave() {
    frmFind_.visible = false;
    frmFind_.Timer1.setInterval(unloadAfter);
}

} // namespace app
