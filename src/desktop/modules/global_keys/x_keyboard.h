#pragma once

#include "key_names.h"

#include <memory>
#include <vector>
#include <xcb/xcb.h>

struct xkb_context;
struct xkb_keymap;
struct xkb_state;

namespace desktop {

// The keyboard as the X server sees it, on a connection of its own, so that neither Qt nor the windows of the
// program see what belongs to keys from anywhere.
class XKeyboard {
public:
    // Throws base::Failure if there is no X server, or one that has no keyboard extension.
    XKeyboard();
    ~XKeyboard();

    xcb_connection_t* connection() const { return connection_.get(); }
    xcb_window_t root() const { return root_; }
    bool hasTyping() const { return hasTyping_; }

    // Reads layout and locks again.
    void readLayout();
    // True if this event announces another layout, or the choice of another one.
    bool isLayoutChange(const xcb_generic_event_t& event) const;

    // The key codes of this key: in the chosen layout if it has the key, otherwise in the others.
    std::vector<xcb_keycode_t> codesOf(const KeyName& name) const;
    // All combinations of the locks (caps, num, scroll), none included: a key is taken with each of them.
    const std::vector<std::uint16_t>& locks() const { return locks_; }

    // How to type a character under the chosen layout and the locks.
    struct Stroke {
        xcb_keycode_t code = 0; // 0: the layout lacks it
        bool shift = false;
    };
    Stroke strokeOf(char32_t character) const;
    bool hasCapsLock() const;
    // Key codes without any symbol.
    std::vector<xcb_keycode_t> unusedCodes() const;

    // The modifiers that are held down now, without locks.
    std::uint32_t heldModifiers() const;

private:
    struct Release {
        void operator()(xcb_connection_t* connection) const;
        void operator()(xkb_context* context) const;
        void operator()(xkb_keymap* keymap) const;
        void operator()(xkb_state* state) const;
    };

    void readLocks();
    bool carries(xkb_keycode_t code, xkb_layout_index_t layout, const KeyName& name) const;

    std::unique_ptr<xcb_connection_t, Release> connection_;
    std::unique_ptr<xkb_context, Release> context_;
    std::unique_ptr<xkb_keymap, Release> keymap_;
    std::unique_ptr<xkb_state, Release> state_;
    xcb_window_t root_ = 0;
    std::int32_t device_ = -1;
    std::uint8_t firstEvent_ = 0; // of the keyboard extension
    bool hasTyping_ = false;
    std::vector<std::uint16_t> locks_;
};

} // namespace desktop
