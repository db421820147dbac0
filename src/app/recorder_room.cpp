#include "app/recorder_room.h"

namespace app {

RecorderRoom::RecorderRoom(Desktop& desktop, player::Form1& form1, player::Settings& settings,
                           const lang::Words& words, const base::TextFiles& files,
                           const base::ProgramFolder& folder)
    : desktop_(desktop), settings_(settings), journal_(files, folder.files(u"Recordings.ini")),
      cutOff_(desktop.eventLoop(), desktop.dialogs(), journal_, form1.Lingua, words),
      form_(desktop.eventLoop(), form1.Lingua, folder),
      engine_(desktop.waveInput(), desktop.dialogs(), journal_),
      window_(form_, form1, engine_, desktop.dialogs(), settings) {
    form1.mnuRegistra.Click = [this] { open(); };
    form1.cmdRec.Click = [this] { open(); };
}

void RecorderRoom::open() {
    if (!built_) {
        built_ = true;
        desktop_.show(form_);
    }
    window_.mnuRegistra_Click();
}

bool RecorderRoom::isRecordingTo(base::TextView path) {
    window_.load();
    return form_.txtFile.text.get() == path;
}

void RecorderRoom::searchCutOff() {
    cutOff_.search({form_.folder.path(), settings_.CartellaMedia});
}

void RecorderRoom::close() {
    cutOff_.stop();
    window_.Form_Unload();
}

} // namespace app
