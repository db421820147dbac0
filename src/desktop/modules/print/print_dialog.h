#pragma once

#include "platform/printer.h"

#include <QPrintDialog>
#include <QPrinter>

namespace desktop {

// Name of the printer that writes PDF files. No queue of the system can be called so: it has blanks.
inline constexpr base::TextView pdfPrinter = u"Print to File (PDF)";

// Sets Qt's printer to this choice.
void apply(QPrinter& printer, const platform::PrinterChoice& choice);

// A printer that has been set to the choice that a dialog begins with: Qt's needs it before it exists itself.
struct StartPrinter {
    StartPrinter(platform::PrinterChoice start, const QString& document);

    QPrinter target{QPrinter::HighResolution};
    platform::PrinterChoice chosen; // the page in it is what counts, whatever a dialog does to the printer
};

// Qt's printer dialog, with its page set-up behind a button.
class PrinterDialog : private StartPrinter, public QPrintDialog {
public:
    PrinterDialog(platform::PrinterChoice start, const QString& document, QWidget* owner);

    // What the user chose, once the dialog is accepted.
    platform::PrinterChoice choice() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void setUpPage();
};

} // namespace desktop
