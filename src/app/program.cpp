#include "app/program.h"

#include "base/failure.h"
#include "base/unfinished_file.h"

#include <algorithm>
#include <iterator>

namespace app {

namespace {

// Deletes the temporary files that a killed process left beside the files that only the program creates.
void removeLeftFiles(const base::ProgramFolder& folder) {
    base::removeUnfinished(folder.files({}), [](base::TextView name) {
        static constexpr base::TextView own[] = {u"Quillmere.ini", u"LastFiles.ini", u"LastFilesEditor.ini",
                                                 u"Recordings.ini"};
        return std::find(std::begin(own), std::end(own), name) != std::end(own);
    });
    base::removeUnfinished(folder.bookmarks({}), [](base::TextView name) { return name.ends_with(u".bm"); });
    for (const base::TextView kept : {u"Safety", u"Safety/Archive"})
        base::removeUnfinished(folder.files(kept), [](base::TextView) { return false; });
}

} // namespace

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
    removeLeftFiles(folder_);
    workstation_.emplace(desktop_, files_, folder_, Lingua, commandLine);
    workstation_->form1().visible = !workstation_->ends();
}

void Program::fatalEnd(base::TextView reason) {
    desktop_.dialogs().messageBox(u"Lib OCX -> Reg ERROR!\r" + base::Text(reason), u"Reg Error",
                                  platform::BoxStyle::Exclamation);
}

} // namespace app
