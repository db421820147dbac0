#include "app/program.h"

#include "base/carry_on.h"

namespace app {

Program::Program(Desktop& desktop)
    : desktop_(desktop), files_(desktop.codePage()), folder_(desktop.system().programFolder()),
      Lingua(files_, folder_) {
    desktop_.speak(Lingua.FileLingua);
}

bool Program::Main(base::TextView commandLine) {
    try {
        start(commandLine);
    } catch (const base::Failure& failure) {
        fatalEnd(base::fromUtf8(failure.what()));
        return false;
    }
    return workstation_.has_value();
}

void Program::start(base::TextView commandLine) {
    Lingua.FileLingua = SettingsFile::readLanguageName(files_, folder_);
    if (base::trimmed(Lingua.FileLingua).empty())
        Lingua.FileLingua =
            lang::languageFileForCountry(desktop_.system().LeggiLocale(platform::localeEnglishCountry));
    Lingua.load();
    if (desktop_.system().previousInstance()) {
        desktop_.dialogs().messageBox(base::TogliAmp(Lingua(0)), base::TogliAmp(Lingua(1)),
                                      platform::BoxStyle::Exclamation);
        return;
    }
    workstation_.emplace(desktop_, files_, folder_, Lingua, commandLine);
    workstation_->form1().visible = !workstation_->ends();
}

void Program::fatalEnd(base::TextView reason) {
    desktop_.dialogs().messageBox(u"Lib OCX -> Reg ERROR!\r" + base::Text(reason), u"Reg Error",
                                  platform::BoxStyle::Exclamation);
}

} // namespace app
