#pragma once

#include "platform/printer.h"

#include <QPrinter>
#include <optional>

class QWidget;

namespace desktop {

// Name of the printer that writes PDF files. No queue of the system can be called so: it has blanks.
inline constexpr base::TextView pdfPrinter = u"Print to File (PDF)";

// Sets Qt's printer to this choice, and reads what it is set to.
void apply(QPrinter& printer, const platform::PrinterChoice& choice);
platform::PrinterChoice choiceOf(QPrinter& printer);

// Qt's printer dialog, with its page set-up behind a button. None on cancel.
std::optional<platform::PrinterChoice> askForPrinter(QWidget* owner, base::TextView document,
                                                     const platform::PrinterChoice& start);

} // namespace desktop
