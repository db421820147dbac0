#include "print_dialog.h"

#include "desktop/conversions.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QPrintDialog>
#include <QPrintEngine>
#include <algorithm>

namespace desktop {

namespace {

using platform::Duplex;

// Under this number Qt's engine for CUPS keeps the options that only one printer knows.
constexpr auto driverOptions = static_cast<QPrintEngine::PrintEnginePropertyKey>(0xfe00);
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

QPageSize pageSize(const platform::Paper& paper) {
    const QSizeF points(paper.width / twipsPerPoint, paper.height / twipsPerPoint);
    return QPageSize(points, QPageSize::Point, qstring(paper.name), QPageSize::FuzzyMatch);
}

void applyPage(QPrinter& printer, const platform::PrinterSettings& settings) {
    QPageLayout page = printer.pageLayout();
    // A PDF file has no paper of its own: that of the user's country.
    if (settings.PaperSize.name.empty() && printer.outputFormat() == QPrinter::PdfFormat)
        page.setPageSize(QPageSize(QLocale::system().measurementSystem() == QLocale::ImperialUSSystem
                                       ? QPageSize::Letter
                                       : QPageSize::A4));
    if (!settings.PaperSize.name.empty())
        page.setPageSize(pageSize(settings.PaperSize), page.minimumMargins());
    page.setOrientation(settings.Orientation == platform::PageOrientation::Landscape ? QPageLayout::Landscape
                                                                                     : QPageLayout::Portrait);
    page.setUnits(QPageLayout::Point);
    // Less than the printer can do is brought to what it can.
    const QMarginsF least = page.minimumMargins();
    const platform::PageMargins& asked = settings.margins;
    page.setMargins({std::max(asked.left / twipsPerPoint, least.left()),
                     std::max(asked.top / twipsPerPoint, least.top()),
                     std::max(asked.right / twipsPerPoint, least.right()),
                     std::max(asked.bottom / twipsPerPoint, least.bottom())});
    printer.setPageLayout(page);
}

QStringList strings(const std::vector<base::Text>& texts) {
    QStringList list;
    for (const base::Text& one : texts)
        list << qstring(base::TextView(one));
    return list;
}

} // namespace

void apply(QPrinter& printer, const platform::PrinterChoice& choice) {
    const platform::PrinterSettings& settings = choice.settings;
    const bool toFile = choice.deviceName == pdfPrinter;
    if (toFile) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(qstring(base::TextView(settings.file)));
    } else {
        printer.setPrinterName(qstring(base::TextView(choice.deviceName)));
        if (!settings.driverOptions.empty())
            printer.printEngine()->setProperty(driverOptions, strings(settings.driverOptions));
    }
    printer.setCopyCount(settings.Copies);
    if (settings.duplex != Duplex::PrintersOwn)
        printer.setDuplex(qtDuplex(settings.duplex));
    applyPage(printer, settings);
    if (settings.PrintQuality > 0)
        printer.setResolution(settings.PrintQuality);
    printer.setColorMode(settings.colorMode == platform::ColorMode::Color ? QPrinter::Color
                                                                          : QPrinter::GrayScale);
    if (settings.PaperBin > 0)
        printer.setPaperSource(static_cast<QPrinter::PaperSource>(settings.PaperBin));
}

platform::PrinterChoice choiceOf(QPrinter& printer) {
    const bool toFile = printer.outputFormat() == QPrinter::PdfFormat;
    const QPageLayout page = printer.pageLayout();
    const QSizeF paper = page.pageSize().size(QPageSize::Point) * twipsPerPoint;
    const QMarginsF margins = page.margins(QPageLayout::Point) * twipsPerPoint;
    platform::PrinterChoice choice;
    platform::PrinterSettings& settings = choice.settings;
    choice.deviceName = toFile ? base::Text(pdfPrinter) : text(printer.printerName());
    settings.Copies = printer.copyCount();
    settings.duplex = duplexOf(printer.duplex());
    settings.Orientation = page.orientation() == QPageLayout::Landscape ? platform::PageOrientation::Landscape
                                                                        : platform::PageOrientation::Portrait;
    settings.PaperSize = {text(page.pageSize().name()), paper.width(), paper.height()};
    settings.PrintQuality = printer.resolution();
    settings.colorMode =
        printer.colorMode() == QPrinter::Color ? platform::ColorMode::Color : platform::ColorMode::Monochrome;
    settings.PaperBin = printer.paperSource();
    settings.margins = {margins.left(), margins.top(), margins.right(), margins.bottom()};
    if (toFile)
        settings.file = text(QFileInfo(printer.outputFileName()).absoluteFilePath());
    else
        for (const QString& option : printer.printEngine()->property(driverOptions).toStringList())
            settings.driverOptions.push_back(text(option));
    return choice;
}

std::optional<platform::PrinterChoice> askForPrinter(QWidget* owner, base::TextView document,
                                                     const platform::PrinterChoice& start) {
    QPrinter printer(QPrinter::HighResolution);
    platform::PrinterChoice begin = start;
    // A file of the document's name, beside the one that was written last.
    const QString folder = QFileInfo(qstring(base::TextView(start.settings.file))).path();
    QString name = qstring(document);
    name.replace(u'/', u'-');
    begin.settings.file = text(QDir(folder).absoluteFilePath(name + QStringLiteral(".pdf")));
    apply(printer, begin);
    printer.setDocName(name);
    QPrintDialog dialog(&printer, owner);
    dialog.setObjectName(QStringLiteral("PrintDlg"));
    // Which pages is not for this dialog: the selection decides.
    dialog.setOptions(QAbstractPrintDialog::PrintToFile | QAbstractPrintDialog::PrintShowPageSize |
                      QAbstractPrintDialog::PrintCollateCopies);
    dialog.setWindowFlag(Qt::WindowStaysOnTopHint);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return choiceOf(printer);
}

} // namespace desktop
