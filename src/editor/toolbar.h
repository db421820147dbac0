#pragma once

#include "editor/document.h"
#include "editor/form2.h"
#include "platform/dialogs.h"

#include <functional>

namespace editor {

// The toolbar's buttons by their numbers.
enum ToolbarButton {
    newButton = 0,
    openButton = 1,
    saveButton = 2,
    printButton = 3,
    boldButton = 4,
    italicButton = 5,
    underlineButton = 6,
    strikeButton = 7,
    leftButton = 8,
    centreButton = 9,
    rightButton = 10,
    largerButton = 11,
    smallerButton = 12,
    colorButton = 13,
    bulletButton = 14,
    undoButton = 15,
    redoButton = 16,
};

// The toolbar above the text: seventeen hot areas over one picture, four letters, and the boxes for font and
// size. Its commands change the selection or call the document.
class Toolbar {
public:
    Toolbar(Form2& form, Document& document, platform::System& system, platform::Dialogs& dialogs);

    // Fills the font boxes and places the letters over their buttons.
    void Form_Load();

    // Runs button `index` and saves the settings; does nothing if there is no such button.
    void Label2_Click(int index);
    // Moves the highlight to the button under the mouse.
    void Label2_MouseMove(int index);
    void NascondiEvidenza();

    void Combo1_Change();
    void Combo2_Change();

    void CambiaLingua2();

    // Saves the settings; set by their owner.
    std::function<void()> Salva = [] {};

private:
    void press(int index);
    void toggle(platform::Setting present, void (platform::RichText::*set)(bool));
    void align(platform::ParagraphAlignment alignment);
    void stepSize(double points);
    void chooseColor();

    Form2& form_;
    Document& document_;
    platform::System& system_;
    platform::Dialogs& dialogs_;
};

} // namespace editor
