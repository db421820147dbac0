#pragma once

#include "platform/dialogs.h"
#include "player/form1.h"
#include "player/settings.h"
#include "recorder/frm_audio_rec.h"
#include "recorder/wave_in.h"

namespace recorder {

// Seconds as "hh:mm:ss", from 100 hours on with as many digits as it takes; with `millisecondi` the value
// counts thousandths.
base::Text FormatTime(std::int64_t secondi, bool millisecondi);

// What the user does in the recorder's window: picks a format and a file, starts, pauses and stops.
class RecorderWindow {
public:
    RecorderWindow(FrmAudioRec& form, player::Form1& player, WaveIn& engine, platform::Dialogs& dialogs,
                   player::Settings& settings);

    // Silences the player and shows the window.
    void mnuRegistra_Click();
    // Loads the window, hidden, if it is not loaded.
    void load();
    // Finishes a recording that runs; the window is gone until it is loaded again.
    void Form_Unload();

private:
    void Form_Load();
    void placeBesidePlayer();
    void setDefaultFile();
    void ScegliFileWav();
    void btnStart_Click();
    void start();
    void pauseOrResume();
    void startCapture();
    void btnStop_Click();
    void EnableRecording();
    void DisableRecording();
    void showState(base::Text caption, controls::Color color, bool bold);
    void Timer_Timer();
    void moveMeters();
    void blink();
    void enableTicks();

    FrmAudioRec& form_;
    player::Form1& player_;
    WaveIn& engine_;
    platform::Dialogs& dialogs_;
    player::Settings& settings_;
    bool loaded_ = false;
    bool bCattura = false;  // recording and not paused: drives the blink and the clock
    bool bMisura = false;   // from the start to the stop: drives the meters
    double lastBlink_ = 0;  // seconds
    double lastMeters_ = 0; // seconds
};

} // namespace recorder
