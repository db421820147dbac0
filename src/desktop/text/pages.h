#pragma once

#include "desktop/text/editor_document.h"

class QPagedPaintDevice;

namespace desktop {

// Puts the document, which was made for it, on paper: as many pages as it needs and its page breaks
// ask for, its letters black where they have no colour of their own. Throws base::Failure when the device
// takes no page.
void printPages(EditorDocument& document, QPagedPaintDevice& paper);

} // namespace desktop
