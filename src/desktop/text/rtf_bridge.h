// Converts between the toolkit-free RTF document and the editor's document.
#pragma once

#include "desktop/text/editor_document.h"
#include "desktop/text/text_units.h"

#include <QTextCursor>
#include <memory>

namespace desktop {

// Converts the whole source to a new document.
std::unique_ptr<EditorDocument> documentOfRtf(rtf::Document source, const QFont& font);

// Inserts the source at the cursor and leaves the cursor after it. Page setup, head and sections of the
// source are not inserted.
void insertRtf(QTextCursor& cursor, EditorDocument& document, const rtf::Document& source);

// Converts the whole document, or a range of it.
rtf::Document rtfOf(const EditorDocument& document);
rtf::Document rtfOf(const EditorDocument& document, TextRange range);

} // namespace desktop
