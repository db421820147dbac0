// The editor's text with its records, wired as in the program.
#pragma once

#include "desktop/services/qt_event_loop.h"
#include "desktop/text/rich_text_edit.h"
#include "editor/typing.h"
#include "fakes/fake_desktop.h"

namespace bench {

// A text control in a window of its own.
struct ShownText {
    ShownText(int width, int height) { // pixels
        rtb.resize(width, height);
        rtb.show();
    }

    desktop::RichTextEdit rtb{base::CodePage(1252)};
};

// What a key press in this control triggers.
struct WiredEditor {
    explicit WiredEditor(platform::RichText& rtb) : form(loop, rtb, Lingua, folder) { typing.Form_Load(); }

    fakes::FakeDesktop desktop;
    desktop::QtEventLoop loop;
    base::TextFiles files{base::CodePage(1252)};
    base::ProgramFolder folder{desktop.folder.text("")};
    lang::LanguageTable Lingua{files, folder};
    editor::Form2 form;
    player::Settings settings;
    controls::RecentFiles recent{{&form.mnuRecent1, &form.mnuRecent2, &form.mnuRecent3, &form.mnuRecent4},
                                 form.mnur,
                                 files,
                                 folder.files(u"LastFilesEditor.ini")};
    editor::Document document{form, desktop.dialogPort, desktop.systemPort, settings, recent};
    player::Form1 form1{loop, desktop.player, Lingua, folder};
    editor::UndoRedo undoRedo{form.RTB};
    editor::Typing typing{form, document, undoRedo, form1};
};

} // namespace bench
