// Between the neutral document of RTF and that of the editor.
#pragma once

#include "desktop/text/editor_document.h"
#include "desktop/text/text_units.h"

#include <QTextCursor>
#include <memory>

namespace desktop {

// The whole source as a document of its own.
std::unique_ptr<EditorDocument> documentOfRtf(rtf::Document source, const QFont& font);

// Inserts the source at the cursor, which is left behind it. The page, the head and the sections of the
// source do not come along.
void insertRtf(QTextCursor& cursor, EditorDocument& document, const rtf::Document& source);

// The whole document, and a stretch of it.
rtf::Document rtfOf(const EditorDocument& document);
rtf::Document rtfOf(const EditorDocument& document, TextRange range);

} // namespace desktop
