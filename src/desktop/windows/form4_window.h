#pragma once

#include "desktop/views/form_window.h"
#include "dictation/form4.h"

namespace desktop {

// Shows the input dialog: a prompt, a text box and two buttons on a picture.
class Form4Window : public FormWindow {
public:
    explicit Form4Window(dictation::Form4& form);

protected:
    void showEvent(QShowEvent* event) override;

private:
    dictation::Form4& form_;
};

} // namespace desktop
