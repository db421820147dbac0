#include "fakes/full_disk.h"
#include "print_dialog.h"
#include "qt_printer.h"
#include "rich_text_fixture.h"

#include <QSpinBox>

using platform::PrinterProperty;

namespace {

constexpr int dotsPerInch = 100;
constexpr int margin = 78;   // dots; 20 mm
constexpr int textEnd = 748; // dots; A4 width minus 20 mm
constexpr QRgb teal = 0x0E7C86;

// Prints on the printer that writes PDF files.
struct Printing : testing::Test {
    Printing() {
        settings.file = folder.text("out.pdf");
        printer.setPrinter(desktop::pdfPrinter);
    }

    void print() {
        for (const auto property :
             {PrinterProperty::Orientation, PrinterProperty::PaperSize, PrinterProperty::File})
            printer.set(property, settings);
        rtb.SelPrint(printer.hDC());
    }
    QString path() const { return desktop::qstring(base::TextView(settings.file)); }
    QImage paper(int page) {
        const QString image = path() + QStringLiteral(".") + QString::number(page);
        const QString options =
            QStringLiteral("-r %1 -f %2 -l %2 -png -singlefile").arg(dotsPerInch).arg(page);
        QProcess::execute(QStringLiteral("pdftoppm"), options.split(u' ') << path() << image);
        return QImage(image + QStringLiteral(".png")).convertToFormat(QImage::Format_RGB32);
    }

    const fakes::TemporaryFolder folder;
    desktop::RichTextEdit rtb{base::CodePage(1252)};
    desktop::QtPrinter printer;
    platform::PrinterSettings settings;
};

// The bounding box of a colour in an area, with a tolerance for lossy pictures.
QRect extent(const QImage& image, QColor color, QRect area) {
    QRect found;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x) {
            const QColor seen = image.pixelColor(x, y);
            if (std::abs(seen.red() - color.red()) + std::abs(seen.green() - color.green()) +
                    std::abs(seen.blue() - color.blue()) <
                8)
                found |= QRect(x, y, 1, 1);
        }
    }
    return found;
}

} // namespace

TEST_F(Printing, Page_KeepsFormatsAndMargins_InBlackWithAnyTheme) {
    QPalette red = rtb.palette();
    red.setColor(QPalette::Text, Qt::red);
    rtb.setPalette(red);
    folder.write("in.rtf",
                 R"({\rtf1{\fonttbl{\f0 Arial;}}{\colortbl;\red14\green124\blue134;})"
                 R"(\pard\f0\fs24 IIIIIIIIII\par\pard\qr\cf1\b HHHH\b0\cf0\par)"
                 R"(\pard\fi-360\li720{\*\pn\pnlvlblt\pnindent360{\pntxtb\'B7}}{\pntext\'B7\tab}HHHH\par)"
                 R"(\pard{\pict\pngblip\picw40\pich20\picwgoal40000\pichgoal2000 )" +
                     tests::pngDigits(QSize(40, 20), Qt::blue) + "}\\par}");
    rtb.LoadFile(folder.text("in.rtf"));
    print();
    const QImage page = paper(1);
    EXPECT_EQ(page.size(), QSize(827, 1170));
    EXPECT_FALSE(extent(page, Qt::red, page.rect()).isValid());
    const QRect first = extent(page, Qt::black, QRect(0, 0, 827, 93));
    EXPECT_NEAR(first.left(), margin, 3);
    EXPECT_NEAR(first.top(), margin, 8);
    const QRect coloured = extent(page, QColor(teal), page.rect());
    EXPECT_NEAR(coloured.right(), textEnd, 4) << "right-aligned";
    const QRect item = extent(page, Qt::black, QRect(0, coloured.bottom() + 4, 827, 14));
    EXPECT_NEAR(item.left(), margin + 38, 10) << "the bullet";
    EXPECT_GT(item.right(), margin + 49 + 20) << "its text, indented by 0.5 inches";
    const QRect image = extent(page, Qt::blue, page.rect());
    EXPECT_NEAR(image.left(), margin, 2);
    EXPECT_NEAR(image.right(), textEnd, 2) << "scaled to the page";
    EXPECT_NEAR(image.height(), image.width() / 20.0, 2);
}

