#pragma once

#include "editor/form2.h"
#include "platform/printer.h"

#include <functional>

namespace editor {

// Prints the text with the settings of the printer dialog. The text control lays out the pages.
class Printing {
public:
    // `printer` is called for each print command, because creating the printer may take time. It throws
    // base::Failure if the system cannot print.
    Printing(Form2& form, std::function<platform::Printer&()> printer);

    void mnuStampa_Click();

    // Lets the user choose and set up a printer in the dialog, which starts with the printer of this name.
    // Returns true if confirmed; otherwise restores the previous printer.
    bool ScegliStampante(platform::Printer& printer, base::TextView nomeStampante);

private:
    base::Text documentName() const;

    Form2& form_;
    std::function<platform::Printer&()> printer_;
};

} // namespace editor
