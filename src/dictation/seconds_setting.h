#pragma once

#include "dictation/input_dialog.h"
#include "platform/settings_store.h"
#include "player/form1.h"
#include "player/settings.h"

#include <cstdint>

namespace dictation {

// The differences between the four settings. Captions and prompts are indices of the language table.
struct SecondsKind {
    // How an open dialog is recognised as being for this setting.
    enum class KnownBy { Caption, PromptBeginning, NothingElse };

    std::int16_t player::Settings::*seconds;
    controls::MenuItem player::Form1Menu::*command;
    std::int16_t floor; // a smaller value is raised to this when the command opens the dialog
    std::int16_t least; // limits that the dialog accepts
    std::int16_t most;
    int caption;
    int prompt;
    base::TextView proposal; // the number suggested in the prompt's second part; empty for none
    KnownBy knownBy;
};

// One of the settings in seconds that the user enters in the dialog. A value out of range is corrected to the
// nearest limit, with a warning.
class SecondsSetting {
public:
    static const SecondsKind secIndietro;
    static const SecondsKind secSalto;
    static const SecondsKind tempoPlay;
    static const SecondsKind tempoPause;

    SecondsSetting(const SecondsKind& kind, InputDialog& dialog, player::Form1& form,
                   player::Settings& settings, platform::SettingsStore& store);

    // The menu command: mnuSecIndietro_Click, mnuSalto_Click, mnuTempoPlay_Click or mnuTempoPause_Click.
    void command_Click();

private:
    std::int16_t& seconds() { return settings_.*kind_.seconds; }
    bool isAsked() const;
    void accept();

    const SecondsKind& kind_;
    InputDialog& dialog_;
    player::Form1& form_;
    player::Settings& settings_;
    platform::SettingsStore& store_;
};

} // namespace dictation
