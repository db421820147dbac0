#include "editor/printing.h"

#include "base/carry_on.h"

#include <algorithm>

namespace editor {

namespace {

using platform::PrinterProperty;

// In the order in which they must be applied to a printer.
constexpr PrinterProperty copied[] = {
    PrinterProperty::Copies,    PrinterProperty::Duplex,       PrinterProperty::Orientation,
    PrinterProperty::PaperSize, PrinterProperty::PrintQuality, PrinterProperty::ColorMode,
    PrinterProperty::PaperBin,  PrinterProperty::Margins,      PrinterProperty::File};

constexpr base::TextView richTextEnd = u".rtf";

} // namespace

Printing::Printing(Form2& form, std::function<platform::Printer&()> printer)
    : form_(form), printer_(std::move(printer)) {
    form_.Print = [this] { mnuStampa_Click(); };
}

void Printing::mnuStampa_Click() {
    print({form_.name, documentName()},
          [this](platform::PrintDevice& device) { form_.RTB.SelPrint(device); });
}

void Printing::printSource(std::string_view owner, const base::Text& name, const std::string& source) {
    print({owner, name}, [&](platform::PrintDevice& device) { form_.RTB.printSource(source, device); });
}

void Printing::print(const Job& job, const std::function<void(platform::PrintDevice&)>& pages) {
    platform::Printer* printer = nullptr;
    if (!base::carryOn([&] { printer = &printer_(); }))
        return;
    bool ok = false;
    base::carryOn([&] { ok = choosePrinter(*printer, printer->DeviceName(), job); });
    if (ok)
        base::carryOn([&] { pages(printer->hDC()); });
}

bool Printing::ScegliStampante(platform::Printer& printer, base::TextView nomeStampante) {
    return choosePrinter(printer, nomeStampante, {form_.name, documentName()});
}

bool Printing::choosePrinter(platform::Printer& printer, base::TextView nomeStampante, const Job& job) {
    const base::Text vecchia = printer.DeviceName();
    const std::vector<base::Text> installed = printer.Printers();
    const base::Text wanted = base::lowered(nomeStampante);
    if (!wanted.empty()) {
        // If several names contain it, the last one wins.
        for (const base::Text& name : installed)
            if (base::lowered(name).find(wanted) != base::Text::npos)
                base::carryOn([&] { printer.setPrinter(name); });
    }
    const auto choice = printer.PrintDlg(job.owner, job.name, {printer.DeviceName(), printer.settings()});
    if (!choice) {
        if (std::find(installed.begin(), installed.end(), vecchia) != installed.end())
            base::carryOn([&] { printer.setPrinter(vecchia); });
        return false;
    }
    if (choice->deviceName != printer.DeviceName())
        base::carryOn([&] { printer.setPrinter(choice->deviceName); });
    for (const PrinterProperty property : copied)
        base::carryOn([&] { printer.set(property, choice->settings); });
    return true;
}

// The document's name from the window's title, without the extension ".rtf".
base::Text Printing::documentName() const {
    base::Text name = form_.caption;
    const base::Text before = form_.Lingua(96) + u" - ";
    if (name.starts_with(before))
        name.erase(0, before.size());
    if (base::lowered(name).ends_with(richTextEnd))
        name.resize(name.size() - richTextEnd.size());
    return name;
}

} // namespace editor
