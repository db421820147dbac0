// Converts between the toolkit-free RTF document and the editor's document.
#pragma once

#include "desktop/text/editor_document.h"
#include "desktop/text/text_units.h"

#include <QTextCursor>
#include <memory>
#include <vector>

namespace desktop {

// Converts the whole source to a new document.
std::unique_ptr<EditorDocument> documentOfRtf(rtf::Document source, const QFont& font);

// Inserts the source at the cursor and leaves the cursor after it. Page setup, head and sections of the
// source are not inserted.
void insertRtf(QTextCursor& cursor, EditorDocument& document, const rtf::Document& source);

// How the editor's paragraphs become those of a file.
struct FileMap {
    std::vector<int> rests;    // numbers of those that continue a paragraph after a page break, ascending
    std::vector<int> sections; // by section: the number of the one that begins it; -1 for none
};

// Converts the whole document, or a range of it.
rtf::Document rtfOf(const EditorDocument& document);
rtf::Document rtfOf(const EditorDocument& document, FileMap& map);
// The editor's paragraphs from `first` to before `end`, with the sections that begin there. `map` contains
// the sections that begin elsewhere; those of the range, and its rests, are added.
rtf::Document rtfOf(const EditorDocument& document, int first, int end, FileMap& map);
rtf::Document rtfOf(const EditorDocument& document, TextRange range);

} // namespace desktop
