#pragma once

#include "app/desktop.h"
#include "controls/recent_files.h"
#include "editor/clipboard_forms.h"
#include "editor/document.h"
#include "editor/editor_keys.h"
#include "editor/editor_window.h"
#include "editor/form2.h"
#include "editor/time_stamp.h"
#include "editor/toolbar.h"
#include "editor/typing.h"
#include "editor/undo_redo.h"
#include "player/form1.h"
#include "player/settings.h"

namespace app {

// The editor with its window.
class EditorRoom {
public:
    // `Salva` saves the settings.
    EditorRoom(Desktop& desktop, player::Form1& form1, player::Settings& settings,
               const base::TextFiles& files, std::function<void()> Salva);

    // Creates the window, hidden. Call it after every command has its routine, which a menu reads only once.
    void Form_Load();
    // Reloads the language table and applies it to the window.
    void CambiaLingua2(lang::LanguageTable& table);

    editor::Form2& form() { return form_; }
    editor::Document& document() { return document_; }
    editor::UndoRedo& undoRedo() { return undoRedo_; }
    editor::Typing& typing() { return typing_; }
    editor::EditorWindow& window() { return window_; }
    const editor::EditorKeys& keys() const { return keys_; }
    controls::RecentFiles& recentDocuments() { return recent_; }

private:
    Desktop& desktop_;
    editor::Form2 form_;
    controls::RecentFiles recent_;
    editor::Document document_;
    editor::UndoRedo undoRedo_;
    editor::Typing typing_;
    editor::ClipboardForms clipboard_;
    editor::TimeStamp timeStamp_;
    editor::Toolbar toolbar_;
    editor::EditorKeys keys_;
    editor::EditorWindow window_;
};

} // namespace app
