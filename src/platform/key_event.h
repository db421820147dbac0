#pragma once

namespace platform {

// Modifier keys of a key event; the values are added.
inline constexpr int shiftKey = 1;
inline constexpr int controlKey = 2;
inline constexpr int altKey = 4;

inline constexpr int enterKey = 13;
inline constexpr int escapeKey = 27;
inline constexpr int menuKey = 93;

// A key pressed or released. `keyCode` is the upper-case letter, the digit, 112 to 123 for F1 to F12, or the
// virtual-key code of another key (8 backspace, 13 enter, 27 escape, 33 to 40 for page up, page down, end,
// home and the arrows, 45 insert, 46 delete, 93 menu). A press handler that sets it to 0 prevents the
// control's own action.
struct KeyEvent {
    int keyCode = 0;
    int shift = 0;
};

} // namespace platform
