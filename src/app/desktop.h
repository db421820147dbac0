#pragma once

#include "aids/abbreviations_window.h"
#include "aids/delivery_window.h"
#include "aids/figures_window.h"
#include "base/code_page.h"
#include "bookmarks/form3.h"
#include "dictation/form4.h"
#include "drafts/recogniser_window.h"
#include "editor/form2.h"
#include "editor/frm_find.h"
#include "editor/speakers_window.h"
#include "hands/keys_and_pedals_window.h"
#include "outside/frm_informazioni.h"
#include "outside/key_list.h"
#include "platform/child_process.h"
#include "platform/clipboard.h"
#include "platform/decoder.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/global_keys.h"
#include "platform/internet.h"
#include "platform/media_controls.h"
#include "platform/media_player.h"
#include "platform/pedals.h"
#include "platform/printer.h"
#include "platform/rich_text.h"
#include "platform/shell.h"
#include "platform/spelling.h"
#include "platform/system.h"
#include "platform/wave_input.h"
#include "platform/worker.h"
#include "player/form1.h"
#include "recorder/frm_audio_rec.h"
#include "safety/quiet_line.h"
#include "safety/versions_window.h"
#include "safety/what_happened.h"
#include "sound/sound_window.h"

namespace app {

// The desktop that the program runs on: its ports and its windows.
class Desktop {
public:
    virtual ~Desktop() = default;

    virtual platform::System& system() = 0;
    virtual platform::EventLoop& eventLoop() = 0;
    virtual platform::Dialogs& dialogs() = 0;
    virtual platform::MediaPlayer& mediaPlayer() = 0;
    virtual platform::Clipboard& clipboard() = 0;
    // The text control inside the editor's window.
    virtual platform::RichText& richText() = 0;
    // The printers. The first call loads a library and takes a moment. Throws base::Failure if the system
    // cannot print.
    virtual platform::Printer& printer() = 0;
    virtual platform::WaveInput& waveInput() = 0;
    virtual platform::Decoder& decoder() = 0;
    // The desktop's media keys and panels. The first call loads a library. Null if it cannot be loaded.
    virtual platform::MediaControls* mediaControls() = 0;
    // Another one, for what listens to the open recording while a draft is made.
    virtual platform::Decoder& listener() = 0;
    virtual platform::ChildProcess& childProcess() = 0;
    virtual platform::Internet& internet() = 0;
    virtual platform::Shell& shell() = 0;
    virtual platform::Spelling& spelling() = 0;
    virtual platform::Pedals& pedals() = 0;
    virtual platform::GlobalKeys& globalKeys() = 0;
    // The thread for work that blocks on the disk.
    virtual platform::Worker& disk() = 0;
    // The libraries behind the ports and the versions in use.
    virtual std::vector<outside::Library> libraries() = 0;
    // The single-byte code page of the user's language.
    virtual base::CodePage codePage() = 0;

    // From now on, the desktop's own texts, such as the buttons of dialogs, are in the language of this
    // language file. Keeps the reference and follows changes of the name.
    virtual void speak(const base::Text& fileLingua) = 0;

    // Each creates a window that shows this data and follows its visibility. The data outlives the desktop.
    virtual void show(player::Form1& form) = 0;
    virtual void show(editor::Form2& form) = 0;
    virtual void show(bookmarks::Form3& form) = 0;
    virtual void show(dictation::Form4& form) = 0;
    virtual void show(editor::FrmFind& form) = 0;
    virtual void show(editor::SpeakersWindow& form) = 0;
    virtual void show(recorder::FrmAudioRec& form) = 0;
    virtual void show(outside::FrmInformazioni& form) = 0;
    virtual void show(outside::KeysWindow& form) = 0;
    virtual void show(safety::QuietLineWindow& form) = 0;
    virtual void show(safety::NoticesWindow& form) = 0;
    virtual void show(safety::VersionsWindow& form) = 0;
    virtual void show(drafts::RecogniserWindow& form) = 0;
    virtual void show(hands::KeysAndPedalsWindow& form) = 0;
    virtual void show(aids::AbbreviationsWindow& form) = 0;
    virtual void show(aids::FiguresWindow& form) = 0;
    virtual void show(aids::DeliveryWindow& form) = 0;
    virtual void show(sound::SoundWindow& form) = 0;
};

} // namespace app
