#pragma once

#include "player/form1.h"

#include <vector>

namespace player {

// The buttons of the skin light up under the mouse. A picture is loaded on a change of state alone, never on
// a mere move; each button has a flag for that.
class Skin {
public:
    explicit Skin(Form1& form);

    void cmdAvanz_MouseMove();
    void cmdIndietro_MouseMove();
    void cmdPlay_MouseMove();
    void cmdStop_MouseMove();
    void cmdRec_MouseMove();
    void Image3_MouseMove();
    // It has no hover picture: it jumps, and stays so until the mouse reaches the bare window or the
    // recording button.
    void imgDetta_MouseMove();
    void Form_MouseMove();

private:
    // A button with its flag and its two pictures; those of cmdPlay go by the run state.
    struct Lit {
        controls::PictureButton& control;
        int& flag;
        base::Text rest;
        base::Text hover;
    };

    void light(Lit& button);
    void reset(std::initializer_list<Lit*> buttons);
    void returnDetta();
    base::Text picture(const Lit& button, bool hovered) const;

    Form1& form_;
    Lit apri_;
    Lit play_;
    Lit indietro_;
    Lit avanz_;
    Lit stop_;
    Lit rec_;
};

} // namespace player
