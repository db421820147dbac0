#pragma once

#include "platform/global_keys.h"
#include "typist.h"
#include "x_keyboard.h"

#include <QSocketNotifier>
#include <QTimer>
#include <memory>
#include <optional>
#include <set>

namespace desktop {

// Takes keys from the X server, which then reports them to this program whatever window has the keyboard. The
// codes are those of the present layout, and are taken anew when it changes.
class XGlobalKeys : public platform::GlobalKeys {
public:
    // Requires a QGuiApplication. Without an X server, no key can be taken.
    XGlobalKeys();
    ~XGlobalKeys() override;

    std::vector<platform::KeyHold> take(const std::vector<base::Text>& combinations) override;
    void type(base::TextView text) override;
    base::Text failure() const override { return failure_; }

private:
    struct Taken {
        xcb_keycode_t code = 0;
        std::uint16_t modifiers = 0; // without locks
        std::size_t index = 0;       // of the combination

        bool operator==(const Taken&) const = default;
    };

    std::vector<xcb_keycode_t> codesOf(const base::Text& combination) const;
    platform::KeyHold take(std::size_t index, const base::Text& combination);
    bool grab(const Taken& key);
    void giveBack(const Taken& key);
    void giveAllBack();
    std::vector<platform::KeyHold> takeAll();
    // Reads the events that have arrived; an answer of the server may have brought them along.
    void readEvents();
    void press(const xcb_key_press_event_t& event);
    void release(xcb_keycode_t code);
    void followLayout();

    std::unique_ptr<XKeyboard> keyboard_; // null without an X server
    std::unique_ptr<Typist> typist_;
    base::Text failure_;
    std::vector<base::Text> combinations_;
    std::vector<platform::KeyHold> holds_;
    std::vector<std::vector<xcb_keycode_t>> tried_; // the key codes of each combination
    std::vector<Taken> taken_;
    std::vector<Taken> pressed_;
    std::unique_ptr<QSocketNotifier> notifier_;
    QTimer drain_;  // reads events that came with an answer
    QTimer layout_; // a change of the layout comes as many events
};

} // namespace desktop
