#pragma once

#include "desktop/qt/print_device.h"

#include <QPrinter>
#include <memory>

namespace desktop {

// The printers that Qt finds on this system (through CUPS), plus one that writes PDF files.
class QtPrinter : public platform::Printer, private QtPrintDevice {
public:
    QtPrinter();
    ~QtPrinter() override;

    std::vector<base::Text> Printers() const override;
    base::Text DeviceName() const override { return deviceName_; }
    void setPrinter(base::TextView deviceName) override;
    platform::PrinterSettings settings() const override { return settings_; }
    void set(platform::PrinterProperty property, const platform::PrinterSettings& from) override;
    std::optional<platform::PrinterChoice> PrintDlg(std::string_view owner, base::TextView document,
                                                    const platform::PrinterChoice& start) override;
    platform::PrintDevice& hDC() override;

private:
    // An anonymous file in memory; deleted when closed.
    class MemoryFile {
    public:
        MemoryFile();
        MemoryFile(const MemoryFile&) = delete;
        MemoryFile& operator=(const MemoryFile&) = delete;
        ~MemoryFile();

        // A path that opens this file.
        base::Text path() const;

    private:
        int fd_;
    };

    QPagedPaintDevice& paper() override;
    void finish() override;

    base::Text deviceName_;
    platform::PrinterSettings settings_;
    QString document_; // name of the print job
    std::unique_ptr<QPrinter> job_;
    std::unique_ptr<MemoryFile> pdf_; // receives a PDF job; copied to the chosen file when complete
};

} // namespace desktop
