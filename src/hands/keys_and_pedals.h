#pragma once

#include "hands/hands.h"
#include "hands/keys_and_pedals_window.h"
#include "lang/words.h"
#include "platform/clipboard.h"

#include <functional>
#include <optional>
#include <vector>

namespace hands {

// The command "Keys and pedals..." and its window: switches keys from anywhere, foot pedals and the desktop's
// panels on and off, and chooses what each key and pedal does.
class KeysAndPedals {
public:
    // `rules`: the path of the shipped rules that let users read pedals.
    KeysAndPedals(Hands& hands, Options& options, Bindings& bindings, platform::Clipboard& clipboard,
                  lang::Words& words, base::Text rules);

    controls::MenuItem& command() { return mnuKeysAndPedals_; }

    // The exit goes.
    void leave();

    // Called once, before the window is shown for the first time: creates it on the screen.
    std::function<void(KeysAndPedalsWindow&)> Load = [](KeysAndPedalsWindow&) {};
    // The user changed an option or a binding.
    std::function<void()> OptionsChanged = [] {};
    // The user has switched the desktop's panels on or off.
    std::function<void()> PanelsChanged = [] {};

    KeysAndPedalsWindow form;

private:
    void open();
    void translate();
    void fill();
    void show();
    void choose();
    Command chosen() const;
    void change();
    void setKey();
    void learn();
    void learned(const platform::PedalCode& pedal);
    void switchOn(controls::CheckBox& box, bool& option);
    base::Text pedalName(const base::Text& pedal) const;
    // What the user should know, one paragraph each.
    std::vector<base::Text> state();
    std::vector<base::Text> pedalState();

    Hands& hands_;
    Options& options_;
    Bindings& bindings_;
    platform::Clipboard& clipboard_;
    lang::Words& words_;
    base::Text rules_;
    controls::MenuItem mnuKeysAndPedals_;
    std::vector<platform::PedalDevice> before_; // the devices when learning began
    bool wasRefused_ = false;                   // the last key that was chosen is needed for typing
    base::Text rule_;                           // the command that lets the user read a device
};

} // namespace hands
