#include "player/form1.h"

namespace player {

Form1Menu::Form1Menu() {
    mnuFile.items = {&mnuApri,    &mnuChiudi,  &sep,        &mnuRegistra, &mnuRiga, &mnuRecent1,
                     &mnuRecent2, &mnuRecent3, &mnuRecent4, &mnuR1,       &mnuEsci};
    mnuRiproduzione.items = {
        &mnuPlay, &mnuStop, &mnuIndietro, &mnuAvanti,       &mnuDiminuisciVelocità, &mnuAumentaVelocità,
        &mnuVai,  &r6,      &mnuAddBM,    &mnuBMsuccessivo, &mnuBMprecedente};
    mnuVisualizza.items = {&mnuMostraNascondi, &mnuBookMark};
    mnuOpzioni.items = {&mnuImpostaAudio,
                        &rt,
                        &mnuSecIndietro,
                        &mnuSalto,
                        &re,
                        &mnuSmartPlay,
                        &mnuTempoPlay,
                        &mnuTempoPause,
                        &mnuNoPlayOnWrite,
                        &mnuR5,
                        &mnuTitoloCompleto,
                        &mnuR2,
                        &mnuPrimoPiano,
                        &o2,
                        &mnuLingua,
                        &mnuAggLingua};
    mnuDonazioni.items = {&mnuFaiDonazione};
    mnuHelp.items = {&mnuGuida, &mnuR3,  &mnuVersioni, &mnuAggiornamenti, &mnuCheckUpdateStartup,
                     &mnuR4,    &mnuInfo};
    menuBar = {&mnuFile, &mnuRiproduzione, &mnuVisualizza, &mnuOpzioni, &mnuDonazioni, &mnuHelp};

    mnuChiudi.enabled = false;
    for (MenuItem* item : {&mnuRiga, &mnuRecent1, &mnuRecent2, &mnuRecent3, &mnuRecent4})
        item->visible = false;
    for (MenuItem* item : {&mnuIndietro, &mnuAvanti, &mnuDiminuisciVelocità, &mnuAumentaVelocità})
        item->repeats = true;
    mnuPrimoPiano.checked = true;
    mnuCheckUpdateStartup.checked = true;
}

Form1::Form1(platform::EventLoop& loop, platform::MediaPlayer& mediaPlayer,
             const lang::LanguageTable& language, const base::ProgramFolder& programFolder)
    : Window("Form1", {0, 0, clientWidth, clientHeight}), Lingua(language), folder(programFolder),
      WMP1(mediaPlayer), Timer1(loop), Timer2(loop), Timer3(loop), Timer4(loop), Timer5(loop), Timer6(loop) {
    using controls::Alignment;
    using controls::rgb;

    constexpr controls::Color ink = rgb(0x1F, 0x2A, 0x44);
    constexpr controls::Color teal = rgb(0x0E, 0x7C, 0x86);
    icon = folder.files(u"quillmere.ico");
    load(Image4, u"logo.jpg");
    load(Shape3, u"title.jpg");
    load(SeekTrack, u"track.jpg");
    load(Shape1, u"seek.jpg");
    load(Image2, u"volbar.jpg");
    load(Image1, u"volthumb.jpg");
    load(Image3, u"Apri.bmp");
    load(cmdPlay, u"play.jpg");
    load(cmdIndietro, u"bac.jpg");
    load(cmdStop, u"stop.jpg");
    load(cmdAvanz, u"for.jpg");
    load(cmdRec, u"rec.jpg");
    load(imgDetta, u"detta.jpg");

    for (controls::Label* label : {&Label4, &Label2})
        label->foreColor = ink;
    for (controls::Label* label : {&Label1, &Label3, &Label7})
        label->foreColor = teal;
    for (controls::Label* label : {&Label1, &Label2, &Label3})
        label->fontBold = true;
    Label4.alignment = Alignment::Centre;
    Label4.fontSize = 14;
    Label4.showsPath = true;
    Label4.visible = false;
    Shape3.visible = false;
    VideoBox.visible = false;
    Label2.alignment = Alignment::Centre;
    Label7.fontName = u"Arial Narrow";
    Label7.visible = false;
    Label1.caption = u"+";
    Label1.alignment = Alignment::Centre;
    Label3.caption = u"-";
    Label3.alignment = Alignment::Centre;
    Label3.fontSize = 18; // at this size the dash appears below the bar's end, where its label begins
    Label5.caption = u"100%";
    Label5.alignment = Alignment::Centre;
    Label5.foreColor = rgb(0xFF, 0xFF, 0xFF);
    cmdPlay.enabled = false;
    cmdStop.enabled = false;
}

} // namespace player
