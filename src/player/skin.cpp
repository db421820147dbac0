#include "player/skin.h"

namespace player {

namespace {

constexpr double jump = 20; // twips

} // namespace

Skin::Skin(Form1& form)
    : form_(form), apri_{form.Image3, form.HoverApri, u"Apri.bmp", u"Apri2.bmp"},
      play_{form.cmdPlay, form.FlagHoverSkin, {}, {}}, indietro_{form.cmdIndietro, form.HoverIndietro,
                                                                 u"bac.jpg", u"bac2.jpg"},
      avanz_{form.cmdAvanz, form.HoverAvanz, u"for.jpg", u"for2.jpg"},
      stop_{form.cmdStop, form.HoverStop, u"stop.jpg", u"stop2.jpg"}, rec_{form.cmdRec, form.HoverRec,
                                                                           u"rec.jpg", u"rec2.jpg"} {
    form_.cmdAvanz.MouseMove = [this](const auto&) { cmdAvanz_MouseMove(); };
    form_.cmdIndietro.MouseMove = [this](const auto&) { cmdIndietro_MouseMove(); };
    form_.cmdPlay.MouseMove = [this](const auto&) { cmdPlay_MouseMove(); };
    form_.cmdStop.MouseMove = [this](const auto&) { cmdStop_MouseMove(); };
    form_.cmdRec.MouseMove = [this](const auto&) { cmdRec_MouseMove(); };
    form_.Image3.MouseMove = [this](const auto&) { Image3_MouseMove(); };
    form_.imgDetta.MouseMove = [this](const auto&) { imgDetta_MouseMove(); };
    form_.MouseMove = [this](const auto&) { Form_MouseMove(); };
}

void Skin::cmdAvanz_MouseMove() {
    light(avanz_);
    reset({&apri_, &play_, &indietro_, &stop_, &rec_});
}

void Skin::cmdIndietro_MouseMove() {
    light(indietro_);
    reset({&apri_, &play_, &avanz_, &stop_, &rec_});
}

void Skin::cmdPlay_MouseMove() {
    light(play_);
    reset({&apri_, &indietro_, &avanz_, &stop_, &rec_});
}

void Skin::cmdStop_MouseMove() {
    light(stop_);
    reset({&apri_, &play_, &indietro_, &avanz_, &rec_});
}

void Skin::cmdRec_MouseMove() {
    light(rec_);
    reset({&apri_, &play_, &indietro_, &avanz_, &stop_});
    returnDetta();
}

void Skin::Image3_MouseMove() {
    form_.HoverPlay = 0;
    light(apri_);
    reset({&play_, &indietro_, &avanz_, &stop_, &rec_});
}

void Skin::imgDetta_MouseMove() {
    if (form_.imgDetta.top == form_.DettaTop) {
        form_.imgDetta.left = form_.DettaLeft + jump;
        form_.imgDetta.top = form_.DettaTop + jump;
    }
    reset({&indietro_, &avanz_, &stop_, &rec_});
}

void Skin::Form_MouseMove() {
    form_.HoverPlay = 0;
    reset({&apri_, &play_, &indietro_, &avanz_, &stop_, &rec_});
    returnDetta();
}

void Skin::light(Lit& button) {
    if (button.flag != 0)
        return;
    button.flag = 1;
    form_.load(button.control, picture(button, true));
}

void Skin::reset(std::initializer_list<Lit*> buttons) {
    for (Lit* const button : buttons) {
        if (button->flag == 1) {
            button->flag = 0;
            form_.load(button->control, picture(*button, false));
        }
    }
}

void Skin::returnDetta() {
    if (form_.imgDetta.top == form_.DettaTop)
        return;
    form_.imgDetta.left = form_.DettaLeft;
    form_.imgDetta.top = form_.DettaTop;
}

base::Text Skin::picture(const Lit& button, bool hovered) const {
    if (&button != &play_)
        return hovered ? button.hover : button.rest;
    const base::Text word = form_.cmdPlay.tag.get() == form_.Lingua(7) ? u"play" : u"pause";
    return word + (hovered ? u"2.jpg" : u".jpg");
}

} // namespace player
