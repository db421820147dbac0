#pragma once

#include "base/program_folder.h"
#include "base/text.h"
#include "lang/words.h"

#include <QMutex>
#include <QTranslator>

namespace desktop {

// Translates Qt's own texts (buttons, file and colour dialogs, context menus) into the program's language.
// The translations lie beside the language file under its name: "Italiano.qm", a Qt catalogue, and
// "Svenska.words", a UTF-8 text file with an English text, a tab and its translation on each line. The .words
// file takes precedence. If a language has neither, these texts are English.
class StandardWords : public QTranslator {
public:
    // `fileLingua` is the name of the current language file, a variable of the program. Its translations are
    // read when first needed, so that the start does not wait; after a change, new widgets use the new
    // language.
    StandardWords(const base::Text& fileLingua, base::ProgramFolder folder)
        : fileLingua_(fileLingua), folder_(std::move(folder)) {}

    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;
    bool isEmpty() const override { return false; }

private:
    void read(const base::Text& name) const;

    const base::Text& fileLingua_;
    const base::ProgramFolder folder_;
    // Guards the members below, which are filled at the first request: Qt calls a const function, and file
    // dialogs call it on another thread.
    mutable QRecursiveMutex reading_;
    mutable base::Text shown_; // language file of the loaded translations
    mutable QTranslator catalogue_;
    mutable lang::WordList ownWords_;
};

} // namespace desktop
