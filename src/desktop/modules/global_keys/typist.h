#pragma once

#include "x_keyboard.h"

#include <QTimer>
#include <deque>
#include <functional>

namespace desktop {

// Types texts into the program in front, as a keyboard would. It waits until the user has let go of the
// modifiers, which would change what arrives. A character that the layout lacks gets a key code that nothing
// else uses, for as long as it takes other programs to look it up.
class Typist {
public:
    explicit Typist(XKeyboard& keyboard);
    ~Typist();

    void type(base::TextView text);

    // Keys that are taken are held down: what is typed would not reach another program.
    std::function<bool()> HoldsKeys = [] { return false; };
    std::function<void(const base::Text& text)> NotTyped = [](const base::Text&) {};

private:
    enum class Stage { Idle, Waiting, Mapped, Typing, Typed };

    void step();
    void prepare();
    void strike(const XKeyboard::Stroke& stroke);
    // Gives a key code to this character.
    XKeyboard::Stroke map(xcb_keycode_t code, char32_t character);
    void unmap();
    void giveUp();
    void next(Stage stage, int ms);

    XKeyboard& keyboard_;
    std::deque<base::Text> texts_; // the first one is being typed
    Stage stage_ = Stage::Idle;
    int waited_ = 0; // ms
    std::deque<XKeyboard::Stroke> strokes_;
    std::vector<xcb_keycode_t> mapped_;
    xcb_keycode_t shift_ = 0;
    QTimer timer_;
};

} // namespace desktop