TEST_F(Printing, PaperAndOrientation_AreApplied_AndOnlyTheSelectionIsPrinted) {
    rtb.setText(u"one");
    settings.Orientation = platform::PageOrientation::Landscape;
    settings.PaperSize = {u"A5", 8390, 11906};
    print();
    EXPECT_EQ(paper(1).size(), QSize(827, 584));
    rtb.setText(base::Text(60, u'\n') + u"one");
    print();
    EXPECT_TRUE(extent(paper(3), Qt::black, QRect(0, 0, 827, 584)).isValid()) << "a third page";
    rtb.setSelStart(120);
    rtb.setSelLength(3);
    print();
    EXPECT_TRUE(extent(paper(1), Qt::black, QRect(0, 0, 827, 584)).isValid()) << "only the selection";
}

TEST_F(Printing, PageBreaks_BeginPages_AndHiddenTextIsNotPrinted) {
    // Five pages; the second line of the first one also contains hidden text.
    folder.write("in.rtf",
                 R"({\rtf1{\fonttbl{\f0 Arial;}}\pagebb\f0\b\fs48 H\par\pard{\v HHHHH\page}H\page H\par)"
                 R"(\page\par H\par\pagebb H\par\pard\sect\sectd\sbknone H\sect\sectd H\par})");
    rtb.LoadFile(folder.text("in.rtf"));
    print();
    for (int page = 1; page <= 5; ++page) {
        const QImage image = paper(page);
        const QRect ink = extent(image, Qt::black, image.rect());
        EXPECT_NEAR(ink.top(), margin, 16) << page;
        EXPECT_EQ(ink.height() > 30, page == 1 || page == 4) << "two lines";
        EXPECT_LT(ink.width(), 40) << page;
    }
    EXPECT_EQ(
        QProcess::execute(QStringLiteral("pdftoppm"), {QStringLiteral("-f"), QStringLiteral("6"), path()}),
        99);
}

TEST_F(Printing, UnusableTarget_Fails_AndAnEmptyDocumentPrintsNothing) {
    print();
    EXPECT_FALSE(std::filesystem::exists(path().toStdString()));
    rtb.setText(u"one");
    settings.file = folder.text("no such folder/out.pdf");
    EXPECT_THROW(print(), base::Failure);
    // A disk, and a memory file, that accepts a hundred bytes only.
    settings.file = folder.text("out.pdf");
    folder.write("out.pdf", "what was printed before");
    {
        const fakes::FullDisk disk(100);
        EXPECT_THROW(print(), base::Failure);
    }
    EXPECT_EQ(folder.read("out.pdf"), "what was printed before");
    int told = 0;
    for (QWidget* const widget : QApplication::topLevelWidgets()) {
        if (widget->objectName() == QStringLiteral("notice") && widget->isVisible()) {
            ++told;
            widget->close();
        }
    }
    EXPECT_EQ(told, 2) << "a missing file must be reported";
}

TEST_F(Printing, Dialog_WithoutPrinters_OffersAFile_AndReturnsTheChoice) {
    settings.Copies = 2;
    settings.PrintQuality = 300;
    for (const auto property :
         {PrinterProperty::File, PrinterProperty::Copies, PrinterProperty::PrintQuality})
        printer.set(property, settings);
    QTimer::singleShot(0, qApp, [this] {
        auto& dialog = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
        EXPECT_EQ(dialog.findChild<QLineEdit*>(QStringLiteral("filename"))->text().toStdString(),
                  folder.path().string() + "/a-b.pdf");
        auto& copies = *dialog.findChild<QSpinBox*>(QStringLiteral("copies"));
        EXPECT_EQ(copies.value(), 2);
        copies.setValue(3);
        QTimer::singleShot(0, &dialog, [] {
            auto& page = dynamic_cast<QDialog&>(*QApplication::activeModalWidget());
            EXPECT_EQ(page.objectName(), QStringLiteral("pageSetup"));
            page.findChild<QAbstractButton*>(QStringLiteral("landscape"))->click();
            page.accept();
        });
        dialog.findChild<QPushButton*>(QStringLiteral("properties"))->click();
        dialog.accept();
    });
    const auto choice = printer.PrintDlg("Form2", u"a/b", {printer.DeviceName(), printer.settings()});
    ASSERT_TRUE(choice);
    EXPECT_EQ(choice->deviceName, desktop::pdfPrinter);
    EXPECT_EQ(choice->settings.file, folder.text("a-b.pdf"));
    EXPECT_EQ(choice->settings.Copies, 3);
    EXPECT_EQ(choice->settings.PrintQuality, 300);
    EXPECT_EQ(choice->settings.Orientation, platform::PageOrientation::Landscape);
    EXPECT_NEAR(choice->settings.margins.left, 1134, 10);
}
