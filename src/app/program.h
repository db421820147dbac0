#pragma once

#include "app/desktop.h"
#include "app/workstation.h"

#include <optional>

namespace app {

// The program from its entry on: selects and loads the language, refuses a second instance, creates the
// player window.
class Program {
public:
    explicit Program(Desktop& desktop);

    // The entry routine. Returns false if the program must not run; the user has been told why.
    bool Main(base::TextView commandLine);

    // Valid only after Main returned true.
    Workstation& workstation() { return *workstation_; }

private:
    void start(base::TextView commandLine);
    void fatalEnd(base::TextView reason);

    Desktop& desktop_;
    base::TextFiles files_;
    base::ProgramFolder folder_;
    lang::LanguageTable Lingua;
    std::optional<Workstation> workstation_;
};

} // namespace app
