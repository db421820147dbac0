#include "bookmarks/media_bookmarks.h"

#include "base/carry_on.h"
#include "bookmarks/bookmark_line.h"
#include "bookmarks/sorted_list.h"

namespace bookmarks {

MediaBookmarks::MediaBookmarks(BookmarkTable& table, Form3& form3, const player::Form1& form1,
                               const base::TextFiles& files)
    : table_(table), form3_(form3), form1_(form1), files_(files) {}

base::Text MediaBookmarks::fileOf(base::TextView mediaPath) const {
    return form1_.folder.bookmarks(base::Text(base::afterLast(mediaPath, base::pathSeparator)) + u".bm");
}

void MediaBookmarks::SalvaBookMark() {
    if (base::trimmed(table_.BookMark[0]).empty())
        return;
    std::vector<base::Text> lines;
    for (const base::Text& line : table_.BookMark) {
        if (!line.empty())
            lines.push_back(line);
    }
    base::carryOn([&] { base::createFolder(form1_.folder.bookmarks({})); });
    base::carryOn([&] { files_.writeLines(fileOf(form1_.Label4.tag.get()), lines); });
    clear(form3_.List1);
    clear(form3_.List2);
}

void MediaBookmarks::leave() {
    if (!table_.empty())
        SalvaBookMark();
    table_.SvuotaBookMark();
}

bool MediaBookmarks::hasFile(base::TextView mediaPath) const {
    return base::fileExists(fileOf(mediaPath));
}

void MediaBookmarks::read(base::TextView mediaPath) {
    std::vector<base::Text> lines;
    base::carryOn([&] { lines = files_.readLines(fileOf(mediaPath)); });
    const std::size_t count = std::min(lines.size(), BookmarkTable::size);
    for (std::size_t i = 0; i < count; ++i)
        table_.BookMark[i] = mended(lines[i]);
}

} // namespace bookmarks
