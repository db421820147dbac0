#pragma once

#include "base/failure.h"
#include "contracts/contract.h"
#include "platform/printer.h"

namespace contracts {

struct PrinterBench {
    virtual ~PrinterBench() = default;
    virtual platform::Printer& printer() = 0;
};

struct PrinterContract : Contract<PrinterBench> {
    platform::Printer& printer = bench->printer();
};

TEST_P(PrinterContract, CurrentPrinter_MustBeInstalled_AndAChangeKeepsTheSettings) {
    platform::PrinterSettings settings;
    settings.Copies = 7;
    printer.set(platform::PrinterProperty::Copies, settings);
    for (const base::Text& name : printer.Printers()) {
        printer.setPrinter(name);
        EXPECT_THROW(printer.setPrinter(u"Nowhere"), base::Failure);
        EXPECT_EQ(printer.DeviceName(), name);
        EXPECT_EQ(printer.settings().Copies, 7);
        EXPECT_NO_THROW(printer.hDC());
    }
}

TEST_P(PrinterContract, Set_CopiesOneProperty_AndAnInvalidOneKeepsItsValue) {
    const platform::PrinterSettings other{2,
                                          platform::Duplex::LongEdge,
                                          platform::PageOrientation::Landscape,
                                          {u"A5", 8390, 11906},
                                          300,
                                          platform::ColorMode::Monochrome,
                                          3,
                                          {1, 2, 3, 4},
                                          u"/a.pdf"};
    for (int number = 0; number <= static_cast<int>(platform::PrinterProperty::File); ++number) {
        const platform::PrinterSettings before = printer.settings();
        printer.set(static_cast<platform::PrinterProperty>(number), other);
        EXPECT_NE(printer.settings(), before) << "another property was copied too";
    }
    for (const int copies : {0, -1, 1000}) {
        platform::PrinterSettings wrong;
        wrong.Copies = copies;
        EXPECT_THROW(printer.set(platform::PrinterProperty::Copies, wrong), base::Failure);
    }
    EXPECT_EQ(printer.settings(), other);
}

} // namespace contracts
