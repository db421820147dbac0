#pragma once

#include "app/desktop.h"
#include "desktop/clipboard/qt_clipboard.h"
#include "desktop/qt/calm_windows.h"
#include "desktop/qt/key_repeats.h"
#include "desktop/qt/keyboard_order.h"
#include "desktop/services/lazy_decoder.h"
#include "desktop/services/lazy_hands.h"
#include "desktop/services/lazy_internet.h"
#include "desktop/services/lazy_module.h"
#include "desktop/services/lazy_player.h"
#include "desktop/services/lazy_spelling.h"
#include "desktop/services/lazy_wave_input.h"
#include "desktop/services/qt_child_process.h"
#include "desktop/services/qt_dialogs.h"
#include "desktop/services/qt_event_loop.h"
#include "desktop/services/qt_shell.h"
#include "desktop/services/qt_system.h"
#include "desktop/services/standard_words.h"
#include "desktop/text/rich_text_edit.h"
#include "desktop/windows/abbreviations_window.h"
#include "desktop/windows/delivery_window.h"
#include "desktop/windows/figures_window.h"
#include "desktop/windows/form1_window.h"
#include "desktop/windows/form2_window.h"
#include "desktop/windows/form3_window.h"
#include "desktop/windows/form4_window.h"
#include "desktop/windows/frm_audio_rec_window.h"
#include "desktop/windows/frm_find_window.h"
#include "desktop/windows/frm_informazioni_window.h"
#include "desktop/windows/keys_and_pedals_window.h"
#include "desktop/windows/keys_window.h"
#include "desktop/windows/notices_window.h"
#include "desktop/windows/quiet_line_view.h"
#include "desktop/windows/recogniser_window.h"
#include "desktop/windows/sound_window.h"
#include "desktop/windows/speakers_window.h"
#include "desktop/windows/versions_window.h"
#include "safety/disk_thread.h"

#include <memory>

namespace desktop {

// The real desktop: Qt's windows and services, and the loadable modules.
class QtDesktop : public app::Desktop {
public:
    QtDesktop();

    platform::System& system() override { return system_; }
    platform::EventLoop& eventLoop() override { return eventLoop_; }
    platform::Dialogs& dialogs() override { return dialogs_; }
    platform::MediaPlayer& mediaPlayer() override { return player_; }
    platform::Clipboard& clipboard() override { return clipboard_; }
    platform::RichText& richText() override { return text_; }
    platform::Printer& printer() override;
    platform::WaveInput& waveInput() override { return waveInput_; }
    platform::Decoder& decoder() override { return decoder_; }
    platform::MediaControls* mediaControls() override { return mediaControls_.load(); }
    platform::Decoder& listener() override { return listener_; }
    platform::ChildProcess& childProcess() override { return childProcess_; }
    platform::Internet& internet() override { return internet_; }
    platform::Worker& disk() override { return disk_; }
    platform::Shell& shell() override { return shell_; }
    platform::Spelling& spelling() override { return spelling_; }
    platform::Pedals& pedals() override { return pedals_; }
    platform::GlobalKeys& globalKeys() override { return globalKeys_; }
    std::vector<outside::Library> libraries() override;
    base::CodePage codePage() override { return QtSystem::codePage(); }
    void speak(const base::Text& fileLingua) override;
    void show(player::Form1& form) override;
    void show(editor::Form2& form) override;
    void show(editor::FrmFind& form) override;
    // These build the window at its first use.
    void show(bookmarks::Form3& form) override;
    void show(dictation::Form4& form) override;
    void show(recorder::FrmAudioRec& form) override;
    void show(outside::FrmInformazioni& form) override;
    void show(editor::SpeakersWindow& form) override;
    void show(safety::QuietLineWindow& form) override;
    void show(safety::NoticesWindow& form) override;
    void show(outside::KeysWindow& form) override;
    void show(safety::VersionsWindow& form) override;
    void show(drafts::RecogniserWindow& form) override;
    void show(hands::KeysAndPedalsWindow& form) override;
    void show(aids::AbbreviationsWindow& form) override;
    void show(aids::FiguresWindow& form) override;
    void show(aids::DeliveryWindow& form) override;
    void show(sound::SoundWindow& form) override;

    // In idle time, loads what the first command would otherwise wait for.
    void prepareInIdleTime();
    // Destroys the windows while the data that they show still exists.
    void closeWindows();
    // True if the system is still busy with an abandoned operation for which nobody should wait.
    bool isHanging() const { return internet_.isHanging(); }

private:
    QtSystem system_;
    QtEventLoop eventLoop_;
    QtDialogs dialogs_;
    LazyPlayer player_;
    QtClipboard clipboard_{QClipboard::Clipboard};
    KeyRepeats keyRepeats_;
    CalmWindows calmWindows_;
    KeyboardOrder keyboardOrder_;
    LazyWaveInput waveInput_;
    LazyDecoder decoder_;
    LazyDecoder listener_;
    LazySpelling spelling_;
    LazyModule<platform::MediaControls> mediaControls_;
    QtChildProcess childProcess_;
    std::unique_ptr<StandardWords> words_;
    RichTextEdit text_;
    LazyModule<platform::Printer> printing_;
    LazyInternet internet_;
    LazyPedals pedals_;
    LazyGlobalKeys globalKeys_;
    QtShell shell_;
    safety::DiskThread disk_;
    std::unique_ptr<Form1Window> form1_;
    std::unique_ptr<Form2Window> form2_;
    std::unique_ptr<FrmFindWindow> frmFind_;
    std::unique_ptr<Form3Window> form3_;
    std::unique_ptr<Form4Window> form4_;
    std::unique_ptr<FrmAudioRecWindow> frmAudioRec_;
    std::unique_ptr<FrmInformazioniWindow> about_;
    std::unique_ptr<QuietLineView> quietLine_;
    std::unique_ptr<NoticesWindow> notices_;
    std::unique_ptr<SpeakersWindow> speakers_;
    std::unique_ptr<KeysWindow> keys_;
    std::unique_ptr<VersionsWindow> versions_;
    std::unique_ptr<RecogniserWindow> recogniser_;
    std::unique_ptr<KeysAndPedalsWindow> keysAndPedals_;
    std::unique_ptr<AbbreviationsWindow> abbreviations_;
    std::unique_ptr<FiguresWindow> figures_;
    std::unique_ptr<DeliveryWindow> delivery_;
    std::unique_ptr<SoundWindow> sound_;
};

} // namespace desktop
