#include "player/media_session.h"

namespace player {

MediaSession::MediaSession(Form1& form, Transport& transport, PositionDisplay& display,
                           Companions& companions)
    : form_(form), transport_(transport), display_(display), companions_(companions) {
    form_.mnuChiudi.Click = [this] { mnuChiudi_Click(); };
}

void MediaSession::vai(base::TextView path) {
    form_.Label4.visible = true;
    form_.Shape3.visible = true;
    if (base::fileExists(path)) {
        form_.WMP1.setURL(path);
        form_.WMP1.setCurrentPosition(0);
        form_.Shape1.width = 0;
        form_.Timer1.setInterval(Form1::displayPeriod);
    }
    enableCommands(true);
    form_.cmdPlay.tag = form_.Lingua(7);
    transport_.cmdPlay_Click();
    display_.MostraPath();
}

void MediaSession::mnuChiudi_Click() {
    form_.WMP1.setURL(u"");
    form_.WMP1.close();
    form_.Timer1.setInterval(0);
    if (form_.HoverPlay == 1)
        form_.HoverPlay = 0;
    form_.Label2.caption = u"0:00 / 0:00";
    form_.Label4.visible = false;
    form_.Shape1.visible = false;
    form_.Shape3.visible = false;
    enableCommands(false);
    companions_.unloadForm3();
    form_.load(form_.cmdPlay, u"play.jpg");
}

void MediaSession::enableCommands(bool enabled) {
    for (controls::PictureButton* button :
         {&form_.cmdPlay, &form_.cmdStop, &form_.cmdAvanz, &form_.cmdIndietro})
        button->enabled = enabled;
    for (controls::MenuItem* item :
         {&form_.mnuChiudi, &form_.mnuPlay, &form_.mnuStop, &form_.mnuAvanti, &form_.mnuIndietro,
          &form_.mnuDiminuisciVelocità, &form_.mnuAumentaVelocità, &form_.mnuVai, &form_.mnuAddBM,
          &form_.mnuBMsuccessivo, &form_.mnuBMprecedente, &form_.mnuBookMark})
        item->enabled = enabled;
    companions_.enableTimeStamp(enabled);
}

} // namespace player
