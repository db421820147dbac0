#include "hands/player_commands.h"

#include "base/carry_on.h"
#include "player/stamp_text.h"

namespace hands {

namespace {

void click(const controls::MenuItem& item) {
    if (item.offered())
        item.Click();
}

} // namespace

PlayerCommands::PlayerCommands(player::Form1& form, platform::Clipboard& clipboard,
                               platform::GlobalKeys& keys)
    : form_(form), clipboard_(clipboard), keys_(keys) {
    keys_.NotTyped = [this](const base::Text& text) {
        copyTime(text);
        NotTyped();
    };
}

void PlayerCommands::run(Command command) {
    switch (command) {
    case Command::PlayPause:
        return click(form_.mnuPlay);
    case Command::PlayWhileHeld:
        if (!form_.isPlaying())
            click(form_.mnuPlay);
        return;
    case Command::StepBack:
        return click(form_.mnuIndietro);
    case Command::StepForward:
        return click(form_.mnuAvanti);
    case Command::Slower:
        return click(form_.mnuDiminuisciVelocità);
    case Command::Faster:
        return click(form_.mnuAumentaVelocità);
    case Command::CopyTime:
    case Command::TypeTime:
        break;
    }
    const base::Text time = form_.mnuPlay.enabled ? player::stampText(form_.WMP1) : base::Text();
    if (time.empty())
        return;
    command == Command::TypeTime ? keys_.type(time) : copyTime(time);
}

void PlayerCommands::release() {
    if (form_.isPlaying())
        return click(form_.mnuPlay);
    // In a pause of the timed cycle, which would go on by itself.
    form_.Timer5.setInterval(0);
    form_.Timer5.setEnabled(false);
}

void PlayerCommands::copyTime(const base::Text& text) {
    base::carryOn([&] { clipboard_.SetText(text); });
}

} // namespace hands
