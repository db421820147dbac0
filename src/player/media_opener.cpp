#include "player/media_opener.h"

#include "base/carry_on.h"
#include "platform/file_filter.h"

namespace player {

MediaOpener::MediaOpener(Form1& form, MediaSession& session, platform::Dialogs& dialogs, Settings& settings,
                         Companions& companions)
    : form_(form), session_(session), dialogs_(dialogs), settings_(settings), companions_(companions) {
    form_.mnuApri.Click = [this] { ApriMedia({}); };
    form_.Image3.Click = [this] { Image3_Click(); };
    for (controls::MenuItem* item :
         {&form_.mnuRecent1, &form_.mnuRecent2, &form_.mnuRecent3, &form_.mnuRecent4})
        item->Click = [this, item] { ApriMedia(base::Text(item->caption.get())); };
}

void MediaOpener::ApriMedia(base::TextView path) {
    if (form_.cmdPlay.enabled && form_.isPlaying())
        form_.cmdPlay.Click();
    const base::Text chosen = path.empty() ? askForMedia() : base::Text(path);
    if (chosen.empty())
        return;
    base::carryOn([&] { settings_.CartellaMedia = base::currentFolder(); });
    if (companions_.isRecordingTo(chosen))
        return;
    if (!base::fileExists(chosen)) {
        dialogs_.messageBox(base::TogliAmp(form_.Lingua(98)), base::TogliAmp(form_.Lingua(1)),
                            platform::BoxStyle::Exclamation);
        return;
    }
    companions_.wholeRecording(chosen, [this](const base::Text& whole) { openWhole(whole); });
}

void MediaOpener::openWhole(const base::Text& chosen) {
    companions_.leaveBookmarks();
    form_.Label4.tag = chosen;
    form_.HoverPlay = 1;
    session_.vai(chosen);
    form_.screen.mousePointer = controls::Pointer::Hourglass;
    form_.load(form_.cmdPlay, u"pause.jpg");
    companions_.rememberMedia(chosen);
    if (companions_.openBookmarks(chosen))
        form_.load(form_.cmdPlay, u"pause.jpg");
    companions_.PosizionaEditor();
    companions_.TornaAllEditor();
}

void MediaOpener::Image3_Click() {
    ApriMedia({});
    form_.HoverApri = 0;
    form_.load(form_.Image3, u"Apri.bmp");
}

base::Text MediaOpener::askForMedia() {
    platform::FileDialogRequest request;
    request.open = true;
    request.owner = form_.name;
    request.title = form_.Lingua(25);
    request.defaultExtension = u"wav";
    request.initialFolder = settings_.CartellaMedia;
    request.filter = platform::fileFilter(
        {{form_.Lingua(41), u"*.aac;*.avi;*.mp3;*.mpg;*.mpeg;*.ogg;*.ogv;*.wav;*.wma;*.wmv;*.ts;*.vob;*.flv"},
         {form_.Lingua(26), u"*.*"}});
    request.allMedia = true;
    return dialogs_.FileDlg(request);
}

} // namespace player
