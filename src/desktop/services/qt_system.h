#pragma once

#include "base/code_page.h"
#include "desktop/qt/event_stop.h"
#include "platform/system.h"

#include <optional>

namespace desktop {

// The system around the program: its folder, the user's locale, the single-instance check and the end of the
// process.
class QtSystem : public platform::System {
public:
    QtSystem();
    ~QtSystem() override;
    QtSystem(const QtSystem&) = delete;
    QtSystem& operator=(const QtSystem&) = delete;

    base::Text programFolder() const override { return programFolder_; }
    base::Text LeggiLocale(int setting) const override;
    bool previousInstance() override;
    void beep() override;
    std::vector<base::Text> screenFonts() const override;
    void endProcess() override;

    // The code page of the user's language.
    static base::CodePage codePage();

private:
    base::Text programFolder_;
    int place_ = -1;               // socket whose name marks the running instance
    std::optional<EventStop> end_; // set once the process is ending
};

} // namespace desktop
