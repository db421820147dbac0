#pragma once

#include "controls/recent_files.h"
#include "editor/form2.h"
#include "platform/dialogs.h"
#include "platform/system.h"
#include "player/settings.h"

namespace editor {

// The one document of the editor: new, open, save, save as, and the questions that guard unsaved text.
class Document {
public:
    Document(Form2& form, platform::Dialogs& dialogs, platform::System& system, player::Settings& settings,
             controls::RecentFiles& recent);

    // A fresh window: the first untitled document.
    void Form_Load();

    void newDocument();
    void openDocument();
    // Writes the document over its file, or asks for one. A beep says that there is a file.
    void save();
    void mnuSalvaConNome_Click();
    // Opens the file at this path; the empty text asks the user for one.
    void ApriDocumento(base::TextView path);
    // Puts a path at the head of the recent documents.
    void SalvaFilesRecenti(base::TextView path);
    void mnuSelezionaTutto_Click();

    // The question at the exit of the program: true when the user cancelled the exit. `SavedLate` says that a
    // save was asked for but no file was named.
    enum class ExitAnswer { Go, Cancelled, SaveCancelled };
    ExitAnswer askAtExit();

    // Shows a text that an earlier run of the program left unsaved, as the document of this path (empty for
    // an untitled one), with the caret there. Throws Failure when the text cannot be shown.
    void restore(const base::Text& path, std::string_view source, std::int32_t caret);

    // Shows the text of the file at this path as a new untitled document with unsaved changes; the next save
    // asks for a name. False when the user kept the text that is there. Throws Failure, with the text as it
    // was, when the file cannot be read.
    bool openCopy(base::TextView path);

    // The word for an untitled document, in a new language.
    void CambiaLingua2();

    base::Text NomeDocumento;         // stem of an untitled name
    base::Text FileEditor;            // path of the document; empty until the first open or save
    std::int16_t NumeroDocumento = 1; // of the untitled document; only ever grows
    std::int16_t TestoModificato = 0; // 1 while the text holds unsaved changes

    // The text gives way to another one.
    std::function<void()> Replacing = [] {};
    // The document is written to the file at this path next.
    std::function<void(const base::Text& path)> Writing = [](const base::Text&) {};
    // That failed, with the system's words; the rule goes on as if it had not.
    std::function<void(const base::Text& reason)> SaveFailed = [](const base::Text&) {};
    // The text is that of its file, or a new one.
    std::function<void()> Settled = [] {};

private:
    void write(const base::Text& path);
    bool mayLoseText();
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
