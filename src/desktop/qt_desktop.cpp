#include "desktop/qt_desktop.h"

#include <QCoreApplication>
#include <QTimer>

namespace desktop {

namespace {

constexpr int quietAfter = 1500; // ms from the first window on

std::string modulePath(const platform::System& system, std::string_view name) {
    return base::toUtf8(system.programFolder()) + "/Modules/" + std::string(name) + ".so";
}

} // namespace

QtDesktop::QtDesktop()
    : player_(modulePath(system_, "mpv_player")), waveInput_(modulePath(system_, "portaudio_capture")),
      text_(QtSystem::codePage()) {}

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

void QtDesktop::show(recorder::FrmAudioRec& form) {
    waveInput_.prepare();
    frmAudioRec_ = std::make_unique<FrmAudioRecWindow>(form);
}

void QtDesktop::closeWindows() {
    player_.release();
    frmAudioRec_.reset();
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
