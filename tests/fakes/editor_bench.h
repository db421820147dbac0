#pragma once

#include "editor/typing.h"
#include "fakes/fake_desktop.h"
#include "fakes/watched_text.h"
#include "testing.h"

namespace fakes {

// The editor's document on fakes, with language entries "&En0" to "&En135".
struct EditorBench : testing::Test {
    EditorBench() {
        Lingua.FileLingua = u"English.lng";
        Lingua.load();
    }

    void select(int start, int length) { fakes::select(text, start, length); }
    std::string shown() const { return fakes::shown(text); }

    fakes::FakeDesktop desktop;
    fakes::FakeDialogs& dialogs = desktop.dialogPort;
    base::TextFiles files{base::CodePage(1252)};
    base::ProgramFolder folder{desktop.folder.text("")};
    lang::LanguageTable Lingua{files, folder};
    fakes::FakeRichText text;
    editor::Form2 form{desktop.loop, text, Lingua, folder};
    player::Settings settings;
    controls::RecentFiles recent{{&form.mnuRecent1, &form.mnuRecent2, &form.mnuRecent3, &form.mnuRecent4},
                                 form.mnur,
                                 files,
                                 folder.files(u"LastFilesEditor.ini")};
    editor::Document document{form, dialogs, desktop.systemPort, settings, recent};
    player::Form1 form1{desktop.loop, desktop.player, Lingua, folder};
    editor::UndoRedo undoRedo{text};
    editor::Typing typing{form, document, undoRedo, form1};
};

} // namespace fakes
