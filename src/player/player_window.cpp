#include "player/player_window.h"

namespace player {

namespace {

constexpr double homePlace = 750; // twips from the corner of the screen

} // namespace

PlayerWindow::PlayerWindow(Form1& form, controls::Window& form2, controls::Window& form3,
                           PositionDisplay& display, platform::SettingsStore& store)
    : form_(form), Form2_(form2), Form3_(form3), display_(display), store_(store) {
    form_.Resize = [this] { Form_Resize(); };
    form_.mnuPrimoPiano.Click = [this] { mnuPrimoPiano_Click(); };
    form_.mnuMostraNascondi.Click = [this] { mnuMostraNascondi_Click(); };
    form_.mnuTitoloCompleto.Click = [this] { mnuTitoloCompleto_Click(); };
}

void PlayerWindow::Form_Resize() {
    if (form_.windowState == controls::WindowState::Normal) {
        if (form_.mnuMostraNascondi.caption.get() == form_.Lingua(116))
            Form2_.visible = true;
        if (form_.mnuBookMark.caption.get() == form_.Lingua(85))
            Form3_.visible = true;
    } else if (form_.windowState == controls::WindowState::Minimised) {
        Form2_.visible = false;
        Form3_.visible = false;
    }
}

void PlayerWindow::mnuMostraNascondi_Click() {
    if (!Form2_.visible) {
        form_.mnuMostraNascondi.caption = form_.Lingua(116);
        Form2_.visible = true;
    } else {
        Form2_.visible = false;
        form_.mnuMostraNascondi.caption = form_.Lingua(86);
    }
    store_.Salva();
}

void PlayerWindow::mnuPrimoPiano_Click() {
    form_.mnuPrimoPiano.checked = !form_.mnuPrimoPiano.checked;
    stayOnTop(form_.mnuPrimoPiano.checked);
    store_.Salva();
}

void PlayerWindow::stayOnTop(bool on) {
    form_.topmost = on;
    form_.left = homePlace;
    form_.top = homePlace;
}

void PlayerWindow::mnuTitoloCompleto_Click() {
    form_.mnuTitoloCompleto.checked = !form_.mnuTitoloCompleto.checked;
    display_.MostraPath();
    store_.Salva();
}

} // namespace player
