// A list box that sorts its rows by text, ignoring case.
#pragma once

#include "controls/controls.h"

namespace bookmarks {

void clear(controls::ListBox& list);
// Fills an empty list with these rows.
void fillSorted(controls::ListBox& list, std::vector<base::Text> rows);
// Inserts one row in order; the selected row stays selected.
void addSorted(controls::ListBox& list, const base::Text& row);
// Removes the selected row; none is selected afterwards.
void removeChosen(controls::ListBox& list);

// Row `index`; empty if the list has no such row.
base::Text rowOf(const controls::ListBox& list, int index);
int rowCount(const controls::ListBox& list);

} // namespace bookmarks
