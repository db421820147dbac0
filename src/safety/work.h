// Restores work from the journal, in the state of the last record.
#pragma once

#include "base/text.h"
#include "platform/rich_text.h"
#include "safety/records.h"

#include <optional>
#include <string>
#include <vector>

namespace safety {

// The state of the document apart from its text.
struct DocumentState {
    base::Text path;        // path of the file; empty if the document has none
    base::Text title;       // name in the window's title
    std::int32_t caret = 0; // UTF-16 units, as in platform::RichText
    bool unsaved = false;   // the text has changes that no file contains
    std::uint32_t fileCheck =
        0; // checksum of the file when the document last read or wrote it; 0 without a file

    bool operator==(const DocumentState&) const = default;
};

// The bookmarks of one recording.
struct Marks {
    base::Text recording; // path
    std::vector<base::Text> lines;

    bool operator==(const Marks&) const = default;
};

std::string packed(const DocumentState& state);
std::string packed(const Marks& marks);
std::string packed(const platform::ParagraphChange& change);

struct Work {
    std::string source; // the whole text as RTF; empty if the journal has none
    DocumentState document;
    Marks marks;
    bool whole = true; // false if a change did not fit the text; later changes are ignored then
};

// Reconstructs the work from a journal's records. The time grows linearly with the length of the records.
Work replay(const std::vector<Record>& records);

} // namespace safety
