#pragma once

#include "app/desktop.h"
#include "desktop/editor/rich_text_edit.h"
#include "desktop/form1_window.h"
#include "desktop/form2_window.h"
#include "desktop/frm_audio_rec_window.h"
#include "desktop/lazy_player.h"
#include "desktop/lazy_wave_input.h"
#include "desktop/qt_dialogs.h"
#include "desktop/qt_event_loop.h"
#include "desktop/qt_system.h"
#include "desktop/standard_words.h"

#include <memory>

namespace desktop {

// The real desktop: Qt's windows and services, and the media player's module.
class QtDesktop : public app::Desktop {
public:
    QtDesktop();

    platform::System& system() override { return system_; }
    platform::EventLoop& eventLoop() override { return eventLoop_; }
    platform::Dialogs& dialogs() override { return dialogs_; }
    platform::MediaPlayer& mediaPlayer() override { return player_; }
    platform::RichText& richText() override { return text_; }
    platform::WaveInput& waveInput() override { return waveInput_; }
    base::CodePage codePage() override { return QtSystem::codePage(); }
    void speak(const base::Text& fileLingua) override;
    void show(player::Form1& form) override;
    void show(editor::Form2& form) override;
    void show(recorder::FrmAudioRec& form) override;

    // Loads in a quiet moment what the first command would have to wait for.
    void prepareInIdleTime();
    // Takes the windows away, while the data that they show is still there.
    void closeWindows();

private:
    QtSystem system_;
    QtEventLoop eventLoop_;
    QtDialogs dialogs_;
    LazyPlayer player_;
    LazyWaveInput waveInput_;
    std::unique_ptr<StandardWords> words_;
    RichTextEdit text_;
    std::unique_ptr<Form1Window> form1_;
    std::unique_ptr<Form2Window> form2_;
    std::unique_ptr<FrmAudioRecWindow> frmAudioRec_;
};

} // namespace desktop
