#pragma once

#include "platform/dialogs.h"
#include "player/form1.h"
#include "player/settings.h"
#include "recorder/frm_audio_rec.h"
#include "recorder/wave_in.h"

namespace recorder {

// Formats seconds as "hh:mm:ss", with more digits for the hours from 100 hours on. With `millisecondi` the
// value is in milliseconds.
base::Text FormatTime(std::int64_t secondi, bool millisecondi);

// The user's commands in the recorder's window: choosing format and file, starting, pausing, stopping.
class RecorderWindow {
public:
    RecorderWindow(FrmAudioRec& form, player::Form1& player, WaveIn& engine, platform::Dialogs& dialogs,
                   player::Settings& settings);

    // Stops the player and shows the window.
    void mnuRegistra_Click();
    // Loads the window, hidden, unless it is loaded already.
    void load();
    // Completes a running recording and unloads the window.
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
    bool bCattura = false;  // recording and not paused; drives the blinking and the clock
    bool bMisura = false;   // between start and stop; drives the meters
    double lastBlink_ = 0;  // seconds
    double lastMeters_ = 0; // seconds
};

} // namespace recorder
