#include "bookmarks/bookmark_window.h"

#include "base/carry_on.h"
#include "bookmarks/bookmark_line.h"
#include "bookmarks/sorted_list.h"

namespace bookmarks {

namespace {

constexpr double jumpsBehind = 1; // seconds

} // namespace

BookmarkWindow::BookmarkWindow(Form3& form, BookmarkTable& table, player::Form1& form1,
                               dictation::InputDialog& dialog)
    : form_(form), table_(table), form1_(form1), dialog_(dialog) {
    form_.Resize = [this] { Form_Resize(); };
    form_.Unload = [this] {
        unload();
        return false;
    };
    form_.Command1.Click = [this] { Command1_Click(); };
    form_.Command2.Click = [this] { Command2_Click(); };
    form_.List1.DblClick = [this] { List1_DblClick(); };
    form_.Timer1.Tick = [this] { Timer1_Timer(); };

    dictation::InputJob job;
    job.isAsked = [this] { return dialog_.form().caption.get() == form1_.Lingua(93); };
    job.accept = [this] { return addNamed(dialog_.form().Text1.text); };
    job.takesBlankText = true;
    dialog_.add(std::move(job));
}

void BookmarkWindow::Form_Load() {
    if (form_.loaded)
        return;
    form_.loaded = true;
    form_.icon = form1_.icon.get();
    form_.caption = form1_.Lingua(120);
    fillLists();
}

void BookmarkWindow::refill() {
    if (form_.loaded)
        fillLists();
}

void BookmarkWindow::fillLists() {
    std::vector<base::Text> keys;
    std::vector<base::Text> lines;
    for (const base::Text& line : table_.BookMark) {
        if (line.empty())
            break;
        base::carryOn([&] { keys.push_back(keyOf(line)); });
        lines.push_back(line);
    }
    fillSorted(form_.List1, std::move(keys));
    fillSorted(form_.List2, std::move(lines));
}

void BookmarkWindow::Form_Resize() {
    resize(form_.List1.width, form_.width - 140);
    form_.Command1.left = form_.width - form_.Command1.width - 160;
    form_.Command2.left = form_.Command1.left - form_.Command2.width - 60;
}

void BookmarkWindow::unload() {
    // The empty lists of a window that was never loaded would clear the table.
    if (!form_.loaded)
        return;
    Form_Unload();
    form_.loaded = false;
    form_.visible = false;
    clear(form_.List1);
    clear(form_.List2);
    form_.left = Form3::design.left;
    form_.top = Form3::design.top;
    form_.width = Form3::design.width;
    form_.height = Form3::design.height;
}

void BookmarkWindow::Form_Unload() {
    table_.SvuotaBookMark();
    copyLines(rowCount(form_.List1));
    form1_.mnuBookMark.caption = form1_.Lingua(84);
}

// Copies the first `count` lines of List2 into the table, as many as fit.
void BookmarkWindow::copyLines(int count) {
    count = std::min(count, static_cast<int>(BookmarkTable::size));
    for (int i = 0; i < count; ++i)
        table_.BookMark[static_cast<std::size_t>(i)] = rowOf(form_.List2, i);
}

void BookmarkWindow::Command1_Click() {
    // While a file is loading, position and duration are both empty, which does not mean the end.
    if (form1_.WMP1.playState() != platform::PlayState::Transitioning &&
        form1_.WMP1.currentPositionString() == form1_.WMP1.durationString()) {
        form1_.WMP1.setCurrentPosition(0);
        form1_.cmdPlay.Click();
    }
    dialog_.ask(form_, form1_.Lingua(93), form1_.Lingua(88));
}

// Returns false if such a bookmark already exists: the dialog stays open for another name.
bool BookmarkWindow::addNamed(const base::Text& name) {
    const base::Text position = paddedPosition(form1_.WMP1.currentPositionString());
    // A bookmark is one line of its file.
    const base::Text key = ChiaveBM(position, base::firstLine(name));
    const auto isThere = [&] {
        const std::vector<base::Text>& keys = form_.List1.items;
        return std::find(keys.begin(), keys.end(), key) != keys.end();
    };
    if (isThere()) {
        dialog_.warn(form1_.Lingua(89));
        return false;
    }
    // After a deletion the lists differ from each other and from the table. Without a refill, adding a line
    // would push out the last one, which may be the new bookmark.
    if (rowCount(form_.List1) != rowCount(form_.List2))
        fillLists();
    if (!isThere()) {
        addSorted(form_.List1, key);
        addSorted(form_.List2, lineOf(key, position));
    }
    std::fill(table_.BookMark.begin() + 1, table_.BookMark.end(), base::Text());
    copyLines(rowCount(form_.List2));
    if (const int places = static_cast<int>(BookmarkTable::size); rowCount(form_.List1) > places)
        Dropped(rowOf(form_.List1, places));
    return true;
}

void BookmarkWindow::Command2_Click() {
    if (form_.List1.listIndex == -1)
        return;
    removeChosen(form_.List1);
    table_.SvuotaBookMark();
    copyLines(rowCount(form_.List1));
}

void BookmarkWindow::List1_DblClick() {
    const double seconds = secondsOf(rowOf(form_.List2, form_.List1.listIndex));
    if (seconds > jumpsBehind)
        form1_.WMP1.setCurrentPosition(seconds);
    form1_.Timer1.Tick();
}

void BookmarkWindow::Timer1_Timer() {
    form_.Timer1.setInterval(0);
    unload();
}

void BookmarkWindow::applyLanguage() {
    form_.List1.accessible.name = base::TogliAmp(form1_.Lingua(120));
    form_.Command1.accessible.name = base::TogliAmp(form1_.Lingua(93));
    form_.Command2.accessible.name = base::TogliAmp(form1_.Lingua(100));
    form_.Command1.toolTip = lang::toolTip(form1_.Lingua(93));
    form_.Command2.toolTip = lang::toolTip(form1_.Lingua(100));
}

} // namespace bookmarks
