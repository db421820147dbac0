// What the journal brings back: the work as it stood when the last record was written.
#pragma once

#include "base/text.h"
#include "platform/rich_text.h"
#include "safety/records.h"

#include <optional>
#include <string>
#include <vector>

namespace safety {

// The document beside its text.
struct DocumentState {
    base::Text path;             // of the file; empty while the document has none
    base::Text title;            // name that the window shows
    std::int32_t caret = 0;      // UTF-16 units, as platform::RichText counts
    bool unsaved = false;        // the text holds changes that are in no file
    std::uint32_t fileCheck = 0; // checksum of the file as the document last knew it; 0 without a file

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
    std::string source; // the whole text as RTF; empty where the journal holds none
    DocumentState document;
    Marks marks;
    bool whole = true; // false when a change did not fit the text before it: the rest is left out
};

// Reads the records of a journal. Time grows with what is still in the text, not with how often it changed.
Work replay(const std::vector<Record>& records);

} // namespace safety
