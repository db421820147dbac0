// A draft of any form, told apart by what stands in the file.
#pragma once

#include "drafts/draft.h"
#include "drafts/read/forms.h"

#include "base/code_page.h"

#include <string>
#include <string_view>

namespace drafts {

// The text of a file: in UTF-16 when it begins with that mark, in UTF-8 when it is valid or says so, in the
// page otherwise.
Text decoded(std::string_view bytes, const base::CodePage& page);

// Reads a draft. Throws Damage, with the line, when the file is none or cannot be read, and Cancelled when
// `progress` answers false.
Draft read(std::string bytes, const base::CodePage& page, const Progress& progress = {});

} // namespace drafts
