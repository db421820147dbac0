#pragma once

#include "base/program_folder.h"
#include "base/text.h"
#include "lang/words.h"

#include <QMutex>
#include <QTranslator>

namespace desktop {

// Qt's own words (the buttons of boxes, file and colour dialogs, menus of text boxes) in the language of the
// program. They lie beside the language file under its name: "Italiano.qm", a catalogue of Qt's, and
// "Svenska.words", a text file in UTF-8 with an English text, a tab and its translation on each line, which
// goes before the catalogue. A language that has neither speaks English here.
class StandardWords : public QTranslator {
public:
    // `fileLingua` is the name of the language file in use, wherever the program keeps it. Its words are read
    // when the first of them is needed, so that the start does not wait for them; what is built from then on
    // follows a change.
    StandardWords(const base::Text& fileLingua, base::ProgramFolder folder)
        : fileLingua_(fileLingua), folder_(std::move(folder)) {}

    QString translate(const char* context, const char* sourceText, const char* disambiguation,
                      int n) const override;
    bool isEmpty() const override { return false; }

private:
    void read(const base::Text& name) const;

    const base::Text& fileLingua_;
    const base::ProgramFolder folder_;
    // What is read at the first question, which Qt puts to a constant translator, a file dialog's from a
    // thread of its own.
    mutable QRecursiveMutex reading_;
    mutable base::Text shown_; // language file whose words these are
    mutable QTranslator catalogue_;
    mutable lang::WordList ownWords_;
};

} // namespace desktop
