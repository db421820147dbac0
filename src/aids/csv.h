// Tables as text that spreadsheets open.
#pragma once

#include "base/text.h"

#include <string>
#include <string_view>
#include <vector>

namespace aids {

// A cell, quoted where it must be. One that a spreadsheet would take for a formula gets an apostrophe in
// front.
std::string csvCell(base::TextView text);

// The rows of a table whose cells are separated by commas, or by the semicolons or tabs that a spreadsheet
// may have saved instead. Undoes csvCell.
std::vector<std::vector<base::Text>> csvRows(std::string_view bytes);

} // namespace aids
