#include "bookmarks/sorted_list.h"

namespace bookmarks {

namespace {

bool before(const base::Text& a, const base::Text& b) {
    return base::lowered(a) < base::lowered(b);
}

} // namespace

void clear(controls::ListBox& list) {
    list.listIndex = -1;
    list.items = std::vector<base::Text>();
}

void fillSorted(controls::ListBox& list, std::vector<base::Text> rows) {
    std::stable_sort(rows.begin(), rows.end(), before);
    list.listIndex = -1;
    list.items = std::move(rows);
}

void addSorted(controls::ListBox& list, const base::Text& row) {
    std::vector<base::Text> rows = list.items;
    const auto place = rows.insert(std::upper_bound(rows.begin(), rows.end(), row, before), row);
    const int chosen = list.listIndex;
    const bool moves = chosen >= place - rows.begin();
    list.items = std::move(rows);
    list.listIndex = moves ? chosen + 1 : chosen;
}

void removeChosen(controls::ListBox& list) {
    std::vector<base::Text> rows = list.items;
    rows.erase(rows.begin() + list.listIndex.get());
    list.listIndex = -1;
    list.items = std::move(rows);
}

base::Text rowOf(const controls::ListBox& list, int index) {
    return index >= 0 && index < rowCount(list) ? list.items.get()[static_cast<std::size_t>(index)]
                                                : base::Text();
}

int rowCount(const controls::ListBox& list) {
    return static_cast<int>(list.items->size());
}

} // namespace bookmarks
