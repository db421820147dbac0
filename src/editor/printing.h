#pragma once

#include "editor/form2.h"
#include "platform/printer.h"

#include <functional>

namespace editor {

// Printing the text: the exchange with the printer dialog. The text control lays out the pages.
class Printing {
public:
    // `printer` is asked for at each command: it may be costly to have before the first one. It throws
    // base::Failure when there is no printing at all.
    Printing(Form2& form, std::function<platform::Printer&()> printer);

    void mnuStampa_Click();

    // Lets the user choose the printer and set it up, the dialog beginning with the printer of this name.
    // True when he confirmed; else the printer of before is the current one again.
    bool ScegliStampante(platform::Printer& printer, base::TextView nomeStampante);

private:
    base::Text documentName() const;

    Form2& form_;
    std::function<platform::Printer&()> printer_;
};

} // namespace editor
