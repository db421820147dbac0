#include "app/workstation.h"

#include "base/carry_on.h"
#include "player/apply_language.h"

#include <ctime>

namespace app {

using lang::operator""_en;

namespace {

constexpr base::TextView applicationTitle = u"Quillmere";

} // namespace

Workstation::Workstation(Desktop& desktop, const base::TextFiles& files, const base::ProgramFolder& folder,
                         lang::LanguageTable& language, base::TextView commandLine)
    : desktop_(desktop), folder_(folder), Lingua(language), words_(language.FileLingua, folder),
      options_(folder.files(u"Options.ini")), notices_([] { return std::time(nullptr); }),
      form1_(desktop.eventLoop(), desktop.mediaPlayer(), language, folder),
      recentMedia_({&form1_.mnuRecent1, &form1_.mnuRecent2, &form1_.mnuRecent3, &form1_.mnuRecent4},
                   form1_.mnuRiga, files, folder.files(u"LastFiles.ini")),
      editor_(desktop, form1_, settings_, files, [this] { settingsFile_.Salva(); }),
      findAndPrint_(desktop, editor_.form()), input_(desktop, form1_),
      bookmarks_(desktop, files, form1_, editor_.form(), input_.dialog, words_),
      recorder_(desktop, form1_, settings_, words_, files, folder),
      companions_(form1_, recentMedia_, editor_, bookmarks_, recorder_, language, words_),
      settingsFile_(files, folder, {language, form1_, editor_.form(), bookmarks_.form(), settings_}),
      display_(form1_), transport_(form1_, settings_, companions_, phraseTargets_),
      session_(form1_, transport_, display_, companions_),
      opener_(form1_, session_, desktop.dialogs(), settings_, companions_), seekBar_(form1_, transport_),
      volumeBar_(form1_, companions_), speed_(form1_), skin_(form1_),
      spokenSkin_(form1_, seekBar_, volumeBar_, desktop.eventLoop(), words_),
      spokenToolbar_(editor_.form(), editor_.keys(), words_),
      focusRound_(form1_, editor_.form(), bookmarks_.form()),
      videoPicture_(form1_, editor_.form(), bookmarks_.form()),
      window_(form1_, editor_.form(), bookmarks_.form(), display_, settingsFile_),
      drop_(form1_, session_, desktop.dialogs(), companions_),
      languageMenu_(form1_, language, desktop.dialogs(), companions_, settingsFile_),
      smartPlay_(form1_, transport_, desktop.dialogs(), settingsFile_),
      cycle_(form1_, transport_, settings_, companions_),
      inputJobs_(input_.dialog, form1_, settings_, settingsFile_),
      outside_(desktop, form1_, editor_.form(), bookmarks_.form()),
      safety_(desktop, form1_, editor_, bookmarks_, files, notices_),
      reports_(notices_, {form1_, editor_, bookmarks_, recorder_, settingsFile_, recentMedia_}),
      transcriptMenu_(editor_.form(), words_),
      soundCommands_(form1_, desktop.disk(), folder.files(u"Safety/RecordingSounds")),
      moments_(desktop, form1_, editor_, transcriptMenu_, options_, notices_),
      safetyWindows_(desktop, form1_, editor_, transcriptMenu_,
                     {notices_, safety_.archive(), safetyOptions_, words_, files}),
      drafts_(desktop, form1_, editor_, transcriptMenu_, {options_, words_, notices_, moments_}),
      speakers_(desktop, form1_, editor_, transcriptMenu_, words_),
      sound_(desktop, form1_, editor_.form(), transcriptMenu_,
             {options_, notices_, phraseTargets_, bookmarks_, words_, soundCommands_.commands()}),
      spelling_(desktop, form1_, editor_, transcriptMenu_, options_, words_, notices_),
      aids_(desktop, form1_, editor_, transcriptMenu_, {options_, words_, notices_, speakers_}),
      delivery_(desktop, {form1_, editor_, spelling_, drafts_.doubts()}, transcriptMenu_, options_, words_),
      darkPage_(editor_.form(), options_, transcriptMenu_),
      hands_(desktop, {form1_, volumeBar_, speed_, opener_}, editor_, transcriptMenu_, options_, words_,
             notices_),
      keys_(desktop, form1_, editor_, transcriptMenu_, findAndPrint_, words_),
      editorHint_(form1_, editor_.form(), words_) {
    wireSafety();
    focusRound_.addLast(sound_.window());
    form1_.mnuEsci.Click = [this] { mnuEsci_Click(); };
    form1_.Unload = [this] { return Form_Unload(); };
    form1_.FrameKnown = [this](double wider, double higher) { companions_.followFrame(wider, higher); };
    form1_.KeyDown = [this](const platform::KeyEvent& key) {
        if (key.keyCode == platform::escapeKey)
            mnuEsci_Click();
    };
    desktop_.show(form1_);
    Form_Initialize();
    Form_Load(commandLine);
}

void Workstation::wireSafety() {
    options_.tie("KeepVersions", safetyOptions_.archive);
    options_.tie("VersionDays", safetyOptions_.days, 1, 36500);
    options_.tie("VersionMegabytes", safetyOptions_.megabytes, 1, 1'000'000);
    safety_.keepsArchive = [this] { return safetyOptions_.archive; };
    safety_.archive().setLimits(safetyOptions_.days, safetyOptions_.megabytes);
    safetyWindows_.OptionsChanged() = moments_.OptionsChanged() = drafts_.OptionsChanged() =
        sound_.OptionsChanged = spelling_.OptionsChanged() = aids_.OptionsChanged = darkPage_.Changed =
            hands_.OptionsChanged() = [this] {
                base::carryOn([this] { options_.save(); },
                              [this](const char* reason) {
                                  notices_.tell(u"The options could not be saved: %1"_en,
                                                {base::fromUtf8(reason)});
                              });
            };
}

void Workstation::Form_Initialize() {
    editor_.Form_Load();
    companions_.PosizionaEditor();
}

void Workstation::Form_Load(base::TextView commandLine) {
    drop_.install();
    volumeBar_.IniziaVolume();
    form1_.caption = base::Text(applicationTitle);
    form1_.top = 0;
    const StartSettings start = settingsFile_.read();
    base::carryOn([&] { Lingua.load(); });
    placeWindows(start);
    showCompanions(start);
    player::ApplicaLingua(form1_, companions_);
    showWithoutMedia();
    editor_.recentDocuments().load(recentMedia_.load(false));
    showHandPointer();
    const bool withFile = !base::trimmed(commandLine).empty();
    if (withFile)
        session_.vai(commandLine);
    form1_.Image1.tag = start.volume;
    session_.mnuChiudi_Click();
    volumeBar_.ApplicaVolume();
    if (withFile)
        opener_.ApriMedia(commandLine.substr(1, commandLine.size() > 2 ? commandLine.size() - 2 : 0));
    safety_.start();
    moments_.start();
    drafts_.start();
    sound_.start();
    spelling_.start();
    hands_.start();
    aids_.start();
    recorder_.searchCutOff();
    if (start.checkUpdate == 1)
        ends_ = outside_.updateCheck().ControllaAggiornamenti();
}

void Workstation::placeWindows(const StartSettings& start) {
    if (start.hasPositions()) {
        form1_.left = start.left1;
        form1_.top = start.top1;
        editor_.form().left = start.left2;
        editor_.form().top = start.top2;
    }
    form1_.mnuPrimoPiano.checked = start.topmost;
    window_.stayOnTop(start.topmost);
}

void Workstation::showCompanions(const StartSettings& start) {
    if (start.editorHidden == 0) {
        editor_.window().keepOnScreen();
        editor_.form().visible = true;
    }
    if (start.showForm3 == 1) {
        bookmarks_.window.Form_Load();
        bookmarks_.form().left = start.left3;
        bookmarks_.form().top = start.top3;
        bookmarks_.form().width = start.width3;
        bookmarks_.form().height = start.height3;
        bookmarks_.form().visible = true;
    }
}

void Workstation::showWithoutMedia() {
    form1_.Shape1.visible = false;
    form1_.Label2.left = form1_.Shape1.left.get();
    form1_.Label2.width = form1_.Shape1.width.get();
    form1_.Label2.caption = u"0:00 / 0:00";
    for (controls::MenuItem* item :
         {&form1_.mnuPlay, &form1_.mnuStop, &form1_.mnuAvanti, &form1_.mnuIndietro,
          &form1_.mnuDiminuisciVelocità, &form1_.mnuAumentaVelocità, &form1_.mnuVai})
        item->enabled = false;
    form1_.cmdStop.enabled = false;
    form1_.mnuSecIndietro.caption = Lingua(30);
    form1_.Image1.toolTip = u" " + Lingua(27) + u" ";
    form1_.DettaTop = static_cast<int>(form1_.imgDetta.top);
    form1_.DettaLeft = static_cast<int>(form1_.imgDetta.left);
}

void Workstation::showHandPointer() {
    for (controls::Control* button :
         std::initializer_list<controls::Control*>{&form1_.Image3, &form1_.imgDetta, &form1_.cmdPlay,
                                                   &form1_.cmdIndietro, &form1_.cmdStop, &form1_.cmdAvanz})
        button->pointerIcon = folder_.files(u"Indica.ico");
}

bool Workstation::Form_Unload() {
    bookmarks_.media.SalvaBookMark();
    if (keepsRunning()) {
        bookmarks_.window.refill(); // the save has emptied the lists
        return true;
    }
    left_ = true;
    safety_.leave();
    moments_.leave();
    aids_.leave();
    drop_.remove();
    settingsFile_.Salva();
    bookmarks_.form().visible = false;
    bookmarks_.form().Timer1.setInterval(50);
    findAndPrint_.leave();
    drafts_.leave();
    speakers_.leave();
    sound_.leave();
    spelling_.leave();
    delivery_.leave();
    safetyWindows_.leave();
    keys_.leave();
    hands_.leave();
    form1_.WMP1.stop();
    recorder_.close();
    editor_.form().visible = false;
    desktop_.system().endProcess();
    return false;
}

void Workstation::openDocument(base::TextView path) {
    if (!editor_.form().visible)
        form1_.mnuMostraNascondi.Click();
    editor_.document().openDocument(path);
    companions_.TornaAllEditor();
}

void Workstation::endSession() {
    recorder_.close();
    keepAll();
    desktop_.system().endProcess();
}

void Workstation::keepAll() {
    if (left_)
        return;
    safety_.flush();
    moments_.flush();
    aids_.flush();
    settingsFile_.Salva();
}

bool Workstation::keepsRunning() {
    const auto answer = editor_.document().askAtExit();
    if (answer == editor::Document::ExitAnswer::SaveCancelled) {
        settingsFile_.Salva();
        form1_.visible = true;
    }
    return answer != editor::Document::ExitAnswer::Go;
}

void Workstation::mnuEsci_Click() {
    Form_Unload();
}

} // namespace app
