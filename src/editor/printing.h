#pragma once

#include "editor/form2.h"
#include "platform/printer.h"

#include <functional>
#include <string>
#include <string_view>

namespace editor {

// Prints the text with the settings of the printer dialog. The text control lays out the pages.
class Printing {
public:
    // `printer` is called for each print command, because creating the printer may take time. It throws
    // base::Failure if the system cannot print.
    Printing(Form2& form, std::function<platform::Printer&()> printer);

    void mnuStampa_Click();
    // Prints this RTF instead of the text, with the dialog over the window `owner`. `name` names the print
    // job.
    void printSource(std::string_view owner, const base::Text& name, const std::string& source);

    // Lets the user choose and set up a printer in the dialog, which starts with the printer of this name.
    // Returns true if confirmed; otherwise restores the previous printer.
    bool ScegliStampante(platform::Printer& printer, base::TextView nomeStampante);

private:
    struct Job {
        std::string_view owner;
        base::Text name;
    };
    void print(const Job& job, const std::function<void(platform::PrintDevice&)>& pages);
    static bool choosePrinter(platform::Printer& printer, base::TextView nomeStampante, const Job& job);
    base::Text documentName() const;

    Form2& form_;
    std::function<platform::Printer&()> printer_;
};

} // namespace editor
