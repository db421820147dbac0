#include "bookmarks/media_bookmarks.h"

#include "base/carry_on.h"
#include "base/file_name.h"
#include "bookmarks/bookmark_line.h"
#include "bookmarks/sorted_list.h"

#include <algorithm>
#include <iterator>

namespace bookmarks {

namespace {

constexpr base::TextView extension = u".bm";

} // namespace

MediaBookmarks::MediaBookmarks(BookmarkTable& table, Form3& form3, const player::Form1& form1,
                               const base::TextFiles& files)
    : table_(table), form3_(form3), form1_(form1), files_(files) {}

base::Text MediaBookmarks::fileOf(base::TextView mediaPath) const {
    const std::string name = base::toUtf8(base::afterLast(mediaPath, base::pathSeparator));
    return form1_.folder.bookmarks(
        base::fromUtf8(base::shortenedName(name, base::longestFileName - extension.size())) +
        base::Text(extension));
}

void MediaBookmarks::SalvaBookMark() {
    if (base::trimmed(table_.BookMark[0]).empty())
        return;
    const base::Text file = fileOf(form1_.Label4.tag.get());
    base::carryOn([&] { base::createFolder(form1_.folder.bookmarks({})); });
    base::carryOn(
        [&] {
            // The unreadable file still holds the user's bookmarks: if reading fails again, nothing is
            // written.
            const bool keeps = file == unread_;
            std::vector<base::Text> lines = keeps ? files_.readLines(file) : std::vector<base::Text>();
            std::copy_if(table_.BookMark.begin(), table_.BookMark.end(), std::back_inserter(lines),
                         [](const base::Text& line) { return !line.empty(); });
            Replacing(file, lines.size());
            files_.writeLines(file, lines);
            unread_.clear();
        },
        [this](const char* reason) { Failed(base::fromUtf8(reason)); });
    clear(form3_.List1);
    clear(form3_.List2);
}

void MediaBookmarks::leave() {
    if (!table_.empty())
        SalvaBookMark();
    table_.SvuotaBookMark();
    unread_.clear();
    // A deletion leaves its line in List2, even if it empties the table.
    clear(form3_.List1);
    clear(form3_.List2);
}

bool MediaBookmarks::hasFile(base::TextView mediaPath) const {
    return base::fileExists(fileOf(mediaPath));
}

void MediaBookmarks::read(base::TextView mediaPath) {
    std::vector<base::Text> lines;
    if (!base::carryOn([&] { lines = files_.readLines(fileOf(mediaPath)); }))
        unread_ = fileOf(mediaPath);
    if (lines.size() > BookmarkTable::size)
        Replacing(fileOf(mediaPath), BookmarkTable::size);
    const std::size_t count = std::min(lines.size(), BookmarkTable::size);
    for (std::size_t i = 0; i < count; ++i)
        table_.BookMark[i] = mended(lines[i]);
}

bool MediaBookmarks::bringBack(base::TextView mediaPath, const std::vector<base::Text>& lines) {
    const base::Text file = fileOf(mediaPath);
    std::vector<base::Text> held;
    base::carryOn([&] { held = files_.readLines(file); });
    if (held == lines)
        return false;
    base::createFolder(form1_.folder.bookmarks({}));
    if (!held.empty())
        Replacing(file, 0);
    files_.writeLines(file, lines);
    return true;
}

} // namespace bookmarks
