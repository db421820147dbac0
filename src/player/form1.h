// The player window as data: every control under its given name, with its initial position, caption and
// state.
#pragma once

#include "base/program_folder.h"
#include "controls/controls.h"
#include "controls/timer.h"
#include "lang/language_table.h"
#include "platform/media_player.h"

#include <vector>

namespace player {

// The menus of the player window. An item without a routine is visible but disabled.
struct Form1Menu {
    using MenuItem = controls::MenuItem;

    Form1Menu();

    MenuItem mnuFile{"mnuFile", u"&File"};
    MenuItem mnuApri{"mnuApri", u"&Apri file...", "Ctrl+O"};
    MenuItem mnuChiudi{"mnuChiudi", u"&Chiudi file multimediale", "Ctrl+F4"};
    MenuItem sep{"sep"};
    MenuItem mnuRegistra{"mnuRegistra", u"Registra..."};
    MenuItem mnuRiga{"mnuRiga"};
    MenuItem mnuRecent1{"mnuRecent1", u"mnuRecent1"};
    MenuItem mnuRecent2{"mnuRecent2", u"mnuRecent2"};
    MenuItem mnuRecent3{"mnuRecent3", u"mnuRecent3"};
    MenuItem mnuRecent4{"mnuRecent4", u"mnuRecent4"};
    MenuItem mnuR1{"mnuR1"};
    MenuItem mnuEsci{"mnuEsci", u"&Esci", "Ctrl+Q"};

    MenuItem mnuRiproduzione{"mnuRiproduzione", u"&Riproduzione"};
    MenuItem mnuPlay{"mnuPlay", u"&Play", "F5"};
    MenuItem mnuStop{"mnuStop", u"&Stop"};
    MenuItem mnuIndietro{"mnuIndietro", u"&Indietro", "F6"};
    MenuItem mnuAvanti{"mnuAvanti", u"&Avanti", "F7"};
    MenuItem mnuDiminuisciVelocità{"mnuDiminuisciVelocità", u"Diminuisci velocità riproduzione", "F3"};
    MenuItem mnuAumentaVelocità{"mnuAumentaVelocità", u"Aumenta velocità riproduzione", "F4"};
    MenuItem mnuVai{"mnuVai", u"Vai a..."};
    MenuItem r6{"r6"};
    MenuItem mnuAddBM{"mnuAddBM", u"Aggiungi BookMark", "Ctrl+M"};
    MenuItem mnuBMsuccessivo{"mnuBMsuccessivo", u"Vai al BookMark successivo"};
    MenuItem mnuBMprecedente{"mnuBMprecedente", u"Vai al BookMark precedente"};

    MenuItem mnuVisualizza{"mnuVisualizza", u"&Visualizza"};
    MenuItem mnuMostraNascondi{"mnuMostraNascondi", u"Mostra l'editor di testo"};
    MenuItem mnuBookMark{"mnuBookMark", u"Mostra &BookMark", "F8"};

    MenuItem mnuOpzioni{"mnuOpzioni", u"&Opzioni"};
    MenuItem mnuImpostaAudio{"mnuImpostaAudio", u"&Imposta audio...", "F9"};
    MenuItem rt{"rt"};
    MenuItem mnuSecIndietro{"mnuSecIndietro", u"Secondi indietro su &pausa..."};
    MenuItem mnuSalto{"mnuSalto", u"&Salto avanti / indietro secondi..."};
    MenuItem re{"re"};
    MenuItem mnuSmartPlay{"mnuSmartPlay", u"Play intelligente", "F12"};
    MenuItem mnuTempoPlay{"mnuTempoPlay", u"Tempo di riproduzione prima della pausa"};
    MenuItem mnuTempoPause{"mnuTempoPause", u"Tempo di pausa prima della riproduzione"};
    MenuItem mnuNoPlayOnWrite{"mnuNoPlayOnWrite", u"Non avviare la riproduzione durante la digitazione"};
    MenuItem mnuR5{"mnuR5"};
    MenuItem mnuTitoloCompleto{"mnuTitoloCompleto", u"Mostra percorso file", "F11"};
    MenuItem mnuR2{"mnuR2"};
    MenuItem mnuPrimoPiano{"mnuPrimoPiano", u"Player sempre in primo piano"};
    MenuItem o2{"o2"};
    MenuItem mnuLingua{"mnuLingua", u"&Lingua...", "Ctrl+W"};
    MenuItem mnuAggLingua{"mnuAggLingua", u"Aggiungi Lingua..."};

    MenuItem mnuDonazioni{"mnuDonazioni", u"&Donazioni"};
    MenuItem mnuFaiDonazione{"mnuFaiDonazione", u"&Fai una donazione"};

    MenuItem mnuHelp{"mnuHelp", u"&?"};
    MenuItem mnuGuida{"mnuGuida", u"&Guida...", "F1"};
    MenuItem mnuR3{"mnuR3"};
    MenuItem mnuVersioni{"mnuVersioni", u"Versioni"};
    MenuItem mnuAggiornamenti{"mnuAggiornamenti", u"&Controlla aggiornamenti..."};
    MenuItem mnuCheckUpdateStartup{"mnuCheckUpdateStartup", u"Controlla aggiornamenti all'avvio"};
    MenuItem mnuR4{"mnuR4"};
    MenuItem mnuInfo{"mnuInfo", u"&Informazioni sul programma...", "Ctrl+F1"};

