#pragma once

#include "platform/printer.h"

#include <QPrintDialog>
#include <QPrinter>

namespace desktop {

// Name of the printer that writes PDF files. No system queue can have this name, because it contains blanks.
inline constexpr base::TextView pdfPrinter = u"Print to File (PDF)";

// Applies a choice to Qt's printer.
void apply(QPrinter& printer, const platform::PrinterChoice& choice);

// A printer preset to the dialog's initial choice. A base class, because Qt's dialog needs the printer during
// construction.
struct StartPrinter {
    StartPrinter(platform::PrinterChoice start, const QString& document);

    QPrinter target{QPrinter::HighResolution};
    platform::PrinterChoice chosen; // its page settings count, whatever Qt's dialogs do to the printer
};

// Qt's print dialog, with the page setup behind a button.
class PrinterDialog : private StartPrinter, public QPrintDialog {
public:
    PrinterDialog(platform::PrinterChoice start, const QString& document, QWidget* owner);

    // What the user chose; call after the dialog has been accepted.
    platform::PrinterChoice choice() const;

protected:
    void showEvent(QShowEvent* event) override;

private:
    void setUpPage();
};

} // namespace desktop
