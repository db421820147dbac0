#include "print_dialog.h"

#include "desktop/qt/conversions.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QPageSetupDialog>
#include <QPushButton>
#include <algorithm>
#include <utility>

namespace desktop {

namespace {

using platform::Duplex;

constexpr double twipsPerPoint = 20;

QPrinter::DuplexMode qtDuplex(Duplex duplex) {
    switch (duplex) {
    case Duplex::LongEdge:
        return QPrinter::DuplexLongSide;
    case Duplex::ShortEdge:
        return QPrinter::DuplexShortSide;
    default:
        return QPrinter::DuplexNone;
    }
}

Duplex duplexOf(QPrinter::DuplexMode mode) {
    switch (mode) {
    case QPrinter::DuplexLongSide:
        return Duplex::LongEdge;
    case QPrinter::DuplexShortSide:
        return Duplex::ShortEdge;
    case QPrinter::DuplexNone:
        return Duplex::OneSide;
    default:
        return Duplex::PrintersOwn;
    }
}

// A PDF file has no paper of its own; it uses the usual size of the user's country.
QPageSize usualPaper() {
    return QPageSize(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem ? QPageSize::Letter
                                                                                        : QPageSize::A4);
}

QPageSize pageSize(const platform::Paper& paper) {
    const QSizeF points(paper.width / twipsPerPoint, paper.height / twipsPerPoint);
    return QPageSize(points, QPageSize::Point, qstring(paper.name), QPageSize::FuzzyMatch);
}

// The page for these settings within the printer's limits: margins are at least the printer's minimum.
QPageLayout pageLayout(const QPrinter& printer, const platform::PrinterSettings& settings) {
    QPageLayout page = printer.pageLayout();
    if (!settings.PaperSize.name.empty())
        page.setPageSize(pageSize(settings.PaperSize), page.minimumMargins());
    else if (printer.outputFormat() == QPrinter::PdfFormat)
        page.setPageSize(usualPaper());
    page.setOrientation(settings.Orientation == platform::PageOrientation::Landscape ? QPageLayout::Landscape
                                                                                     : QPageLayout::Portrait);
    page.setUnits(QPageLayout::Point);
    const QMarginsF least = page.minimumMargins();
    const platform::PageMargins& asked = settings.margins;
    page.setMargins({std::max(asked.left / twipsPerPoint, least.left()),
                     std::max(asked.top / twipsPerPoint, least.top()),
                     std::max(asked.right / twipsPerPoint, least.right()),
                     std::max(asked.bottom / twipsPerPoint, least.bottom())});
    return page;
}

void readPage(platform::PrinterSettings& settings, const QPageLayout& page) {
    const QSizeF paper = page.pageSize().size(QPageSize::Point) * twipsPerPoint;
    const QMarginsF margins = page.margins(QPageLayout::Point) * twipsPerPoint;
    settings.Orientation = page.orientation() == QPageLayout::Landscape ? platform::PageOrientation::Landscape
                                                                        : platform::PageOrientation::Portrait;
    settings.PaperSize = {text(page.pageSize().name()), paper.width(), paper.height()};
    settings.margins = {margins.left(), margins.top(), margins.right(), margins.bottom()};
}

} // namespace

void apply(QPrinter& printer, const platform::PrinterChoice& choice) {
    const platform::PrinterSettings& settings = choice.settings;
    if (choice.deviceName == pdfPrinter) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(qstring(base::TextView(settings.file)));
    } else {
        printer.setPrinterName(qstring(base::TextView(choice.deviceName)));
    }
    printer.setCopyCount(settings.Copies);
    if (settings.duplex != Duplex::PrintersOwn)
        printer.setDuplex(qtDuplex(settings.duplex));
    if (settings.PrintQuality > 0)
        printer.setResolution(settings.PrintQuality);
    printer.setColorMode(settings.colorMode == platform::ColorMode::Color ? QPrinter::Color
                                                                          : QPrinter::GrayScale);
    if (settings.PaperBin > 0)
        printer.setPaperSource(static_cast<QPrinter::PaperSource>(settings.PaperBin));
    printer.setPageLayout(pageLayout(printer, settings));
}

StartPrinter::StartPrinter(platform::PrinterChoice start, const QString& document)
    : chosen(std::move(start)) {
    // Suggests a file with the document's name in the folder of the last PDF file.
    const QString folder = QFileInfo(qstring(base::TextView(chosen.settings.file))).path();
    chosen.settings.file = text(QDir(folder).absoluteFilePath(document + QStringLiteral(".pdf")));
    apply(target, chosen);
    target.setDocName(document);
}

PrinterDialog::PrinterDialog(platform::PrinterChoice start, const QString& document, QWidget* owner)
    : StartPrinter(std::move(start), document), QPrintDialog(&target, owner) {
    setObjectName(QStringLiteral("PrintDlg"));
    setWindowFlag(Qt::WindowStaysOnTopHint);
    // Qt's own page setup behind this button always starts with the printer's default paper instead of the
    // user's choice.
    if (auto* const button = findChild<QPushButton*>(QStringLiteral("properties"))) {
        disconnect(button, &QPushButton::clicked, nullptr, nullptr);
        connect(button, &QPushButton::clicked, this, [this] { setUpPage(); });
    }
}

void PrinterDialog::showEvent(QShowEvent* event) {
    QPrintDialog::showEvent(event);
    // Page ranges are hidden, because the text selection decides what is printed. Copies are always collated
    // and in order.
    for (const char* const name :
         {"gbPrintRange", "pageSetLabel", "pageSetCombo", "collate", "reverse", "outputIcon"})
        if (auto* const part = findChild<QWidget*>(QLatin1String(name)))
            part->hide();
}

void PrinterDialog::setUpPage() {
    // Uses a separate printer: for a system queue, Qt's dialog would show the printer's minimum margins
    // instead of the chosen ones.
    QPrinter sheet(QPrinter::HighResolution);
    sheet.setOutputFormat(QPrinter::PdfFormat);
    sheet.setPageLayout(pageLayout(target, chosen.settings));
    QPageSetupDialog dialog(&sheet, this);
    dialog.setObjectName(QStringLiteral("pageSetup"));
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    if (dialog.exec() == QDialog::Accepted)
        readPage(chosen.settings, sheet.pageLayout());
}

platform::PrinterChoice PrinterDialog::choice() const {
    platform::PrinterChoice choice = chosen;
    platform::PrinterSettings& settings = choice.settings;
    settings.Copies = target.copyCount();
    settings.duplex = duplexOf(target.duplex());
    settings.PrintQuality = target.resolution();
    settings.colorMode =
        target.colorMode() == QPrinter::Color ? platform::ColorMode::Color : platform::ColorMode::Monochrome;
    settings.PaperBin = target.paperSource();
    if (target.outputFormat() == QPrinter::PdfFormat) {
        choice.deviceName = pdfPrinter;
        settings.file = text(QFileInfo(target.outputFileName()).absoluteFilePath());
    } else {
        choice.deviceName = text(target.printerName());
    }
    return choice;
}

} // namespace desktop
