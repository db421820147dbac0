#include "desktop/qt_desktop.h"

#include "desktop/libraries.h"

#include <QCoreApplication>
#include <QTimer>

namespace desktop {

namespace {

constexpr int quietAfter = 1500; // ms from the first window on

} // namespace

QtDesktop::QtDesktop()
    : player_(base::toUtf8(system_.programFolder()) + "/Modules/mpv_player.so"), text_(QtSystem::codePage()),
      internet_(base::toUtf8(system_.programFolder()) + "/Modules/internet.so") {}

void QtDesktop::speak(const base::Text& fileLingua) {
    words_ = std::make_unique<StandardWords>(fileLingua, base::ProgramFolder(system_.programFolder()));
    QCoreApplication::installTranslator(words_.get());
}

void QtDesktop::show(player::Form1& form) {
    form1_ = std::make_unique<Form1Window>(form);
}

void QtDesktop::show(editor::Form2& form) {
    form2_ = std::make_unique<Form2Window>(form, text_);
}

void QtDesktop::show(outside::FrmInformazioni& form) {
    about_ = std::make_unique<FrmInformazioniWindow>(form);
}

std::vector<outside::Library> QtDesktop::libraries() {
    return librariesInUse(player_);
}

void QtDesktop::closeWindows() {
    about_.reset();
    player_.release();
    form2_.reset();
    form1_.reset();
}

void QtDesktop::prepareInIdleTime() {
    QTimer::singleShot(quietAfter, form1_.get(), [this] {
        player_.prepare();
        form1_->completeIcon();
    });
}

} // namespace desktop
