// The printers of the system, what the current one is set to, and the dialog that sets it.
#pragma once

#include "base/text.h"

#include <optional>
#include <string_view>
#include <vector>

namespace platform {

enum class Duplex { PrintersOwn = 0, OneSide = 1, LongEdge = 2, ShortEdge = 3 };
enum class PageOrientation { Portrait = 1, Landscape = 2 };
enum class ColorMode { Monochrome = 1, Color = 2 };

// A paper by its name in the printer's own list, such as "A4", and its size in twips, upright. No name: the
// printer's own paper.
struct Paper {
    base::Text name;
    double width = 0;
    double height = 0;

    bool operator==(const Paper&) const = default;
};

// What stays white at the edges of the page, in twips.
struct PageMargins {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;

    bool operator==(const PageMargins&) const = default;
};

// One of the settings below.
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
    int PrintQuality = 0; // dots per inch; 0: the printer's own
    ColorMode colorMode = ColorMode::Color;
    int PaperBin = 0; // number of the tray; 0: the printer's own
    PageMargins margins{1134, 1134, 1134, 1134};
    base::Text file; // path of the file that is written instead of paper

    bool operator==(const PrinterSettings&) const = default;

    // Copies one setting and leaves the others as they are.
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

// What the dialog begins with, and what the user chose there.
struct PrinterChoice {
    base::Text deviceName;
    PrinterSettings settings;
};

// Where pages go. The text control of the same desktop knows more of it.
class PrintDevice {
public:
    PrintDevice() = default;
    PrintDevice(const PrintDevice&) = delete;
    PrintDevice& operator=(const PrintDevice&) = delete;

protected:
    ~PrintDevice() = default;
};

// The one current printer among those of the system. Choices live as long as the program.
class Printer {
public:
    Printer() = default;
    Printer(const Printer&) = delete;
    Printer& operator=(const Printer&) = delete;
    virtual ~Printer() = default;

    // The names of the installed printers in the system's order. The last one is no machine: it writes PDF
    // files, and is there on every system.
    virtual std::vector<base::Text> Printers() const = 0;

    // Name of the current printer: at first the system's usual one.
    virtual base::Text DeviceName() const = 0;
    // Makes the installed printer of this name the current one; the settings stay. Throws base::Failure when
    // there is none.
    virtual void setPrinter(base::TextView deviceName) = 0;

    virtual PrinterSettings settings() const = 0;
    // Takes one setting over. Throws base::Failure for a value that the printer refuses.
    virtual void set(PrinterProperty property, const PrinterSettings& from) = 0;

    // The system's dialog for the choice of a printer and its paper, modal over the window `owner`; none on
    // cancel. Nothing of the printer changes. `document` names what is to be printed.
    virtual std::optional<PrinterChoice> PrintDlg(std::string_view owner, base::TextView document,
                                                  const PrinterChoice& start) = 0;

    // What the control prints on, as the printer is set now. Throws base::Failure when the printer has gone.
    virtual PrintDevice& hDC() = 0;
};

} // namespace platform
