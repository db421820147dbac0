#pragma once

#include "base/failure.h"
#include "platform/printer.h"

#include <algorithm>
#include <string>
#include <vector>

namespace fakes {

// Printers without paper. Records the calls and answers the dialog as the test has prepared.
struct FakePrinter : platform::Printer, private platform::PrintDevice {
    std::vector<base::Text> installed{u"Office", u"PDF file"};
    base::Text current = u"Office";
    platform::PrinterSettings now;
    std::vector<platform::PrinterProperty> refused;
    // such as "printer Office", "set 0", "dialog Office x 1 for Interview"
    std::vector<std::string> commands;
    std::optional<platform::PrinterChoice> answer;

    std::vector<base::Text> Printers() const override { return installed; }
    base::Text DeviceName() const override { return current; }
    void setPrinter(base::TextView name) override {
        if (std::find(installed.begin(), installed.end(), name) == installed.end())
            throw base::Failure("no such printer");
        current = name;
        commands.push_back("printer " + base::toUtf8(name));
    }
    platform::PrinterSettings settings() const override { return now; }
    void set(platform::PrinterProperty property, const platform::PrinterSettings& from) override {
        if (std::find(refused.begin(), refused.end(), property) != refused.end() || from.Copies < 1 ||
            from.Copies > 999)
            throw base::Failure("not on this printer");
        commands.push_back("set " + std::to_string(static_cast<int>(property)));
        now.take(property, from);
    }
    std::optional<platform::PrinterChoice> PrintDlg(std::string_view, base::TextView document,
                                                    const platform::PrinterChoice& start) override {
        commands.push_back("dialog " + base::toUtf8(start.deviceName) + " x " +
                           std::to_string(start.settings.Copies) + " for " + base::toUtf8(document));
        return answer;
    }
    platform::PrintDevice& hDC() override {
        if (std::find(installed.begin(), installed.end(), current) == installed.end())
            throw base::Failure("the printer has gone");
        return *this;
    }
};

} // namespace fakes
