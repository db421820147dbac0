// The contracts of text, clipboard and printer on the real adapters.
#include "contracts/clipboard_contract.h"
#include "contracts/printer_contract.h"
#include "contracts/rich_text_contract.h"
#include "desktop/text/rich_text_edit.h"
#include "qt_printer.h"
#include "qt_testing.h"

namespace contracts {

struct EditBench : RichTextBench {
    platform::RichText& text() override { return edit; }
    bool foldsCaseOf(base::TextView) override { return true; }

    desktop::RichTextEdit edit{base::CodePage(1252)};
};

struct QtClipboardBench : ClipboardBench {
    platform::Clipboard& clipboard() override { return qt; }
    void offer(base::TextView text, base::TextView rtf) override {
        auto* const data = new QMimeData;
        data->setText(desktop::qstring(text));
        data->setData(QStringLiteral("text/rtf"), desktop::qstring(rtf).toUtf8());
        QGuiApplication::clipboard()->setMimeData(data);
    }

    desktop::QtClipboard qt{QClipboard::Clipboard};
};

struct QtPrinterBench : PrinterBench {
    platform::Printer& printer() override { return qt; }

    desktop::QtPrinter qt;
};

INSTANTIATE_TEST_SUITE_P(Qt, RichTextContract, testing::Values(make<RichTextBench, EditBench>));
INSTANTIATE_TEST_SUITE_P(Qt, ClipboardContract, testing::Values(make<ClipboardBench, QtClipboardBench>));
INSTANTIATE_TEST_SUITE_P(Qt, PrinterContract, testing::Values(make<PrinterBench, QtPrinterBench>));

} // namespace contracts
