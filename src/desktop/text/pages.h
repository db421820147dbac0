#pragma once

#include "desktop/text/editor_document.h"

class QPagedPaintDevice;

namespace desktop {

// Prints the document, which must have been made for this call because it is changed: as many pages as the
// text and its page breaks need, in black where the text has no colour. Throws base::Failure if the device
// accepts no page.
void printPages(EditorDocument& document, QPagedPaintDevice& paper);

} // namespace desktop
