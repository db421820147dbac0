#pragma once

#include "player/form1.h"

#include <vector>

namespace player {

// Highlights the skin's buttons under the mouse. Each button has a flag, so that its picture is loaded only
// when its state changes, not on every mouse move.
class Skin {
public:
    explicit Skin(Form1& form);

    void cmdAvanz_MouseMove();
    void cmdIndietro_MouseMove();
    void cmdPlay_MouseMove();
    void cmdStop_MouseMove();
    void cmdRec_MouseMove();
    void Image3_MouseMove();
    // This button has no hover picture: it moves by a few pixels and stays there until the mouse reaches the
    // window's background or the record button.
    void imgDetta_MouseMove();
    void Form_MouseMove();

private:
    // A button with its flag and two pictures; the pictures of cmdPlay depend on the run state instead.
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
