#pragma once

#include "controls/recent_files.h"
#include "editor/form2.h"
#include "platform/dialogs.h"
#include "platform/system.h"
#include "player/settings.h"

namespace editor {

// The editor's single document: new, open, save, save as, and the questions that protect unsaved text.
class Document {
public:
    Document(Form2& form, platform::Dialogs& dialogs, platform::System& system, player::Settings& settings,
             controls::RecentFiles& recent);

    // A new window starts with the first untitled document.
    void Form_Load();

    void newDocument();
    // Asks about unsaved text, then opens the file at this path; if it is empty, asks the user for one.
    void openDocument(base::TextView path = {});
    // Saves to the document's file, or asks for one. A beep confirms that the document has a file.
    void save();
    void mnuSalvaConNome_Click();
    // Opens the file at this path; if it is empty, asks the user for one.
    void ApriDocumento(base::TextView path);
    // Moves a path to the top of the recent documents.
    void SalvaFilesRecenti(base::TextView path);
    void mnuSelezionaTutto_Click();

    // Asks about unsaved text at the program's exit. SaveCancelled: the user chose to save but named no file.
    enum class ExitAnswer { Go, Cancelled, SaveCancelled };
    ExitAnswer askAtExit();

    // Shows a text that an earlier run left unsaved, as the document at this path (empty if untitled), with
    // the caret at this position. Throws Failure if the text cannot be shown.
    void restore(const base::Text& path, std::string_view source, std::int32_t caret);

    // Opens a copy of this file as a new untitled document with unsaved changes, so that the next save asks
    // for a name. Returns false if the user kept the current text. Throws Failure, with the text unchanged,
    // if the file cannot be read.
    bool openCopy(base::TextView path);
    // The same for RTF that is in no file.
    bool openText(std::string_view source);

    // Updates the word for an untitled document to the new language.
    void CambiaLingua2();

    base::Text NomeDocumento;         // stem of an untitled name
    base::Text FileEditor;            // path of the document; empty until the first open or save
    std::int16_t NumeroDocumento = 1; // number of the untitled document; never decreases
    std::int16_t TestoModificato = 0; // 1 while the text has unsaved changes

    // A document was too large to be shown; the previous one stays.
    std::function<void(const base::Text& path)> Refused = [](const base::Text&) {};
    // The text is about to be replaced by another one.
    std::function<void()> Replacing = [] {};
    // The document is about to be written to the file at this path.
    std::function<void(const base::Text& path)> Writing = [](const base::Text&) {};
    // Writing failed; `reason` is the system's message. The program continues as if it had succeeded.
    std::function<void(const base::Text& reason)> SaveFailed = [](const base::Text&) {};
    // The text now has no unsaved changes: it is a new one, was read from its file, or was written to it. A
    // new text keeps the path of the document before it.
    enum class Origin { New, Read, Written };
    std::function<void(Origin)> Settled = [](Origin) {};

private:
    void write(const base::Text& path);
    bool mayLoseText();
    bool openUntitled(const std::function<void()>& load);
    void nowIn(const base::Text& path, const std::function<void()>& loadOrSave);
    void showName(base::TextView path);
    base::Text untitledName() const;
    platform::FileDialogRequest request(bool open, int title) const;

    Form2& form_;
    platform::Dialogs& dialogs_;
    platform::System& system_;
    player::Settings& settings_;
    controls::RecentFiles& recent_;
};

} // namespace editor
