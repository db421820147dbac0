// The editor window as data: every control under its given name, with its initial position, caption and
// state.
#pragma once

#include "base/program_folder.h"
#include "controls/controls.h"
#include "controls/timer.h"
#include "lang/language_table.h"
#include "platform/rich_text.h"

#include <array>
#include <functional>
#include <vector>

namespace editor {

// The menus of the editor window.
struct Form2Menu {
    using MenuItem = controls::MenuItem;

    Form2Menu();

    MenuItem mnuFile{"mnuFile", u"&File"};
    MenuItem mnuNuovo{"mnuNuovo", u"&Nuovo", "Ctrl+N"};
    MenuItem Riga1{"Riga1"};
    MenuItem mnuApri{"mnuApri", u"&Apri..."};
    MenuItem mnuSalva{"mnuSalva", u"Sa&lva", "Ctrl+S"};
    MenuItem mnuSalvaConNome{"mnuSalvaConNome", u"Salva con &nome"};
    MenuItem riga3{"riga3"};
    MenuItem mnuRecent1{"mnuRecent1", u"mnuRecent1"};
    MenuItem mnuRecent2{"mnuRecent2", u"mnuRecent2"};
    MenuItem mnuRecent3{"mnuRecent3", u"mnuRecent3"};
    MenuItem mnuRecent4{"mnuRecent4", u"mnuRecent4"};
    MenuItem mnur{"mnur"};
    MenuItem mnuStampa{"mnuStampa", u"Stam&pa...", "Ctrl+P"};

    MenuItem mnuModifica{"mnuModifica", u"&Modifica"};
    MenuItem mnuAnnulla{"mnuAnnulla", u"Annulla", "Ctrl+Z"};
    MenuItem mnuRipeti{"mnuRipeti", u"&Ripeti", "Ctrl+Y"};
    MenuItem riga4{"riga4"};
    MenuItem mnuTaglia{"mnuTaglia", u"&Taglia", "Ctrl+X"};
    MenuItem mnuCopia{"mnuCopia", u"&Copia", "Ctrl+C"};
    MenuItem mnuIncolla{"mnuIncolla", u"I&ncolla", "Ctrl+V"};
    MenuItem riga2{"riga2"};
    MenuItem mnuSelezionaTutto{"mnuSelezionaTutto", u"&Seleziona tutto", "Ctrl+A"};
    MenuItem mnuTrova{"mnuTrova", u"Tro&va...", "Ctrl+F"};
    MenuItem mnuSostituisci{"mnuSostituisci", u"S&ostituisci", "Ctrl+H"};

    MenuItem mnuStrumenti{"mnuStrumenti", u"&Strumenti"};
    MenuItem mnuOrtografia{"mnuOrtografia", u"Controllo ortografico e grammaticale"};
    MenuItem mnuTimeStamp{"mnuTimeStamp", u"&Time stamp"}; // a command on the menu bar itself

    std::vector<MenuItem*> menuBar; // in order
};

// Where the text lies in the window.
struct TextPlace : controls::Control {
    using Control::Control;

    controls::Property<base::Text> hint{this}; // shown while the text is empty; no part of it
};

// The editor window: one text, the toolbar above it, the frame around it.
struct Form2 : controls::Window, Form2Menu {
    static constexpr int buttonCount = 17;
    static constexpr int letterCount = 4;

    Form2(platform::EventLoop& loop, platform::RichText& text, const lang::LanguageTable& language,
          const base::ProgramFolder& folder);

    const lang::LanguageTable& Lingua;
    const base::ProgramFolder& folder;
    platform::RichText& RTB;

    static constexpr double clientWidth = 10800; // twips
    static constexpr double clientHeight = 4395; // twips

    controls::Picture Image1{"Image1", {150, 60, 7800, 390}};    // all icons of the buttons
    controls::Control Line1{"Line1", {0, 480, clientWidth, 15}}; // line below the buttons
    controls::Control Shape1{"Shape1", {60, 60, 375, 375}};      // highlight of the button under the mouse
    controls::Label Label1{"Label1", {150, 480, 10485, 3855}};   // frame of the text
    TextPlace RTBPlace{"RTB", {510, 690, 9675, 3435}};
    std::array<controls::Control, buttonCount> Label2; // hot areas over the icons, indexed by ToolbarButton
    std::array<controls::Label, letterCount> Label3;   // letters over the four style buttons
    controls::ComboBox Combo1{"Combo1", {7950, 90, 1965, 315}}; // font names
    controls::ComboBox Combo2{"Combo2", {9960, 90, 645, 315}};  // font sizes, points

    controls::Property<bool> darkPage{this, false}; // text without a colour of its own is light

    controls::Property<int> zoom{this, 100}; // of the view of the text, in percent

    // Opens a menu at the caret; set by the window that displays it.
    std::function<void(controls::MenuItem&)> PopupAtCaret = [](controls::MenuItem&) {};
    std::function<void()> Print = [] {}; // prints the selection, or the whole document

    controls::Timer Timer1; // switches the form of the clipboard
};

} // namespace editor
