#include "editor/printing.h"
#include "fakes/editor_bench.h"

using testing::Contains;
using testing::ElementsAre;

struct PrintingTest : fakes::EditorBench {
    // Prints, with this printer chosen in the dialog; "" cancels the dialog.
    void print(const base::Text& name, int copies = 1) {
        printer.answer.reset();
        if (!name.empty()) {
            printer.answer.emplace().deviceName = name;
            printer.answer->settings.Copies = copies;
        }
        printer.commands.clear();
        text.commands.clear();
        form.Print();
    }

    fakes::FakePrinter& printer = desktop.printerPort;
    editor::Printing printing{form, [this]() -> platform::Printer& { return desktop.printer(); }};
};

TEST_F(PrintingTest, Print_ChoosesAndRestoresThePrinter) {
    // Installed, current, chosen, offered first by the dialog, current afterwards.
    const std::tuple<std::vector<base::Text>, base::Text, base::Text, const char*, base::Text> rows[] = {
        {{u"Office", u"Hall", u"PDF"}, u"Office", u"Hall", "Office", u"Hall"},
        {{u"Office", u"Hall", u"PDF"}, u"Office", u"", "Office", u"Office"},
        // The last printer whose name contains the current name wins; a cancel restores the first one.
        {{u"Office", u"Back OFFICE", u"PDF"}, u"Office", u"", "Back OFFICE", u"Office"},
        {{u"Office", u"Back OFFICE", u"PDF"}, u"Office", u"Back OFFICE", "Back OFFICE", u"Back OFFICE"},
        // A printer that is not installed changes nothing.
        {{u"Office", u"PDF"}, u"Office", u"office", "Office", u"Office"},
    };
    for (const auto& [installed, current, chosen, dialog, after] : rows) {
        printer.installed = installed;
        printer.current = current;
        print(chosen);
        EXPECT_THAT(printer.commands, Contains(testing::StartsWith(std::string("dialog ") + dialog + " x")));
        EXPECT_EQ(printer.current, after);
        EXPECT_EQ(text.commands.size(), chosen.empty() ? 0U : 1U);
    }
}

TEST_F(PrintingTest, Choice_IsAppliedInOrder_WithoutRefusedProperties_AndRemembered) {
    form.caption = u"&En96 - Interview.RTF";
    printer.refused = {platform::PrinterProperty::Duplex, platform::PrinterProperty::PaperBin};
    print(u"PDF file", 3);
    EXPECT_THAT(printer.commands,
                ElementsAre("printer Office", "dialog Office x 1 for Interview", "printer PDF file", "set 0",
                            "set 2", "set 3", "set 4", "set 5", "set 7", "set 8"));
    print(u"PDF file");
    EXPECT_THAT(printer.commands, Contains("dialog PDF file x 3 for Interview"));
}

TEST_F(PrintingTest, RemovedPrinter_EndsTheCommandSilently) {
    printer.installed = {u"PDF file"};
    print(u"Office");
    EXPECT_TRUE(text.commands.empty());
    EXPECT_TRUE(dialogs.boxes.empty());
}
