#include "qt_printer.h"

#include "base/failure.h"
#include "base/files.h"
#include "desktop/qt/conversions.h"
#include "print_dialog.h"

#include <QApplication>
#include <QPrinterInfo>
#include <QWidget>
#include <algorithm>
#include <cerrno>
#include <string>
#include <string_view>
#include <sys/mman.h>
#include <unistd.h>
#include <utility>

namespace desktop {

namespace {

constexpr int mostCopies = 999;
constexpr std::string_view pdfEnd = "%%EOF";

QWidget* windowNamed(std::string_view name) {
    const QString wanted = qstring(name);
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == wanted)
            return widget;
    }
    return nullptr;
}

} // namespace

QtPrinter::QtPrinter() : deviceName_(text(QPrinterInfo::defaultPrinterName())) {
    if (deviceName_.empty())
        deviceName_ = QtPrinter::Printers().front();
}

QtPrinter::~QtPrinter() = default;

std::vector<base::Text> QtPrinter::Printers() const {
    std::vector<base::Text> names;
    for (const QString& name : QPrinterInfo::availablePrinterNames())
        names.push_back(text(name));
    names.emplace_back(pdfPrinter);
    return names;
}

void QtPrinter::setPrinter(base::TextView deviceName) {
    const std::vector<base::Text> installed = Printers();
    if (std::find(installed.begin(), installed.end(), deviceName) == installed.end())
        throw base::Failure("no such printer");
    deviceName_ = deviceName;
}

void QtPrinter::set(platform::PrinterProperty property, const platform::PrinterSettings& from) {
    if (property == platform::PrinterProperty::Copies && (from.Copies < 1 || from.Copies > mostCopies))
        throw base::Failure("not that many copies");
    settings_.take(property, from);
}

std::optional<platform::PrinterChoice> QtPrinter::PrintDlg(std::string_view owner, base::TextView document,
                                                           const platform::PrinterChoice& start) {
    document_ = qstring(document).replace(u'/', u'-');
    PrinterDialog dialog(start, document_, windowNamed(owner));
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.choice();
}

platform::PrintDevice& QtPrinter::hDC() {
    // Fails if the printer has been removed since it was chosen: Qt would print on another one or wait
    // forever.
    setPrinter(base::Text(deviceName_));
    job_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
    pdf_.reset();
    platform::PrinterSettings settings = settings_;
    if (deviceName_ == pdfPrinter) {
        pdf_ = std::make_unique<MemoryFile>();
        settings.file = pdf_->path();
    }
    apply(*job_, {deviceName_, settings});
    job_->setDocName(document_);
    job_->setCreator(QApplication::applicationName());
    return *this;
}

QPagedPaintDevice& QtPrinter::paper() {
    return *job_;
}

void QtPrinter::finish() {
    const auto pdf = std::move(pdf_);
    if (!pdf)
        return;
    const std::string bytes = base::readFile(pdf->path());
    // Qt does not report an incomplete write.
    if (bytes.find(pdfEnd, bytes.size() - std::min(bytes.size(), 2 * pdfEnd.size())) == std::string::npos)
        throw base::systemFailure(ENOMEM, base::toUtf8(settings_.file));
    base::replaceFile(settings_.file, bytes);
}

QtPrinter::MemoryFile::MemoryFile() : fd_(::memfd_create("pdf", MFD_CLOEXEC)) {
    if (fd_ < 0)
        throw base::systemFailure(errno);
}

QtPrinter::MemoryFile::~MemoryFile() {
    ::close(fd_);
}

base::Text QtPrinter::MemoryFile::path() const {
    return base::fromUtf8("/proc/self/fd/" + std::to_string(fd_));
}

} // namespace desktop
