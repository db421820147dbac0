#include "bookmarks/list_keys.h"

#include "base/carry_on.h"
#include "bookmarks/bookmark_line.h"
#include "bookmarks/sorted_list.h"

#include <algorithm>

namespace bookmarks {

using lang::operator""_en;

namespace {

constexpr int deleteKey = 46;
constexpr int f2 = 113;
constexpr std::size_t positionLength = 8;
constexpr std::size_t nameStart = 10; // in a key

// Replaces the selected row of a sorted list, which stays selected.
void replaceChosen(controls::ListBox& list, const base::Text& row) {
    removeChosen(list);
    addSorted(list, row);
    const auto& rows = list.items.get();
    list.listIndex = static_cast<int>(std::find(rows.begin(), rows.end(), row) - rows.begin());
}

} // namespace

ListKeys::ListKeys(Form3& form, BookmarkTable& table, BookmarkWindow& window,
                   const lang::LanguageTable& language, dictation::InputDialog& dialog, lang::Words& words)
    : form_(form), table_(table), window_(window), Lingua(language), dialog_(dialog), words_(words) {
    form_.List1.KeyDown = [this](platform::KeyEvent& key) { List1_KeyDown(key); };

    dictation::InputJob job;
    job.isAsked = [this] { return dialog_.form().caption.get() == words_(u"Rename bookmark"_en); };
    job.accept = [this] { return rename(base::Text(base::firstLine(dialog_.form().Text1.text.get()))); };
    job.takesBlankText = true;
    dialog_.add(std::move(job));
}

void ListKeys::List1_KeyDown(platform::KeyEvent& key) {
    if (key.shift != 0 || form_.List1.listIndex == -1)
        return;
    const int pressed = key.keyCode;
    if (pressed != platform::enterKey && pressed != deleteKey && pressed != f2)
        return;
    key.keyCode = 0;
    if (pressed == platform::enterKey)
        window_.List1_DblClick();
    else if (pressed == deleteKey)
        window_.Command2_Click();
    else
        askName();
}

void ListKeys::askName() {
    const base::Text key = rowOf(form_.List1, form_.List1.listIndex);
    dialog_.ask(form_, words_(u"Rename bookmark"_en), Lingua(88),
                base::TextView(key).substr(std::min(nameStart, key.size())));
}

bool ListKeys::rename(const base::Text& name) {
    const base::Text before = rowOf(form_.List1, form_.List1.listIndex);
    if (before.size() < positionLength)
        return true;
    const base::Text now = ChiaveBM(base::TextView(before).substr(0, positionLength), name);
    if (now == before)
        return true;
    const std::vector<base::Text>& keys = form_.List1.items;
    if (std::find(keys.begin(), keys.end(), now) != keys.end()) {
        dialog_.warn(Lingua(89));
        return false;
    }
    // As keyOf returns it, without trailing blanks.
    const base::Text key = keyOf(lineOf(before, base::TextView(before).substr(0, positionLength)));
    const auto isRenamed = [&](const base::Text& line) {
        bool same = false;
        base::carryOn([&] { same = keyOf(line) == key; });
        return same;
    };
    const auto renamed = [&](const base::Text& line) {
        return lineOf(now, base::TextView(line).substr(line.size() - positionLength));
    };
    // After a deletion the lists differ, so the line is found by its key and not by its row.
    const std::vector<base::Text>& lines = form_.List2.items;
    const auto line = std::find_if(lines.begin(), lines.end(), isRenamed);
    if (line != lines.end()) {
        form_.List2.listIndex = static_cast<int>(line - lines.begin());
        replaceChosen(form_.List2, renamed(*line));
    }
    for (base::Text& kept : table_.BookMark)
        if (isRenamed(kept))
            kept = renamed(kept);
    replaceChosen(form_.List1, now);
    return true;
}

} // namespace bookmarks
