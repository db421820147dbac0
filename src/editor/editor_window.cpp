#include "editor/editor_window.h"

#include <utility>

namespace editor {

EditorWindow::EditorWindow(Form2& form, controls::Window& player, const controls::Screen& screen,
                           controls::MenuItem& showHideCommand)
    : form_(form), player_(player), screen_(screen), mnuMostraNascondi_(showHideCommand) {
    form_.Resize = [this] { Form_Resize(); };
    form_.Unload = [this] { return Form_Unload(); };
}

void EditorWindow::Form_Load() {
    form_.left = player_.left.get();
    form_.top = player_.top + player_.height;
    keepOnScreen();
    form_.icon = player_.icon.get();
    const base::Text hand = form_.folder.files(u"Indica.ico");
    for (controls::Control& button : form_.Label2)
        button.pointerIcon = hand;
    form_.Combo1.pointerIcon = form_.Combo2.pointerIcon = hand;
    CambiaLingua2();
}

void EditorWindow::keepOnScreen() {
    const controls::Box area = screen_.areaOf(form_);
    const double right = area.left + area.width;
    const double bottom = area.top + area.height;
    if (form_.left + form_.width > right)
        resize(form_.width, right - form_.left);
    if (form_.top + form_.height > bottom)
        resize(form_.height, bottom - form_.top);
}

void EditorWindow::Form_Resize() {
    resize(form_.Label1.width, form_.width - 2 * form_.Label1.left - 120);
    resize(form_.Label1.height, form_.height - 2 * form_.Label1.top - 500);
    resize(form_.RTBPlace.width, form_.Label1.width - 360 - form_.Label1.left);
    resize(form_.Line1.width, form_.width);
    resize(form_.RTBPlace.height, form_.Label1.height - form_.Label1.top + 100);
}

bool EditorWindow::Form_Unload() {
    form_.visible = false;
    mnuMostraNascondi_.caption = form_.Lingua(86);
    return true;
}

void EditorWindow::CambiaLingua2() {
    const std::pair<controls::MenuItem*, int> captions[] = {
        {&form_.mnuFile, 2},         {&form_.mnuNuovo, 42},          {&form_.mnuApri, 43},
        {&form_.mnuSalva, 44},       {&form_.mnuSalvaConNome, 45},   {&form_.mnuStampa, 46},
        {&form_.mnuModifica, 47},    {&form_.mnuTaglia, 48},         {&form_.mnuCopia, 49},
        {&form_.mnuIncolla, 50},     {&form_.mnuSelezionaTutto, 51}, {&form_.mnuTrova, 56},
        {&form_.mnuSostituisci, 59}, {&form_.mnuAnnulla, 70},        {&form_.mnuStrumenti, 71},
        {&form_.mnuOrtografia, 72},  {&form_.mnuRipeti, 82},         {&form_.mnuTimeStamp, 134},
    };
    for (const auto& [item, entry] : captions)
        item->caption = form_.Lingua(entry);
    form_.mnuStrumenti.visible = false;
}

} // namespace editor
