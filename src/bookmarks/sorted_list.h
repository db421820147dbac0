// A list box that keeps its rows in the order of their text, capital letters and small ones alike.
#pragma once

#include "controls/controls.h"

namespace bookmarks {

void clear(controls::ListBox& list);
// Fills an empty list with these rows.
void fillSorted(controls::ListBox& list, std::vector<base::Text> rows);
// Adds one row at its place; the row chosen stays chosen.
void addSorted(controls::ListBox& list, const base::Text& row);
// Takes the chosen row away; none is chosen then.
void removeChosen(controls::ListBox& list);

// Row `index`; the empty text where the list has none.
base::Text rowOf(const controls::ListBox& list, int index);
int rowCount(const controls::ListBox& list);

} // namespace bookmarks