    std::vector<MenuItem*> menuBar; // in order
};

// The player window. Its controls hold the state of the session: the tag of cmdPlay is the run state, the tag
// of Label4 the path of the open file.
struct Form1 : controls::Window, Form1Menu {
    Form1(platform::EventLoop& loop, platform::MediaPlayer& mediaPlayer, const lang::LanguageTable& language,
          const base::ProgramFolder& folder);

    // True while a file plays. The run state is the tag of cmdPlay, compared with a language entry.
    bool isPlaying() const { return cmdPlay.tag.get() == Lingua(8); }
    // True while a video fills the screen and the player in front of it is not the active window.
    bool pictureKeepsKeyboard() const {
        return VideoWindow.visible && VideoWindow.windowState == controls::WindowState::FullScreen && !active;
    }
    // Loads the skin's picture `file` into a control.
    void load(controls::Picture& picture, base::TextView file) const { picture.picture = folder.files(file); }

    const lang::LanguageTable& Lingua;
    const base::ProgramFolder& folder;
    platform::MediaPlayer& WMP1;

    static constexpr double clientWidth = 5220;  // twips
    static constexpr double clientHeight = 2625; // twips

    controls::Screen screen;
    // The video in a window of its own, whose size is the client size inside the frame. The player's menu
    // shortcuts work in it.
    controls::Window VideoWindow{"VideoWindow", {0, 0, 9600, 5400}};

    // In z-order, from bottom to top.
    controls::Picture Image4{"Image4", {690, 270, 3570, 840}};        // logo
    controls::Picture Shape3{"Shape3", {300, 165, 4095, 960}};        // background of the title line
    controls::Label Label4{"Label4", {330, 180, 4035, 825}};          // title line
    controls::Control VideoBox{"WMP1", {420, 360, 555, 495}};         // box in which the player shows a video
    controls::Picture SeekTrack{"SeekTrack", {300, 2190, 4635, 240}}; // the empty bar, below its fill
    controls::Fill Shape1{"Shape1", {300, 2190, 4635, 225}};    // position bar; its width is the progress
    controls::Label Label2{"Label2", {300, 2190, 4635, 240}};   // position text
    controls::Label Label7{"Label7", {270, 1950, 450, 240}};    // speed
    controls::Label Label1{"Label1", {4770, 45, 165, 360}};     // "+"
    controls::Label Label3{"Label3", {4800, 1365, 120, 435}};   // "-"
    controls::Label Label5{"Label5", {4620, 1680, 495, 285}};   // volume in per cent
    controls::Picture Image2{"Image2", {4815, 360, 90, 1200}};  // volume bar
    controls::Picture Image1{"Image1", {4665, 1230, 375, 195}}; // volume thumb; its tag is the volume
    controls::PictureButton Image3{"Image3", {300, 1350, 660, 570}}; // open a file
    controls::PictureButton cmdPlay{"cmdPlay", {1050, 1260, 720, 735}};
    controls::PictureButton cmdIndietro{"cmdIndietro", {1740, 1350, 540, 555}};
    controls::PictureButton cmdStop{"cmdStop", {2310, 1350, 540, 555}};
    controls::PictureButton cmdAvanz{"cmdAvanz", {2880, 1350, 540, 555}};
    controls::PictureButton cmdRec{"cmdRec", {3450, 1395, 450, 450}};
    controls::PictureButton imgDetta{"imgDetta", {4080, 1425, 450, 420}}; // smart play

    // Calls `visit` with each control of the window, in z-order from bottom to top.
    template <typename Visitor>
    void forEachControl(Visitor&& visit) {
        const auto each = [&](auto&... controls) { (visit(controls), ...); };
        each(Image4, Shape3, Label4, VideoBox, SeekTrack, Shape1, Label2, Label7, Label1, Label3, Label5,
             Image2, Image1, Image3, cmdPlay, cmdIndietro, cmdStop, cmdAvanz, cmdRec, imgDetta);
    }

    static constexpr int displayPeriod = 100; // ms; interval of Timer1 while a file runs

    controls::Timer Timer1; // title, position text, position bar
    controls::Timer Timer2; // volume follows the drag of the thumb
    controls::Timer Timer3; // fade of Label5
    controls::Timer Timer4; // watches the player's state
    controls::Timer Timer5; // phases of the timed cycle
    controls::Timer Timer6; // detects a pause in typing

    int HoverPlay =
        0; // 1: cmdPlay keeps its pause picture after an open, until the mouse has moved elsewhere
    int FlagHoverSkin = 0; // 1: cmdPlay shows its hover picture
    int HoverApri = 0;     // 1: this button shows its hover picture; likewise below
    int HoverIndietro = 0;
    int HoverStop = 0;
    int HoverAvanz = 0;
    int HoverRec = 0;
    int DettaTop = 0; // resting position of imgDetta, twips
    int DettaLeft = 0;
};

} // namespace player
