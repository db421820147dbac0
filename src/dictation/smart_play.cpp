#include "dictation/smart_play.h"

namespace dictation {

SmartPlay::SmartPlay(player::Form1& form, player::Transport& transport, platform::Dialogs& dialogs,
                     platform::SettingsStore& store)
    : form_(form), transport_(transport), dialogs_(dialogs), store_(store) {
    form_.mnuSmartPlay.Click = [this] { mnuSmartPlay_Click(); };
    form_.imgDetta.Click = [this] { imgDetta_Click(); };
    form_.mnuNoPlayOnWrite.Click = [this] { mnuNoPlayOnWrite_Click(); };
    form_.Timer6.Tick = [this] { Timer6_Timer(); };
}

void SmartPlay::mnuSmartPlay_Click() {
    if (form_.mnuSmartPlay.checked) {
        turnOff();
    } else {
        turnOn();
        dialogs_.messageBox(base::TogliAmp(form_.Lingua(127)), base::TogliAmp(form_.Lingua(124)),
                            platform::BoxStyle::Information);
    }
    store_.Salva();
}

void SmartPlay::imgDetta_Click() {
    if (form_.mnuSmartPlay.checked) {
        turnOff();
    } else {
        turnOn();
        if (form_.cmdPlay.enabled && form_.cmdPlay.tag.get() == form_.Lingua(7))
            transport_.cmdPlay_Click();
    }
    store_.Salva();
}

void SmartPlay::turnOff() {
    form_.load(form_.imgDetta, u"detta.jpg");
    form_.mnuSmartPlay.checked = false;
    transport_.stopCycle();
    if (form_.cmdPlay.enabled && form_.isPlaying())
        transport_.cmdPlay_Click();
}

void SmartPlay::turnOn() {
    form_.load(form_.imgDetta, u"detta2.jpg");
    form_.mnuSmartPlay.checked = true;
}

void SmartPlay::mnuNoPlayOnWrite_Click() {
    form_.mnuNoPlayOnWrite.checked = !form_.mnuNoPlayOnWrite.checked;
    store_.Salva();
}

void SmartPlay::Timer6_Timer() {
    form_.Timer6.setInterval(0);
}

} // namespace dictation
