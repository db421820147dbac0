#include "outside/update_check.h"

#include "outside/program_version.h"

namespace outside {

namespace {

constexpr std::size_t versionLength = 9;

// The only criterion: nine characters, and greater than the program's own version when compared as text.
bool isNewer(const std::string& received) {
    return received > programVersion.digits() && received.size() == versionLength;
}

} // namespace

UpdateCheck::UpdateCheck(player::Form1& form, Links& links, platform::Internet& internet,
                         platform::Dialogs& dialogs, platform::System& system, std::string source)
    : form_(form), links_(links), internet_(internet), dialogs_(dialogs), system_(system),
      source_(std::move(source)) {
    form_.mnuCheckUpdateStartup.Click = [this] { mnuCheckUpdateStartup_Click(); };
}

bool UpdateCheck::ControllaAggiornamenti() {
    if (!isNewer(internet_.read(source_, std::string(agentName))))
        return false;
    const base::Text question = base::replaced(form_.Lingua(131), u"<BR>", u"\r\n\r\n");
    if (dialogs_.messageBox(question, form_.Lingua(132), platform::BoxStyle::YesNoInformation) !=
        platform::Answer::Yes)
        return false;
    links_.mnuAggiornamenti_Click();
    system_.endProcess();
    return true;
}

void UpdateCheck::mnuCheckUpdateStartup_Click() {
    form_.mnuCheckUpdateStartup.checked = !form_.mnuCheckUpdateStartup.checked;
}

} // namespace outside
