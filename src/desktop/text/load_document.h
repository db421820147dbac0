#pragma once

#include "base/code_page.h"
#include "desktop/text/editor_document.h"

#include <memory>

namespace desktop {

// A document of plain text.
std::unique_ptr<EditorDocument> documentOfText(base::TextView text, const QFont& font);

// Loads a file: RTF if it begins as such; otherwise plain text, in UTF-16 if it has a byte order mark, in
// UTF-8 if it has a mark or is valid as a whole, else in code page `page`. Throws base::Failure if the file
// cannot be read, or is so long that Qt would take minutes and all memory to lay it out.
std::unique_ptr<EditorDocument> loadDocument(base::TextView path, const base::CodePage& page,
                                             const QFont& font);

} // namespace desktop
