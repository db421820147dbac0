#pragma once

#include "app/desktop.h"
#include "player/settings.h"
#include "recorder/cut_off_recordings.h"
#include "recorder/frm_audio_rec.h"
#include "recorder/recorder_window.h"
#include "recorder/wave_in.h"

namespace app {

// The recorder with its window, and the repair of recordings that a crash cut off.
class RecorderRoom {
public:
    RecorderRoom(Desktop& desktop, player::Form1& form1, player::Settings& settings, const lang::Words& words,
                 const base::TextFiles& files, const base::ProgramFolder& folder);

    // True if `path` is the one in the recorder's box, whether it records or not. Loads the recorder's
    // window, hidden.
    bool isRecordingTo(base::TextView path);
    // Searches the recordings' folders for files that a crash cut off, once the start is over.
    void searchCutOff();
    // Stops a running recording and completes its file.
    void close();

    recorder::FrmAudioRec& form() { return form_; }
    recorder::WaveIn& engine() { return engine_; }
    recorder::CutOffRecordings& cutOff() { return cutOff_; }

private:
    void open();

    Desktop& desktop_;
    player::Settings& settings_;
    recorder::RecordingJournal journal_;
    recorder::CutOffRecordings cutOff_;
    recorder::FrmAudioRec form_;
    recorder::WaveIn engine_;
    recorder::RecorderWindow window_;
    bool built_ = false; // the window exists; it is created on first use to shorten the start
};

} // namespace app
