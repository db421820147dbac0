#pragma once

#include "platform/rich_text.h"
#include "rtf/document.h"

#include <QFont>
#include <string>

namespace desktop {

// The document as a file of this form. Throws base::Failure if it cannot be written.
std::string exportDocument(rtf::Document source, platform::ExportForm form, const QFont& font);

} // namespace desktop
