#include "editor/form2.h"

namespace editor {

namespace {

constexpr controls::Box hotArea(double left, double width) {
    return {left, 30, width, 435};
}

constexpr controls::Box letterBox = {0, 80, 435, 345};
constexpr double letterSize = 14.25; // points

} // namespace

Form2Menu::Form2Menu() {
    mnuFile.items = {&mnuNuovo,   &Riga1,      &mnuApri,    &mnuSalva, &mnuSalvaConNome, &riga3, &mnuRecent1,
                     &mnuRecent2, &mnuRecent3, &mnuRecent4, &mnur,     &mnuStampa};
    mnuModifica.items = {&mnuAnnulla, &mnuRipeti,         &riga4,    &mnuTaglia,     &mnuCopia, &mnuIncolla,
                         &riga2,      &mnuSelezionaTutto, &mnuTrova, &mnuSostituisci};
    mnuStrumenti.items = {&mnuOrtografia};
    menuBar = {&mnuFile, &mnuModifica, &mnuStrumenti, &mnuTimeStamp};
    for (MenuItem* item : {&mnuRecent1, &mnuRecent2, &mnuRecent3, &mnuRecent4, &mnur})
        item->visible = false;
    mnuTimeStamp.enabled = false;
}

Form2::Form2(platform::EventLoop& loop, platform::RichText& text, const lang::LanguageTable& language,
             const base::ProgramFolder& programFolder)
    : Window("Form2", {0, 0, clientWidth + 120, clientHeight + 810}), Lingua(language), folder(programFolder),
      RTB(text), Label2{{{"Label2(0)", hotArea(150, 435)},
                         {"Label2(1)", hotArea(580, 455)},
                         {"Label2(2)", hotArea(1020, 435)},
                         {"Label2(3)", hotArea(1440, 485)},
                         {"Label2(4)", hotArea(2880, 465)},
                         {"Label2(5)", hotArea(3300, 435)},
                         {"Label2(6)", hotArea(3720, 465)},
                         {"Label2(7)", hotArea(4140, 465)},
                         {"Label2(8)", hotArea(4650, 450)},
                         {"Label2(9)", hotArea(5100, 450)},
                         {"Label2(10)", hotArea(5550, 450)},
                         {"Label2(11)", hotArea(6040, 465)},
                         {"Label2(12)", hotArea(6510, 465)},
                         {"Label2(13)", hotArea(6950, 465)},
                         {"Label2(14)", hotArea(7460, 465)},
                         {"Label2(15)", hotArea(1980, 435)},
                         {"Label2(16)", hotArea(2400, 435)}}},
      Label3{{{"Label3(0)", letterBox},
              {"Label3(1)", letterBox},
              {"Label3(2)", letterBox},
              {"Label3(3)", letterBox}}},
      Timer1(loop) {
    caption = u"Text Editor";
    Image1.picture = folder.files(u"toolbar.png");
    Shape1.visible = false;
    const base::Text letters[] = {u"G", u"i", u"S", u"b"};
    for (std::size_t i = 0; i < Label3.size(); ++i) {
        Label3[i].caption = letters[i];
        Label3[i].fontSize = letterSize;
        Label3[i].foreColor = controls::rgb(0x3B, 0x48, 0x62);
        Label3[i].alignment = controls::Alignment::Centre;
    }
    Label3[0].fontBold = Label3[1].fontItalic = Label3[2].fontUnderline = Label3[3].fontStrikethru = true;
}

} // namespace editor
