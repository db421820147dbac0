// The port to the system's printers: the current one, its settings, and the dialog that changes them.
#pragma once

#include "base/text.h"

#include <optional>
#include <string_view>
#include <vector>

namespace platform {

enum class Duplex { PrintersOwn = 0, OneSide = 1, LongEdge = 2, ShortEdge = 3 };
enum class PageOrientation { Portrait = 1, Landscape = 2 };
enum class ColorMode { Monochrome = 1, Color = 2 };

// A paper by its name in the printer's list, such as "A4", with its size in twips in portrait orientation. An
// empty name means the printer's default paper.
struct Paper {
    base::Text name;
    double width = 0;
    double height = 0;

    bool operator==(const Paper&) const = default;
};

// The page margins in twips.
struct PageMargins {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    bool operator==(const PageMargins&) const = default;
};

// Names one of the settings below.
enum class PrinterProperty {
    Copies,
    Duplex,
    Orientation,
    PaperSize,
    PrintQuality,
    ColorMode,
    PaperBin,
    Margins,
    File
};

struct PrinterSettings {
    int Copies = 1;
    Duplex duplex = Duplex::PrintersOwn;
    PageOrientation Orientation = PageOrientation::Portrait;
    Paper PaperSize;
    int PrintQuality = 0; // dots per inch; 0: the printer's default
    ColorMode colorMode = ColorMode::Color;
    int PaperBin = 0; // number of the tray; 0: the printer's default
    PageMargins margins{1134, 1134, 1134, 1134};
    base::Text file; // path of the file to print into; empty: print on paper

    bool operator==(const PrinterSettings&) const = default;

    // Copies one setting; the others stay.
    void take(PrinterProperty property, const PrinterSettings& from) {
        switch (property) {
        case PrinterProperty::Copies:
            Copies = from.Copies;
            break;
        case PrinterProperty::Duplex:
            duplex = from.duplex;
            break;
        case PrinterProperty::Orientation:
            Orientation = from.Orientation;
            break;
        case PrinterProperty::PaperSize:
            PaperSize = from.PaperSize;
            break;
        case PrinterProperty::PrintQuality:
            PrintQuality = from.PrintQuality;
            break;
        case PrinterProperty::ColorMode:
            colorMode = from.colorMode;
            break;
        case PrinterProperty::PaperBin:
            PaperBin = from.PaperBin;
            break;
        case PrinterProperty::Margins:
            margins = from.margins;
            break;
        case PrinterProperty::File:
            file = from.file;
            break;
        }
    }
};

// The dialog's initial values, and the user's choice.
struct PrinterChoice {
    base::Text deviceName;
    PrinterSettings settings;
};

// The target of printed pages. Only the text control of the same desktop knows its real type.
class PrintDevice {
public:
    PrintDevice() = default;
    PrintDevice(const PrintDevice&) = delete;
    PrintDevice& operator=(const PrintDevice&) = delete;

protected:
    ~PrintDevice() = default;
};

// The current printer among those of the system. Choices last until the program ends.
class Printer {
public:
    Printer() = default;
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;
    virtual ~Printer() = default;

    // The names of the installed printers in the system's order. The last one is a virtual printer, which
    // writes PDF files and always exists.
    virtual std::vector<base::Text> Printers() const = 0;

    // The name of the current printer; initially the system's default printer.
    virtual base::Text DeviceName() const = 0;
    // Makes the installed printer of this name the current one and keeps the settings. Throws base::Failure
    // if it is not installed.
    virtual void setPrinter(base::TextView deviceName) = 0;

    virtual PrinterSettings settings() const = 0;
    // Applies one setting. Throws base::Failure if the printer rejects the value.
    virtual void set(PrinterProperty property, const PrinterSettings& from) = 0;

    // The system's printer dialog, modal over the window `owner`; none on cancel. It changes neither the
    // current printer nor its settings. `document` names the print job.
    virtual std::optional<PrinterChoice> PrintDlg(std::string_view owner, base::TextView document,
                                                  const PrinterChoice& start) = 0;

    // The device for printing with the current settings. Throws base::Failure if the printer no longer
    // exists.
    virtual PrintDevice& hDC() = 0;
};

} // namespace platform
