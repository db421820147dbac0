#include "controls/recent_files.h"

#include "base/carry_on.h"

namespace controls {

namespace {

constexpr base::TextView placeholder = u"mnuRecent";

} // namespace

RecentFiles::RecentFiles(std::array<MenuItem*, count> items, MenuItem& separator,
                         const base::TextFiles& files, base::Text path)
    : items_(items), separator_(separator), files_(files), path_(std::move(path)) {}

bool RecentFiles::isFree(const MenuItem& item) {
    return item.caption->starts_with(placeholder);
}

bool RecentFiles::load(bool mark) {
    std::vector<base::Text> lines;
    base::carryOn([&] { lines = files_.readLines(path_); });
    // A file of fewer lines repeats its last line.
    if (!lines.empty())
        lines.resize(count, base::Text(lines[std::min(lines.size(), count) - 1]));
    for (std::size_t n = 0; n < lines.size(); ++n) {
        if (!lines[n].empty()) {
            items_[n]->caption = lines[n];
            mark = true;
        }
    }
    if (mark) {
        separator_.visible = true;
        for (MenuItem* const item : items_)
            item->visible = !isFree(*item);
    }
    return mark;
}

void RecentFiles::remember(base::TextView path) {
    std::size_t last = count; // the item that already holds the path; `count` if none does
    for (std::size_t n = 0; n < count; ++n) {
        if (items_[n]->caption.get() == path)
            last = n;
    }
    const bool isNew = last == count;
    const auto moveDownTo = [&](std::size_t end) {
        for (std::size_t n = end; n > 0; --n)
            items_[n]->caption = items_[n - 1]->caption.get();
    };
    if (!isNew)
        moveDownTo(last);
    items_[0]->visible = true;
    for (std::size_t n = 1; n < count; ++n)
        items_[n]->visible = !isFree(*items_[n]);
    if (isNew)
        moveDownTo(count - 1);
    items_[0]->caption = base::Text(path);
    separator_.visible = true;
    std::vector<base::Text> lines;
    for (const MenuItem* const item : items_)
        lines.push_back(item->caption);
    base::carryOn([&] { files_.writeLines(path_, lines); },
                  [this](const char* reason) { Failed(base::fromUtf8(reason)); });
}

} // namespace controls
