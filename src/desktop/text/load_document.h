#pragma once

#include "base/code_page.h"
#include "desktop/text/editor_document.h"

#include <memory>

namespace desktop {

// A text without formats as a document.
std::unique_ptr<EditorDocument> documentOfText(base::TextView text, const QFont& font);

// The file as a document: RTF by its beginning; else plain text, UTF-16 by its mark, UTF-8 by its mark or
// when all of it is valid, in the page otherwise. Throws base::Failure for a file that cannot be read, and
// for one so long that Qt would take minutes and all of the memory to lay it out.
std::unique_ptr<EditorDocument> loadDocument(base::TextView path, const base::CodePage& page,
                                             const QFont& font);

} // namespace desktop
