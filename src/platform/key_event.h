#pragma once

namespace platform {

// Modifier keys of a key event, to be added.
inline constexpr int shiftKey = 1;
inline constexpr int controlKey = 2;
inline constexpr int altKey = 4;

inline constexpr int escapeKey = 27;

// A key pressed or released: `keyCode` is the letter in upper case or the digit, 112 to 123 for F1 to F12, or
// one of the numbers that keyboards give to the others (8 backspace, 13 enter, 27 escape, 33 to 40 for page
// up, page down, end, home and the arrows, 45 insert, 46 delete). A handler of a press that sets it to 0
// keeps the control from acting on the key.
struct KeyEvent {
    int keyCode = 0;
    int shift = 0;
};

} // namespace platform
