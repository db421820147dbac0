#include "editor/printing.h"
#include "fakes/editor_bench.h"

using testing::ElementsAre;

class PrintingTest : public fakes::EditorBench {
protected:
    PrintingTest() {
        document.Form_Load();
        text.setText(u"one two");
        text.commands.clear();
    }
    void choose(const base::Text& name, int copies) {
        desktop.printerPort.answer.emplace();
        desktop.printerPort.answer->deviceName = name;
        desktop.printerPort.answer->settings.Copies = copies;
    }

    fakes::FakePrinter& printer = desktop.printerPort;
    editor::Printing printing{form, [this]() -> platform::Printer& { return desktop.printer(); }};
};

TEST_F(PrintingTest, TheExchange_ChoosesAndRestoresThePrinter) {
    struct Row {
        std::vector<base::Text> installed;
        base::Text current;
        const char* chosen; // "" is cancel
        const char* dialog; // the printer that it begins with
        base::Text after;
        bool prints;
    };
    const Row rows[] = {
        {{u"Office", u"Hall", u"PDF"}, u"Office", "Office", "Office", u"Office", true},
        {{u"Office", u"Hall", u"PDF"}, u"Office", "Hall", "Office", u"Hall", true},
        {{u"Office", u"Hall", u"PDF"}, u"Office", "", "Office", u"Office", false},
        // The last printer that holds the name wins; a cancel brings the first one back.
        {{u"Office", u"Back OFFICE", u"PDF"}, u"Office", "", "Back OFFICE", u"Office", false},
        {{u"Office", u"Back OFFICE", u"PDF"}, u"Office", "Back OFFICE", "Back OFFICE", u"Back OFFICE", true},
        // One that nobody has installed changes nothing.
        {{u"Office", u"PDF"}, u"Office", "office", "Office", u"Office", true},
        // The printer has gone before the dialog.
        {{u"PDF"}, u"Office", "PDF", "Office", u"PDF", true},
        {{u"PDF"}, u"Office", "", "Office", u"Office", false},
    };
    for (const Row& row : rows) {
        printer.installed = row.installed;
        printer.current = row.current;
        printer.commands.clear();
        text.commands.clear();
        printer.answer.reset();
        if (*row.chosen)
            choose(base::fromUtf8(row.chosen), 1);
        form.mnuStampa.Click();
        const auto told = base::toUtf8(row.current) + " to " + row.chosen;
        EXPECT_THAT(printer.commands,
                    testing::Contains(testing::StartsWith(std::string("dialog ") + row.dialog + " x")))
            << told;
        EXPECT_EQ(printer.current, row.after) << told;
        EXPECT_EQ(text.commands.size(), row.prints ? 1U : 0U) << told;
    }
}

TEST_F(PrintingTest, AChoice_IsCopiedInItsOrder_WithoutWhatThePrinterRefuses_AndOutlivesTheCommand) {
    form.caption = u"&En96 - Interview.RTF";
    printer.refused = {platform::PrinterProperty::Duplex, platform::PrinterProperty::PaperBin};
    choose(u"PDF file", 3);
    form.mnuStampa.Click();
    EXPECT_THAT(printer.commands,
                ElementsAre("printer Office", "dialog Office x 1 for Interview", "printer PDF file", "set 0",
                            "set 2", "set 3", "set 4", "set 5", "set 7", "set 8"));
    printer.commands.clear();
    form.mnuStampa.Click();
    EXPECT_THAT(printer.commands, testing::Contains("dialog PDF file x 3 for Interview"));
}

TEST_F(PrintingTest, APrinterThatVanishes_EndsTheCommandInSilence) {
    choose(u"Office", 1);
    printer.whileOpen = [this] { printer.installed = {u"PDF file"}; };
    form.mnuStampa.Click();
    EXPECT_TRUE(text.commands.empty());
    EXPECT_TRUE(dialogs.boxes.empty());
}
