#pragma once

#include "desktop/views/form_window.h"
#include "editor/form2.h"

namespace desktop {

class RichTextEdit;

// Shows the editor: the menu bar, the tool bar and the text in its frame.
class Form2Window : public FormWindow {
public:
    // `text` must outlive the window.
    Form2Window(editor::Form2& form, RichTextEdit& text);
    ~Form2Window() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    RichTextEdit& text_;
};

} // namespace desktop
