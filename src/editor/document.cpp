#include "editor/document.h"

#include "base/carry_on.h"
#include "base/numbers.h"
#include "platform/file_filter.h"

namespace editor {

namespace {

using platform::Answer;
using platform::BoxStyle;

constexpr std::size_t extensionLength = 3;

} // namespace

Document::Document(Form2& form, platform::Dialogs& dialogs, platform::System& system,
                   player::Settings& settings, controls::RecentFiles& recent)
    : form_(form), dialogs_(dialogs), system_(system), settings_(settings), recent_(recent) {
    form_.mnuSalvaConNome.Click = [this] { mnuSalvaConNome_Click(); };
    form_.mnuSelezionaTutto.Click = [this] { mnuSelezionaTutto_Click(); };
    for (controls::MenuItem* item :
         {&form_.mnuRecent1, &form_.mnuRecent2, &form_.mnuRecent3, &form_.mnuRecent4})
        item->Click = [this, item] { ApriDocumento(base::Text(item->caption.get())); };
}

void Document::Form_Load() {
    TestoModificato = 0;
    CambiaLingua2();
    form_.caption = form_.Lingua(96) + u" - " + NomeDocumento + u"1";
    NumeroDocumento = 1;
}

void Document::CambiaLingua2() {
    NomeDocumento = form_.Lingua(97) + u" ";
}

base::Text Document::untitledName() const {
    return NomeDocumento + base::numberText(NumeroDocumento);
}

// Asks before another text replaces this one. Cancelling the save dialog does not cancel the replacement.
bool Document::mayLoseText() {
    if (TestoModificato != 1 || form_.RTB.textLength() == 0)
        return true;
    const Answer answer = dialogs_.messageBox(
        base::TogliAmp(form_.Lingua(99)), base::TogliAmp(form_.Lingua(1)), BoxStyle::YesNoCancelExclamation);
    if (answer == Answer::Yes)
        save();
    return answer != Answer::Cancel;
}

void Document::newDocument() {
    if (!mayLoseText())
        return;
    Replacing();
    base::carryOn([&] { NumeroDocumento = base::sumInt16(NumeroDocumento, 1); });
    base::carryOn([&] { form_.RTB.setText(u""); });
    Settled(Origin::New);
    form_.caption = form_.Lingua(96) + u" - " + untitledName();
    // The path stays, so the next save overwrites the previous file. Settled behaviour.
    TestoModificato = 0;
}

void Document::openDocument(base::TextView path) {
    if (mayLoseText())
        ApriDocumento(path);
}

void Document::ApriDocumento(base::TextView path) {
    const base::Text chosen = path.empty() ? dialogs_.FileDlg(request(true, 52)) : base::Text(path);
    if (base::trimmed(chosen).empty())
        return;
    if (!base::fileExists(chosen)) {
        dialogs_.messageBox(base::TogliAmp(form_.Lingua(98)), base::TogliAmp(form_.Lingua(1)),
                            BoxStyle::Exclamation);
        return;
    }
    Replacing();
    bool refused = false;
    const bool loaded = base::carryOn([&] {
        try {
            form_.RTB.LoadFile(chosen);
        } catch (const platform::TextTooLarge&) {
            refused = true;
        }
    });
    // The next save must not overwrite a document that was never shown.
    if (refused) {
        Refused(chosen);
        return;
    }
    nowIn(chosen, [&] {
        if (loaded)
            Settled(Origin::Read);
    });
}

// A failed load or save is skipped; the document gets its new name anyway.
void Document::nowIn(const base::Text& path, const std::function<void()>& loadOrSave) {
    base::carryOn([&] { settings_.CartellaMedia = base::currentFolder(); });
    FileEditor = path;
    loadOrSave();
    SalvaFilesRecenti(FileEditor);
    showName(FileEditor);
    TestoModificato = 0;
}

void Document::write(const base::Text& path) {
    Writing(path);
    const bool written = base::carryOn([&] { form_.RTB.SaveFile(path); },
                                       [&](const char* reason) { SaveFailed(base::fromUtf8(reason)); });
    if (written)
        Settled(Origin::Written);
}

void Document::restore(const base::Text& path, std::string_view source, std::int32_t caret) {
    form_.RTB.setSource(source);
    form_.RTB.setSelStart(caret);
    FileEditor = path;
    if (!path.empty())
        showName(path);
    TestoModificato = 1;
}

bool Document::openCopy(base::TextView path) {
    return openUntitled([&] { form_.RTB.LoadFile(path); });
}

bool Document::openText(std::string_view source) {
    return openUntitled([&] { form_.RTB.setSource(source); });
}

bool Document::openUntitled(const std::function<void()>& load) {
    if (!mayLoseText())
        return false;
    Replacing();
    load();
    FileEditor.clear();
    base::carryOn([&] { NumeroDocumento = base::sumInt16(NumeroDocumento, 1); });
    form_.caption = form_.Lingua(96) + u" - " + untitledName();
    TestoModificato = 1;
    return true;
}

void Document::save() {
    if (FileEditor.empty()) {
        if (TestoModificato == 1)
            mnuSalvaConNome_Click();
        return;
    }
    system_.beep();
    if (TestoModificato != 1)
        return;
    write(FileEditor);
    SalvaFilesRecenti(FileEditor);
    TestoModificato = 0;
}

void Document::mnuSalvaConNome_Click() {
    platform::FileDialogRequest asked = request(false, 55);
    if (base::trimmed(asked.initialFolder).empty())
        base::carryOn([&] { asked.initialFolder = base::currentFolder(); });
    asked.fileName = untitledName();
    const base::Text chosen = dialogs_.FileDlg(asked);
    if (chosen.empty())
        return;
    if (base::fileExists(chosen)) {
        const base::Text question =
            base::TogliAmp(form_.Lingua(53)) + u"\r\r" + base::TogliAmp(form_.Lingua(54));
        if (dialogs_.messageBox(question, base::TogliAmp(form_.Lingua(1)), BoxStyle::YesNoExclamation) ==
            Answer::No)
            return;
    }
    nowIn(chosen, [&] { write(chosen); });
}

void Document::SalvaFilesRecenti(base::TextView path) {
    recent_.remember(path);
}

void Document::mnuSelezionaTutto_Click() {
    form_.RTB.setSelStart(0);
    form_.RTB.setSelLength(form_.RTB.textLength());
    form_.RTB.SetFocus();
}

void Document::showName(base::TextView path) {
    if (path.find(base::pathSeparator) != base::TextView::npos)
        form_.caption = form_.Lingua(96) + u" - " + base::Text(base::afterLast(path, base::pathSeparator));
}

// The most recent file decides which of the two formats the dialog proposes; the file written is always RTF.
platform::FileDialogRequest Document::request(bool open, int title) const {
    const base::Text& newest = form_.mnuRecent1.caption;
    const base::Text last =
        base::lowered(newest.substr(newest.size() > extensionLength ? newest.size() - extensionLength : 0));
    const std::pair<base::Text, base::Text> text{form_.Lingua(122), u"*.txt"};
    const std::pair<base::Text, base::Text> rich{form_.Lingua(121), u"*.rtf"};
    const bool textFirst = last == u"txt";
    platform::FileDialogRequest asked;
    asked.open = open;
    asked.owner = form_.name;
    asked.title = form_.Lingua(title);
    asked.defaultExtension = textFirst ? u"txt" : u"rtf";
    asked.filter = textFirst ? platform::fileFilter({text, rich}) : platform::fileFilter({rich, text});
    asked.initialFolder = settings_.CartellaMedia;
    return asked;
}

Document::ExitAnswer Document::askAtExit() {
    if (!form_.visible || TestoModificato != 1 || form_.RTB.textLength() == 0)
        return ExitAnswer::Go;
    if (FileEditor.empty())
        FileEditor = untitledName();
    const base::Text question = base::TogliAmp(form_.Lingua(75)) + u" " + FileEditor + u"?";
    const Answer answer = dialogs_.messageBox(question, {}, BoxStyle::YesNoCancelExclamation);
    if (answer == Answer::Cancel)
        return ExitAnswer::Cancelled;
    if (answer == Answer::No)
        return ExitAnswer::Go;
    if (FileEditor == untitledName())
        mnuSalvaConNome_Click();
    else
        save();
    SalvaFilesRecenti(FileEditor);
    return TestoModificato > 0 ? ExitAnswer::SaveCancelled : ExitAnswer::Go;
}

} // namespace editor
