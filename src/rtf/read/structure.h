// What a file tells that no document of the editor holds.
#pragma once

#include <string_view>

namespace rtf {

// True when the bytes of RTF hold what reading and writing drops: tables, fields other than links, marks of
// revisions, entries of an index, named places. Its time grows with the number of bytes.
bool losesStructure(std::string_view bytes);

} // namespace rtf
