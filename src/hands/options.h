#pragma once

namespace hands {

// What may drive the player besides its own windows. All of it is off until the user switches it on.
struct Options {
    bool pedals = false; // foot pedals
    bool keys = false;   // keys, while any other program has the keyboard
    bool panels = false; // the desktop's media keys and panels
};

} // namespace hands
