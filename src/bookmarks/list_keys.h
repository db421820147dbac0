#pragma once

#include "bookmarks/bookmark_table.h"
#include "bookmarks/bookmark_window.h"
#include "lang/words.h"

namespace bookmarks {

// The keys of the list of bookmarks: Enter jumps, Delete removes, F2 renames.
class ListKeys {
public:
    ListKeys(Form3& form, BookmarkTable& table, BookmarkWindow& window, const lang::LanguageTable& language,
             dictation::InputDialog& dialog, lang::Words& words);

    void List1_KeyDown(platform::KeyEvent& key);

private:
    void askName();
    // Returns false if there is such a bookmark: the dialog stays open for another name.
    bool rename(const base::Text& name);

    Form3& form_;
    BookmarkTable& table_;
    BookmarkWindow& window_;
    const lang::LanguageTable& Lingua;
    dictation::InputDialog& dialog_;
    lang::Words& words_;
};

} // namespace bookmarks
